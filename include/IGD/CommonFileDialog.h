#pragma once
// The platform's common item dialog, reduced to what the library's file dialogs ask of it. A host
// that can show windows installs a factory that makes real dialogs; tests install a scripted one.
// Without a factory no dialog can be created and every request answers "nothing chosen" quietly.
//
// A dialog implementation must: run modally in Show; before it closes on OK, call OnFileOk of
// every advised events object and stay open when one answers S_FALSE; answer GetResult (and, for
// an open dialog, GetResults) with the chosen items from that moment on; number filter rows from 1.
#include <cstdint>
#include <memory>
#include <vector>

#include "Fnd/WString.h"
#include "IGD/Export.h"

using HRESULT = std::int32_t;
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
// Show's answer when the person closed the dialog without choosing.
inline constexpr HRESULT kFileDialogCancelled = static_cast<HRESULT>(0x800704C7u);
// Any other failure: no such item, no such row, nothing chosen yet.
inline constexpr HRESULT kFileDialogFailed = static_cast<HRESULT>(0x80004005u);

// Which name of an item is wanted. Only the filesystem path is asked for.
enum SIGDN : std::uint32_t { SIGDN_FILESYSPATH = 0x80058000u };

using FileDialogOptions = std::uint32_t;
// The dialog asks itself before a save replaces an existing file.
inline constexpr FileDialogOptions kFileDialogOverwritePrompt = 0x2;
// An open dialog accepts several files.
inline constexpr FileDialogOptions kFileDialogAllowMultiSelect = 0x200;

// One row of the file type list: a name and its patterns ("*.mov;*.mp4"). The pointers stay valid
// until the next SetFileTypes; a dialog copies what it keeps.
struct FileDialogFilterRow {
    const Fnd::WChar* name;
    const Fnd::WChar* pattern;
};

// A place the dialog can show or answer: a file, a folder, or something outside the filesystem.
class IShellItem {
public:
    virtual ~IShellItem() = default;
    // Fails for a kind of name the item does not have, such as a path for a place that is no file.
    virtual HRESULT GetDisplayName(SIGDN kind, Fnd::WString& name) const = 0;
};
using ShellItemRef = std::shared_ptr<IShellItem>;
using IShellItemArray = std::vector<ShellItemRef>;

class IFileDialog;

// What a dialog tells the object advised to it. S_OK from OnFileOk lets the dialog close;
// S_FALSE keeps it open with what the person typed.
class IFileDialogEvents {
public:
    virtual ~IFileDialogEvents() = default;
    virtual HRESULT OnFileOk(IFileDialog& dialog) = 0;
    virtual HRESULT OnFolderChanging(IFileDialog& dialog, IShellItem* folder) = 0;
    virtual HRESULT OnFolderChange(IFileDialog& dialog) = 0;
    virtual HRESULT OnSelectionChange(IFileDialog& dialog) = 0;
    virtual HRESULT OnShareViolation(IFileDialog& dialog, IShellItem* item, int* response) = 0;
    virtual HRESULT OnTypeChange(IFileDialog& dialog) = 0;
    virtual HRESULT OnOverwrite(IFileDialog& dialog, IShellItem* item, int* response) = 0;
};

// Notifications of controls a host adds to the dialog. The library adds none; a dialog that has
// such controls reaches this interface by a dynamic_cast of the advised events object.
class IFileDialogControlEvents {
public:
    virtual ~IFileDialogControlEvents() = default;
    virtual HRESULT OnItemSelected(IFileDialog& dialog, unsigned controlId, unsigned itemId) = 0;
    virtual HRESULT OnButtonClicked(IFileDialog& dialog, unsigned controlId) = 0;
    virtual HRESULT OnCheckButtonToggled(IFileDialog& dialog, unsigned controlId, bool checked) = 0;
    virtual HRESULT OnControlActivating(IFileDialog& dialog, unsigned controlId) = 0;
};

class IFileDialog {
public:
    virtual ~IFileDialog() = default;
    // Runs modally over the native window parent (0: none). S_OK when OK was pressed and
    // accepted; kFileDialogCancelled when the person cancelled.
    virtual HRESULT Show(std::uintptr_t parent) = 0;
    virtual HRESULT SetFileTypes(unsigned count, const FileDialogFilterRow* rows) = 0;
    // The selected row, from 1.
    virtual HRESULT GetFileTypeIndex(unsigned& index) = 0;
    virtual HRESULT SetFileTypeIndex(unsigned index) = 0;
    // The events object is held by pointer until Unadvise with the cookie given here.
    virtual HRESULT Advise(IFileDialogEvents* events, unsigned& cookie) = 0;
    virtual HRESULT Unadvise(unsigned cookie) = 0;
    virtual HRESULT GetOptions(FileDialogOptions& options) = 0;
    virtual HRESULT SetOptions(FileDialogOptions options) = 0;
    virtual HRESULT SetFolder(const ShellItemRef& folder) = 0;
    virtual HRESULT GetFolder(ShellItemRef& folder) = 0;
    virtual HRESULT SetFileName(const Fnd::WString& name) = 0;
    virtual HRESULT SetTitle(const Fnd::WString& title) = 0;
    // The chosen item; fails until the person pressed OK.
    virtual HRESULT GetResult(ShellItemRef& item) = 0;
};

class IFileOpenDialog : public virtual IFileDialog {
public:
    // The chosen items, in the order the person chose them; fails until OK was pressed.
    virtual HRESULT GetResults(IShellItemArray& items) = 0;
};

class IFileSaveDialog : public virtual IFileDialog {};

// Makes the platform's dialogs. Either operation may answer null when it cannot.
class IFileDialogFactory {
public:
    virtual ~IFileDialogFactory() = default;
    virtual std::shared_ptr<IFileOpenDialog> CreateOpenDialog() = 0;
    virtual std::shared_ptr<IFileSaveDialog> CreateSaveDialog() = 0;
};

// Installs the factory for the whole process; null removes it. Answers the one it replaces.
IGD_EXPORT std::shared_ptr<IFileDialogFactory>
SetFileDialogFactory(std::shared_ptr<IFileDialogFactory> factory);

// A new dialog from the installed factory; kFileDialogFailed and null without one.
IGD_EXPORT HRESULT CoCreateInstance(std::shared_ptr<IFileOpenDialog>& dialog);
IGD_EXPORT HRESULT CoCreateInstance(std::shared_ptr<IFileSaveDialog>& dialog);

// The item of an existing file or folder; kFileDialogFailed when nothing is at the path.
IGD_EXPORT HRESULT SHCreateItemFromParsingName(Fnd::WStringView path, ShellItemRef& item);

// The item of any filesystem path, existing or not: what a dialog answers for a name the person
// typed.
IGD_EXPORT ShellItemRef MakeFileSystemShellItem(Fnd::WString path);
