#include "IGD/CommonFileDialog.h"

#include <utility>

#include "Fnd/PathUtils.h"

namespace {

std::shared_ptr<IFileDialogFactory>& InstalledFactory() {
    static std::shared_ptr<IFileDialogFactory> factory;
    return factory;
}

class FileSystemShellItem final : public IShellItem {
public:
    explicit FileSystemShellItem(Fnd::WString path) : path_(std::move(path)) {}

    HRESULT GetDisplayName(SIGDN kind, Fnd::WString& name) const override {
        if (kind != SIGDN_FILESYSPATH || path_.empty())
            return kFileDialogFailed;
        name = path_;
        return S_OK;
    }

private:
    Fnd::WString path_;
};

template <class Dialog, class Make> HRESULT Create(std::shared_ptr<Dialog>& dialog, Make make) {
    dialog.reset();
    // Copied so that a factory replaced while it works stays alive until it has answered.
    const std::shared_ptr<IFileDialogFactory> factory = InstalledFactory();
    if (factory)
        dialog = make(*factory);
    return dialog ? S_OK : kFileDialogFailed;
}

} // namespace

std::shared_ptr<IFileDialogFactory> SetFileDialogFactory(std::shared_ptr<IFileDialogFactory> factory) {
    return std::exchange(InstalledFactory(), std::move(factory));
}

HRESULT CoCreateInstance(std::shared_ptr<IFileOpenDialog>& dialog) {
    return Create(dialog, [](IFileDialogFactory& factory) { return factory.CreateOpenDialog(); });
}

HRESULT CoCreateInstance(std::shared_ptr<IFileSaveDialog>& dialog) {
    return Create(dialog, [](IFileDialogFactory& factory) { return factory.CreateSaveDialog(); });
}

HRESULT SHCreateItemFromParsingName(Fnd::WStringView path, ShellItemRef& item) {
    item.reset();
    if (path.empty() || !Fnd::PathUtils::ExistsOnDisk(path, false))
        return kFileDialogFailed;
    item = MakeFileSystemShellItem(Fnd::WString(path));
    return S_OK;
}

ShellItemRef MakeFileSystemShellItem(Fnd::WString path) {
    return std::make_shared<FileSystemShellItem>(std::move(path));
}
