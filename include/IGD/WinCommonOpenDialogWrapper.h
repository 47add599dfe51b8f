#pragma once
#include "IGD/WinCommonFileDialogWrapper.h"

namespace IGD {

// An open dialog that stays open when OK is pressed with nothing chosen.
class IGD_EXPORT WinCommonOpenDialogWrapper : public WinCommonFileDialogWrapper {
public:
    // Also the dialog of every operation of the base.
    void SetFileOpenDialog(std::shared_ptr<IFileOpenDialog> dialog);
    // The chosen files, in order; empty before OK.
    std::vector<Fnd::WString> GetFilesToOpen() const;

    HRESULT OnFileOk(IFileDialog& dialog) override;

private:
    std::shared_ptr<IFileOpenDialog> openDialog_;
};

} // namespace IGD
