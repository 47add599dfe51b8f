#pragma once
// A window listing the library's layouts and showing the one chosen, built from the archive and
// presented live: every control answers as it will in the dialog.
#include <QWidget>
#include <memory>
#include <vector>

#include "IGD/LayoutPreview.h"
#include "IgdQt/NodePresenter.h"

class QListWidget;
class QScrollArea;
class QLabel;

namespace igd::dialog {

class LayoutGallery : public QWidget {
public:
    // Opens on the entry of that title (a layout's name or a view's title), else on the first.
    explicit LayoutGallery(float layoutWidth, const QString& firstEntry = {}, QWidget* parent = nullptr);
    ~LayoutGallery() override;

private:
    void Show(int row);

    float layoutWidth_;
    std::vector<std::string> names_;
    QListWidget* list_;
    QScrollArea* area_;
    QLabel* status_;
    std::unique_ptr<qt::NodePresenter> presenter_;
    // The application and project the shown view was built for, while it lives.
    std::shared_ptr<void> setting_;
};

// Every layout rendered offscreen to directory/<layout>.png, and the section stack to
// directory/sections.png. Answers how many layouts failed to build; each failure is reported on
// standard error.
int WriteLayoutScreenshots(const QString& directory, float layoutWidth);

} // namespace igd::dialog
