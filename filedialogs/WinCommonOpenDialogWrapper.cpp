#include "IGD/WinCommonOpenDialogWrapper.h"

#include <utility>

namespace IGD {

void WinCommonOpenDialogWrapper::SetFileOpenDialog(std::shared_ptr<IFileOpenDialog> dialog) {
    SetFileDialog(dialog);
    openDialog_ = std::move(dialog);
}

std::vector<Fnd::WString> WinCommonOpenDialogWrapper::GetFilesToOpen() const {
    IShellItemArray items;
    if (!openDialog_ || openDialog_->GetResults(items) != S_OK)
        return {};
    return ConvertShellItemArrayToPaths(items);
}

HRESULT WinCommonOpenDialogWrapper::OnFileOk(IFileDialog&) {
    if (!GetFilesToOpen().empty())
        return S_OK;
    // Nothing that is a file was chosen: the person stays in the dialog to choose again.
    ShowInvalidFilePathBox();
    return S_FALSE;
}

} // namespace IGD
