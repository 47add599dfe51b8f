#include "IgdQt/QtFileDialogFactory.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>
#include <map>
#include <vector>

#include "IgdQt/QtInteractionDriver.h"
#include "IgdQt/QtStrings.h"

namespace igd::qt {
namespace {

struct FilterRow {
    QString name;
    QStringList patterns;
    QString Label() const { return QStringLiteral("%1 (%2)").arg(name, patterns.join(QLatin1Char(' '))); }
};

// Asks the advised objects before the dialog closes on OK; one S_FALSE keeps it open.
class CheckedFileDialog : public QFileDialog {
public:
    CheckedFileDialog(QWidget* parent, std::function<bool(const QStringList&, int)> accept)
        : QFileDialog(parent), accept_(std::move(accept)) {}

    void done(int result) override {
        if (result == QDialog::Accepted &&
            !accept_(selectedFiles(), nameFilters().indexOf(selectedNameFilter())))
            return;
        QFileDialog::done(result);
    }

private:
    std::function<bool(const QStringList&, int)> accept_;
};

template <typename Interface> class QtFileDialog : public Interface {
public:
    explicit QtFileDialog(bool save) : save_(save) {}

    HRESULT Show(std::uintptr_t parent) override {
        results_.clear();
        CheckedFileDialog dialog(QtInteractionDriver::DialogParent(),
                                 [this](const QStringList& files, int row) { return Accept(files, row); });
        dialog.setWindowTitle(title_);
        dialog.setAcceptMode(save_ ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        dialog.setFileMode(save_                                      ? QFileDialog::AnyFile
                           : (options_ & kFileDialogAllowMultiSelect) ? QFileDialog::ExistingFiles
                                                                      : QFileDialog::ExistingFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite, !(options_ & kFileDialogOverwritePrompt));
        const QString platform = QGuiApplication::platformName();
        dialog.setOption(QFileDialog::DontUseNativeDialog,
                         platform == QLatin1String("offscreen") || platform == QLatin1String("minimal"));
        if (!folder_.isEmpty())
            dialog.setDirectory(folder_);
        QStringList filters;
        for (const FilterRow& row : rows_)
            filters << row.Label();
        if (!filters.isEmpty()) {
            dialog.setNameFilters(filters);
            if (typeIndex_ >= 1 && typeIndex_ <= static_cast<unsigned>(filters.size()))
                dialog.selectNameFilter(filters[static_cast<int>(typeIndex_) - 1]);
        }
        if (!fileName_.isEmpty())
            dialog.selectFile(fileName_);
        if (dialog.exec() != QDialog::Accepted) {
            results_.clear();
            return kFileDialogCancelled;
        }
        return S_OK;
    }

    HRESULT SetFileTypes(unsigned count, const FileDialogFilterRow* rows) override {
        rows_.clear();
        for (unsigned i = 0; i < count; ++i) {
            FilterRow row;
            row.name = rows[i].name ? QString::fromUtf16(rows[i].name) : QString();
            const QString joined = rows[i].pattern ? QString::fromUtf16(rows[i].pattern) : QString();
            row.patterns = joined.split(QLatin1Char(';'), Qt::SkipEmptyParts);
            for (QString& pattern : row.patterns)
                pattern = pattern.trimmed();
            rows_.push_back(row);
        }
        return S_OK;
    }
    HRESULT GetFileTypeIndex(unsigned& index) override {
        index = typeIndex_;
        return S_OK;
    }
    HRESULT SetFileTypeIndex(unsigned index) override {
        typeIndex_ = index;
        return S_OK;
    }
    HRESULT Advise(IFileDialogEvents* events, unsigned& cookie) override {
        if (!events)
            return kFileDialogFailed;
        cookie = nextCookie_++;
        events_[cookie] = events;
        return S_OK;
    }
    HRESULT Unadvise(unsigned cookie) override { return events_.erase(cookie) ? S_OK : kFileDialogFailed; }
    HRESULT GetOptions(FileDialogOptions& options) override {
        options = options_;
        return S_OK;
    }
    HRESULT SetOptions(FileDialogOptions options) override {
        options_ = options;
        return S_OK;
    }
    HRESULT SetFolder(const ShellItemRef& folder) override {
        Fnd::WString path;
        if (!folder || folder->GetDisplayName(SIGDN_FILESYSPATH, path) != S_OK)
            return kFileDialogFailed;
        folder_ = ToQString(path);
        return S_OK;
    }
    HRESULT GetFolder(ShellItemRef& folder) override {
        if (folder_.isEmpty())
            return kFileDialogFailed;
        folder = MakeFileSystemShellItem(FromQString(folder_));
        return S_OK;
    }
    HRESULT SetFileName(const Fnd::WString& name) override {
        fileName_ = ToQString(name);
        return S_OK;
    }
    HRESULT SetTitle(const Fnd::WString& title) override {
        title_ = ToQString(title);
        return S_OK;
    }
    HRESULT GetResult(ShellItemRef& item) override {
        if (results_.empty())
            return kFileDialogFailed;
        item = results_.front();
        return S_OK;
    }

protected:
    IShellItemArray results_;

private:
    // The choice is visible to the advised objects, as the dialog's result, while they decide.
    bool Accept(const QStringList& files, int row) {
        results_.clear();
        for (const QString& file : files)
            results_.push_back(MakeFileSystemShellItem(FromQString(file)));
        if (row >= 0)
            typeIndex_ = static_cast<unsigned>(row) + 1;
        if (!files.isEmpty())
            folder_ = QFileInfo(files.front()).absolutePath();
        // Copied: an object may unadvise itself while it is asked.
        const auto events = events_;
        for (const auto& [cookie, advised] : events)
            if (advised->OnFileOk(*this) == S_FALSE) {
                results_.clear();
                return false;
            }
        return true;
    }

    bool save_;
    QString title_;
    QString folder_;
    QString fileName_;
    std::vector<FilterRow> rows_;
    unsigned typeIndex_ = 1;
    FileDialogOptions options_ = 0;
    std::map<unsigned, IFileDialogEvents*> events_;
    unsigned nextCookie_ = 1;
};

class QtOpenDialog : public QtFileDialog<IFileOpenDialog> {
public:
    QtOpenDialog() : QtFileDialog(false) {}
    HRESULT GetResults(IShellItemArray& items) override {
        if (results_.empty())
            return kFileDialogFailed;
        items = results_;
        return S_OK;
    }
};

class QtSaveDialog : public QtFileDialog<IFileSaveDialog> {
public:
    QtSaveDialog() : QtFileDialog(true) {}
};

} // namespace

std::shared_ptr<IFileOpenDialog> QtFileDialogFactory::CreateOpenDialog() {
    return std::make_shared<QtOpenDialog>();
}

std::shared_ptr<IFileSaveDialog> QtFileDialogFactory::CreateSaveDialog() {
    return std::make_shared<QtSaveDialog>();
}

} // namespace igd::qt
