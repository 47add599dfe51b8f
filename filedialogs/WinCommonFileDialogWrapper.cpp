#include "IGD/WinCommonFileDialogWrapper.h"

#include <set>
#include <utility>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "Plug/ImportableFileTypeUtils.h"
#include "filedialogs/FileDialogTexts.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

bool StartsWithStarDot(Fnd::WStringView entry) {
    return entry.size() >= 2 && entry[0] == u'*' && entry[1] == u'.';
}

bool EndsWithIgnoringASCIICase(Fnd::WStringView text, Fnd::WStringView suffix) {
    return text.size() >= suffix.size() &&
           Fnd::EqualsIgnoringASCIICase(text.substr(text.size() - suffix.size()), suffix);
}

// Every importable extension as one pattern: "*.ari;*.avi;...".
Fnd::WString AllSupportedMediaPattern() {
    Fnd::WString pattern;
    for (const Fnd::WString& entry :
         Plug::ImportableFileTypeUtils::GetImportableFileExtensions(Plug::kImportableFileTypeAll)) {
        // "Any file" has no place in a row that promises media.
        if (entry == u"*")
            continue;
        if (!pattern.empty())
            pattern.push_back(u';');
        // Providers register "*.mov" and "mov" alike; the row wants patterns.
        if (!StartsWithStarDot(entry))
            pattern.append(u"*.");
        pattern.append(entry);
    }
    return pattern;
}

std::vector<Fnd::WString> SplitSkippingEmpty(Fnd::WStringView text, Fnd::WChar separator) {
    std::vector<Fnd::WString> pieces;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == Fnd::WStringView::npos)
            end = text.size();
        if (end > start)
            pieces.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

} // namespace

WinCommonFileDialogWrapper::WinCommonFileDialogWrapper() = default;
WinCommonFileDialogWrapper::~WinCommonFileDialogWrapper() = default;

void WinCommonFileDialogWrapper::SetFileDialog(std::shared_ptr<IFileDialog> dialog) {
    dialog_ = std::move(dialog);
}

IFileDialog& WinCommonFileDialogWrapper::Dialog() const {
    if (!dialog_)
        throw Fnd::NullInterfaceException();
    return *dialog_;
}

void WinCommonFileDialogWrapper::SetTitle(const Fnd::WString& text) {
    Dialog().SetTitle(text);
}

void WinCommonFileDialogWrapper::SetFolder(const Fnd::WString& path) {
    if (path.empty())
        return;
    Fnd::WString folder =
        Fnd::PathUtils::IsNormalizedPath(path) ? path : Fnd::PathUtils::ToNormalizedPath(path);
    folder = Fnd::PathUtils::Win::StripUNC(folder);
    ShellItemRef item;
    if (SHCreateItemFromParsingName(folder, item) == S_OK)
        Dialog().SetFolder(item);
}

Fnd::WString WinCommonFileDialogWrapper::GetFolder() const {
    ShellItemRef item;
    if (Dialog().GetFolder(item) != S_OK)
        return {};
    return ConvertShellItemToPath(item.get());
}

void WinCommonFileDialogWrapper::SetFileName(const Fnd::WString& name) {
    Dialog().SetFileName(name);
}

void WinCommonFileDialogWrapper::SetFileTypes(const Fnd::WString& filter, bool withAllMediaRow) {
    filterRows_.clear();
    filterNames_.clear();
    filterPatterns_.clear();

    if (withAllMediaRow) {
        filterNames_.push_back(fluxcore::Localize(FileDialogTexts::kAllSupportedMedia));
        filterPatterns_.push_back(AllSupportedMediaPattern());
    }
    const std::vector<Fnd::WString> pieces = SplitSkippingEmpty(filter, u'\0');
    // A trailing name without its patterns is dropped.
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        filterNames_.push_back(pieces[i]);
        filterPatterns_.push_back(pieces[i + 1]);
    }

    // The rows point into the strings, so they are made only once the strings no longer move.
    filterRows_.reserve(filterNames_.size());
    for (std::size_t i = 0; i < filterNames_.size(); ++i)
        filterRows_.push_back({filterNames_[i].c_str(), filterPatterns_[i].c_str()});
    if (!filterRows_.empty())
        Dialog().SetFileTypes(static_cast<unsigned>(filterRows_.size()), filterRows_.data());
}

bool WinCommonFileDialogWrapper::SelectExtension(const Fnd::WString& extension) {
    if (filterRows_.empty())
        return false;
    if (filterRows_.size() == 1) {
        Dialog().SetFileTypeIndex(1);
        return false;
    }

    std::size_t first = 0;
    if (filterNames_.front() == fluxcore::Localize(FileDialogTexts::kAllSupportedMedia))
        first = 1;
    unsigned index = 1;
    // A name without an extension fits no row better than another: it keeps to row 1.
    if (!extension.empty()) {
        bool found = false;
        for (std::size_t row = first; row < filterPatterns_.size() && !found; ++row)
            for (const Fnd::WString& item : SplitSkippingEmpty(filterPatterns_[row], u';'))
                if (EndsWithIgnoringASCIICase(item, extension)) {
                    index = static_cast<unsigned>(row + 1);
                    found = true;
                    break;
                }
    }

    unsigned current = 0;
    Dialog().GetFileTypeIndex(current);
    Dialog().SetFileTypeIndex(index);
    return current != index;
}

Fnd::WString WinCommonFileDialogWrapper::ConvertShellItemToPath(const IShellItem* item) {
    Fnd::WString path;
    if (!item || item->GetDisplayName(SIGDN_FILESYSPATH, path) != S_OK)
        return {};
    return path;
}

std::vector<Fnd::WString>
WinCommonFileDialogWrapper::ConvertShellItemArrayToPaths(const IShellItemArray& items) {
    std::vector<Fnd::WString> paths;
    paths.reserve(items.size());
    for (const ShellItemRef& item : items) {
        Fnd::WString path = ConvertShellItemToPath(item.get());
        if (!path.empty())
            paths.push_back(std::move(path));
    }
    return paths;
}

void WinCommonFileDialogWrapper::ShowInvalidFilePathBox() {
    const Fnd::WString text = fluxcore::Localize(FileDialogTexts::kInvalidFilePath);
    AppFrame::MessageBoxW(text, text, AppFrame::kMessageBoxOK, FileDialogTexts::kBoxIconWarning,
                          AppFrame::kResultOK);
}

// The library reacts to OK only; every other notification is the dialog's own business.
HRESULT WinCommonFileDialogWrapper::OnFileOk(IFileDialog&) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnFolderChanging(IFileDialog&, IShellItem*) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnFolderChange(IFileDialog&) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnSelectionChange(IFileDialog&) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnShareViolation(IFileDialog&, IShellItem*, int*) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnTypeChange(IFileDialog&) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnOverwrite(IFileDialog&, IShellItem*, int*) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnItemSelected(IFileDialog&, unsigned, unsigned) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnButtonClicked(IFileDialog&, unsigned) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnCheckButtonToggled(IFileDialog&, unsigned, bool) {
    return S_OK;
}
HRESULT WinCommonFileDialogWrapper::OnControlActivating(IFileDialog&, unsigned) {
    return S_OK;
}

} // namespace IGD
