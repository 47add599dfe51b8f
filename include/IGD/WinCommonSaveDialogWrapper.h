#pragma once
#include "IGD/WinCommonFileDialogWrapper.h"

namespace IGD {

// A save dialog that completes the default extension and checks the chosen path at OK: a path,
// a decision about a file already there, a folder that may be written.
class IGD_EXPORT WinCommonSaveDialogWrapper : public WinCommonFileDialogWrapper {
public:
    // Also the dialog of every operation of the base.
    void SetFileSaveDialog(std::shared_ptr<IFileSaveDialog> dialog);
    // "mov" or ".mov"; empty for none. A chosen name with another extension gets this one added.
    void SetDefaultExtension(const Fnd::WString& extension) { defaultExtension_ = extension; }
    // The path accepted at OK; empty until then.
    const Fnd::WString& GetSavedFilePath() const { return savedFilePath_; }
    // Replaces the dialog's own question about replacing a file by the library's box.
    void UseCustomOverwiteConfirmation();

    HRESULT OnFileOk(IFileDialog& dialog) override;

private:
    std::shared_ptr<IFileSaveDialog> saveDialog_;
    Fnd::WString savedFilePath_;
    Fnd::WString defaultExtension_;
};

} // namespace IGD
