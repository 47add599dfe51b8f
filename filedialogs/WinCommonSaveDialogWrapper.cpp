#include "IGD/WinCommonSaveDialogWrapper.h"

#include <utility>

#include "Fnd/Directory.h"
#include "Fnd/PathUtils.h"
#include "filedialogs/FileDialogTexts.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

// "mov" and ".mov" name the same extension; the path wants the dotted form.
Fnd::WString DottedExtension(const Fnd::WString& extension) {
    if (extension.find(u'.') != Fnd::WString::npos)
        return extension;
    return u"." + extension;
}

// The person is asked before an existing file is replaced; only Yes goes on.
bool ConfirmReplacement(const Fnd::WString& path) {
    const int answer = AppFrame::MessageBoxW(fluxcore::Localize(FileDialogTexts::kReplaceTemplate, {path}),
                                             fluxcore::Localize(FileDialogTexts::kConfirmFileReplacement),
                                             AppFrame::kMessageBoxYesNo, FileDialogTexts::kBoxIconWarning,
                                             AppFrame::kResultNo);
    return answer == AppFrame::kResultYes;
}

} // namespace

void WinCommonSaveDialogWrapper::SetFileSaveDialog(std::shared_ptr<IFileSaveDialog> dialog) {
    SetFileDialog(dialog);
    saveDialog_ = std::move(dialog);
}

void WinCommonSaveDialogWrapper::UseCustomOverwiteConfirmation() {
    FileDialogOptions options = 0;
    Dialog().GetOptions(options);
    Dialog().SetOptions(options & ~kFileDialogOverwritePrompt);
}

HRESULT WinCommonSaveDialogWrapper::OnFileOk(IFileDialog&) {
    ShellItemRef item;
    if (!saveDialog_ || saveDialog_->GetResult(item) != S_OK)
        return S_OK;
    Fnd::WString path = ConvertShellItemToPath(item.get());

    // Only a real name gets the extension: ".mov" alone would pass for a path and skip the box.
    if (!defaultExtension_.empty() && !path.empty()) {
        const Fnd::WString extension = DottedExtension(defaultExtension_);
        if (!Fnd::EqualsIgnoringASCIICase(Fnd::PathUtils::GetExtensionPart(path), extension))
            path += extension;
    }

    if (path.empty()) {
        ShowInvalidFilePathBox();
        return S_FALSE;
    }

    FileDialogOptions options = 0;
    Dialog().GetOptions(options);
    if (!(options & kFileDialogOverwritePrompt) && !Fnd::PathUtils::IsDirectory(path) &&
        Fnd::PathUtils::ExistsOnDisk(path, false) && !ConfirmReplacement(path))
        return S_FALSE;

    Fnd::WString directory;
    Fnd::PathUtils::SplitPath(path, nullptr, &directory, nullptr, nullptr);
    if (!Fnd::Directory::IsDirectoryWriteable(directory)) {
        AppFrame::MessageBoxW(fluxcore::Localize(FileDialogTexts::kSaveDirectoryNotWriteable),
                              fluxcore::Localize(FileDialogTexts::kApplicationTitle), AppFrame::kMessageBoxOK,
                              FileDialogTexts::kBoxIconStop, AppFrame::kResultOK);
        return S_FALSE;
    }

    savedFilePath_ = std::move(path);
    return S_OK;
}

} // namespace IGD
