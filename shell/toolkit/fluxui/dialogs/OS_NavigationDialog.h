#pragma once
#include "Fnd/WString.h"

namespace fluxui::dialogs {

// What every file and folder dialog shares: where it starts and what it is called.
class OS_NavigationDialog {
public:
    virtual ~OS_NavigationDialog() = default;
    void SetDefaultDirectory(const Fnd::WString& path) { defaultDirectory_ = path; }
    const Fnd::WString& GetDefaultDirectory() const { return defaultDirectory_; }
    void SetWindowTitle(const Fnd::WString& title) { title_ = title; }
    const Fnd::WString& GetWindowTitle() const { return title_; }

private:
    Fnd::WString defaultDirectory_;
    Fnd::WString title_;
};

} // namespace fluxui::dialogs
