#pragma once
// What the library adds to the platform's common file dialog: a file type list given as one
// string, the All Supported Media row, the row that fits a file name, and paths in place of items.
//
// The wrapper lives on its caller's stack for one run of one dialog. The dialog holds it by
// pointer between Advise and Unadvise and never owns it.
#include <memory>
#include <vector>

#include "Fnd/WString.h"
#include "IGD/CommonFileDialog.h"
#include "IGD/Export.h"

namespace IGD {

class IGD_EXPORT WinCommonFileDialogWrapper : public IFileDialogEvents, public IFileDialogControlEvents {
public:
    WinCommonFileDialogWrapper();
    ~WinCommonFileDialogWrapper() override;
    WinCommonFileDialogWrapper(const WinCommonFileDialogWrapper&) = delete;
    WinCommonFileDialogWrapper& operator=(const WinCommonFileDialogWrapper&) = delete;

    void SetFileDialog(std::shared_ptr<IFileDialog> dialog);
    void SetTitle(const Fnd::WString& text);
    // Starts the dialog in the folder; an empty path or a folder that does not exist leaves the
    // dialog where it would start by itself.
    void SetFolder(const Fnd::WString& path);
    // The folder the dialog shows; empty when it shows none that is a path.
    Fnd::WString GetFolder() const;
    void SetFileName(const Fnd::WString& name);

    // filter: rows separated by NUL, each a name then its patterns ("*.mov;*.mp4"). Empty pieces
    // are skipped and a name without patterns is dropped. withAllMediaRow puts a first row that
    // lists every importable extension.
    void SetFileTypes(const Fnd::WString& filter, bool withAllMediaRow);
    // Selects the first row whose patterns end with the extension ("mxf" or ".mxf", any case of
    // A to Z), passing over the All Supported Media row; row 1 when none does. Answers whether the
    // selected row changed. With a single row, that row is selected and the answer is false.
    bool SelectExtension(const Fnd::WString& extension);

    // The item's filesystem path; empty when it has none.
    static Fnd::WString ConvertShellItemToPath(const IShellItem* item);
    // The same for each item, in order, leaving out those without a path.
    static std::vector<Fnd::WString> ConvertShellItemArrayToPaths(const IShellItemArray& items);

    // The rows as the dialog received them.
    const std::vector<FileDialogFilterRow>& FilterRows() const { return filterRows_; }

    HRESULT OnFileOk(IFileDialog& dialog) override;
    HRESULT OnFolderChanging(IFileDialog& dialog, IShellItem* folder) override;
    HRESULT OnFolderChange(IFileDialog& dialog) override;
    HRESULT OnSelectionChange(IFileDialog& dialog) override;
    HRESULT OnShareViolation(IFileDialog& dialog, IShellItem* item, int* response) override;
    HRESULT OnTypeChange(IFileDialog& dialog) override;
    HRESULT OnOverwrite(IFileDialog& dialog, IShellItem* item, int* response) override;

    HRESULT OnItemSelected(IFileDialog& dialog, unsigned controlId, unsigned itemId) override;
    HRESULT OnButtonClicked(IFileDialog& dialog, unsigned controlId) override;
    HRESULT OnCheckButtonToggled(IFileDialog& dialog, unsigned controlId, bool checked) override;
    HRESULT OnControlActivating(IFileDialog& dialog, unsigned controlId) override;

protected:
    // Raises Fnd::NullInterfaceException before SetFileDialog: using a wrapper without its
    // dialog is a programming fault.
    IFileDialog& Dialog() const;
    // The Invalid File Path box that both OK validations show.
    static void ShowInvalidFilePathBox();

private:
    std::vector<FileDialogFilterRow> filterRows_;
    std::vector<Fnd::WString> filterNames_;
    std::vector<Fnd::WString> filterPatterns_;
    std::shared_ptr<IFileDialog> dialog_;
};

} // namespace IGD
