#include <memory>
#include <optional>
#include <utility>

#include "Fnd/Directory.h"
#include "Fnd/PathUtils.h"
#include "HostApp/ApplicationType.h"
#include "IGD/FileDialogs.h"
#include "IGD/WinCommonOpenDialogWrapper.h"
#include "Proj/LastUsedDirectory.h"
#include "Proj/PreferenceAccess.h"
#include "AppFrame/ParentAndChildWindowDisabler.h"
#include "AppFrame/PlayerControl.h"
#include "AppFrame/Workspace.h"
#include "fluxui/ui/UI_NodeManager.h"
#include "AppFrame/Application.h"

namespace IGD {
namespace {

// Hosts of this kind run their own modal state around our dialogs.
constexpr int kHostKindManagingItsWindows = 8;

// The application's window, or, in a host without an application object, the workspace's.
fluxui::ui::OS_Window* MainWindow() {
    if (AppFrame::Application* application = AppFrame::Application::Instance())
        if (fluxui::ui::OS_Window* window = application->GetMainWindow())
            return window;
    AppFrame::Workspace* workspace = AppFrame::Workspace::Instance();
    return workspace && workspace->GetPtr() ? workspace->GetPtr()->GetMainTopLevelWindow() : nullptr;
}

// The folder a caller's path names: the path itself when it ends in a separator (whether or not
// it exists), else the folder of an existing file. Empty when it names neither.
Fnd::WString StartFolderOf(const Fnd::WString& path) {
    if (path.empty())
        return {};
    if (path.back() == u'/' || path.back() == u'\\')
        return path;
    if (Fnd::PathUtils::ExistsOnDisk(path, false) && !Fnd::PathUtils::IsDirectory(path))
        return Fnd::PathUtils::GetFullDirectoryPart(path);
    return {};
}

Fnd::WString LastUsedDirectory() {
    // A missing back end is a fault of the host, not something to hide here.
    Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    Fnd::WString folder;
    ReadPreference(*preferences, Proj::PreferenceKey(Proj::kLastUsedDirectoryKey), folder);
    if (!folder.empty() && Fnd::Directory::IsDirectory(folder) && Fnd::PathUtils::ExistsOnDisk(folder, true))
        return folder;
    return {};
}

void RememberLastUsedDirectory(const Fnd::WString& chosenFile) {
    Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    WritePreference(*preferences, Proj::PreferenceKey(Proj::kLastUsedDirectoryKey),
                    Fnd::PathUtils::GetFullDirectoryPart(chosenFile));
}

// The events stay connected exactly as long as the wrapper is in use, even when a box throws.
class AdviseScope {
public:
    AdviseScope(IFileDialog& dialog, IFileDialogEvents& events) : dialog_(dialog) {
        advised_ = dialog_.Advise(&events, cookie_) == S_OK;
    }
    ~AdviseScope() {
        if (advised_)
            dialog_.Unadvise(cookie_);
    }
    AdviseScope(const AdviseScope&) = delete;
    AdviseScope& operator=(const AdviseScope&) = delete;

private:
    IFileDialog& dialog_;
    unsigned cookie_ = 0;
    bool advised_ = false;
};

bool AskOpenFiles(const Fnd::WString& title, std::vector<Fnd::WString>& paths, const Fnd::WString& filter,
                  bool multiple, std::uintptr_t parentHandle) {
    AppFrame::PlayerControl::StopAllPlayers();
    // A drag that began under the dialog would otherwise go on once the dialog is gone.
    fluxui::ui::UI_NodeManager::Get(true).EndInputCapture(true);

    fluxui::ui::OS_Window* parent =
        parentHandle ? fluxui::ui::OS_Window::UI_GetWindow(parentHandle) : nullptr;
    if (!parent)
        parent = MainWindow();

    Fnd::WString startFolder = paths.empty() ? Fnd::WString() : StartFolderOf(paths.front());
    const bool fromLastUsed = startFolder.empty();
    if (fromLastUsed)
        startFolder = LastUsedDirectory();

    std::optional<AppFrame::Windows::ParentAndChildWindowDisabler> disabler;
    if (HostApp::GetApplicationType() != kHostKindManagingItsWindows)
        disabler.emplace(parent);

    std::shared_ptr<IFileOpenDialog> dialog;
    if (CoCreateInstance(dialog) != S_OK)
        return false;

    bool chosen = false;
    {
        WinCommonOpenDialogWrapper wrapper;
        wrapper.SetFileOpenDialog(dialog);
        AdviseScope advised(*dialog, wrapper);
        wrapper.SetTitle(title);
        if (multiple) {
            FileDialogOptions options = 0;
            dialog->GetOptions(options);
            dialog->SetOptions(options | kFileDialogAllowMultiSelect);
        }
        wrapper.SetFolder(startFolder);
        wrapper.SetFileTypes(filter, false);

        if (dialog->Show(parent ? parent->GetPlatformWindow() : 0) == S_OK) {
            paths.clear();
            for (Fnd::WString& path : wrapper.GetFilesToOpen())
                paths.push_back(Fnd::PathUtils::IsNormalizedPath(path)
                                    ? std::move(path)
                                    : Fnd::PathUtils::ToNormalizedPath(path));
            chosen = !paths.empty();
        }
    }

    // Only a folder the dialog found by itself is remembered; a caller's start says nothing
    // about where the person likes to look.
    if (chosen && fromLastUsed && Fnd::PathUtils::IsValidPath(paths.front()))
        RememberLastUsedDirectory(paths.front());
    return chosen;
}

} // namespace

bool AskOpenFile(const Fnd::WString& title, Fnd::WString& path, const Fnd::WString&,
                 const Fnd::WString& filter, unsigned, std::uintptr_t parent) {
    std::vector<Fnd::WString> paths;
    if (!path.empty())
        paths.push_back(path);
    if (!AskOpenFiles(title, paths, filter, false, parent))
        return false;
    path = paths.front();
    return true;
}

bool AskOpenFile(const Fnd::WString& title, std::vector<Fnd::WString>& paths, const Fnd::WString&,
                 const Fnd::WString& filter, unsigned, std::uintptr_t parent) {
    return AskOpenFiles(title, paths, filter, true, parent);
}

} // namespace IGD
