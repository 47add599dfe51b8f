#pragma once
// A common file dialog for tests: it records what the library sets on it and answers Show from a
// script, calling the advised OnFileOk before it closes on OK, as a real dialog does.
//
//     auto dialog = std::make_shared<ScriptedFileDialog>();
//     ScopedFileDialogFactory factory(dialog);     // every dialog the library creates is this one
//     dialog->QueueChoose({u"/media/A001.MOV"});   // the person picks a file and presses OK
//     dialog->QueueCancel();                       // the next Show is cancelled
//
// When OnFileOk answers S_FALSE the dialog stays open and the next queued answer is what the
// person does next. A Show with nothing queued fails the test and is cancelled.
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "IGD/CommonFileDialog.h"

namespace igd::test {

class ScriptedFileDialog : public IFileOpenDialog, public IFileSaveDialog {
public:
    struct Row {
        Fnd::WString name;
        Fnd::WString pattern;
        friend bool operator==(const Row&, const Row&) = default;
    };

    // The person chooses these files and presses OK.
    void QueueChoose(std::vector<Fnd::WString> paths);
    // The same with items of the test's making, such as one that has no filesystem path.
    void QueueChooseItems(IShellItemArray items) { answers_.push_back({true, std::move(items)}); }
    void QueueCancel() { answers_.push_back({false, {}}); }
    // Runs inside Show before the queued answer, while the library waits on the dialog.
    void WhileShown(std::function<void()> probe) { whileShown_ = std::move(probe); }

    HRESULT Show(std::uintptr_t parent) override;
    HRESULT SetFileTypes(unsigned count, const FileDialogFilterRow* rows) override;
    HRESULT GetFileTypeIndex(unsigned& index) override {
        index = typeIndex_;
        return S_OK;
    }
    HRESULT SetFileTypeIndex(unsigned index) override;
    HRESULT Advise(IFileDialogEvents* events, unsigned& cookie) override;
    HRESULT Unadvise(unsigned cookie) override;
    HRESULT GetOptions(FileDialogOptions& options) override {
        options = options_;
        return S_OK;
    }
    HRESULT SetOptions(FileDialogOptions options) override {
        options_ = options;
        return S_OK;
    }
    HRESULT SetFolder(const ShellItemRef& folder) override;
    HRESULT GetFolder(ShellItemRef& folder) override {
        folder = folder_;
        return folder ? S_OK : kFileDialogFailed;
    }
    HRESULT SetFileName(const Fnd::WString&) override { return S_OK; }
    HRESULT SetTitle(const Fnd::WString& title) override {
        title_ = title;
        return S_OK;
    }
    HRESULT GetResult(ShellItemRef& item) override;
    HRESULT GetResults(IShellItemArray& items) override;

    // What the library set, and what happened.
    const std::vector<Row>& Rows() const { return rows_; }
    int SetFileTypesCalls() const { return setFileTypesCalls_; }
    unsigned TypeIndex() const { return typeIndex_; }
    FileDialogOptions Options() const { return options_; }
    // Every folder the library set, as paths.
    const std::vector<Fnd::WString>& FoldersSet() const { return foldersSet_; }
    const Fnd::WString& Title() const { return title_; }
    std::uintptr_t ShownParent() const { return shownParent_; }
    // The answer of each OnFileOk call, in order.
    const std::vector<HRESULT>& FileOkAnswers() const { return fileOkAnswers_; }
    std::size_t AdvisedCount() const { return events_.size(); }
    std::size_t UnusedAnswers() const { return answers_.size(); }

    // Sets the results directly, for tests that call a wrapper's OnFileOk themselves.
    void SetChosenItems(IShellItemArray items) { chosen_ = std::move(items); }
    void SetTypeIndexDirectly(unsigned index) { typeIndex_ = index; }

private:
    struct Answer {
        bool ok;
        IShellItemArray items;
    };

    std::deque<Answer> answers_;
    std::function<void()> whileShown_;
    std::vector<std::pair<unsigned, IFileDialogEvents*>> events_;
    unsigned nextCookie_ = 1;
    std::vector<Row> rows_;
    int setFileTypesCalls_ = 0;
    unsigned typeIndex_ = 1;
    FileDialogOptions options_ = kFileDialogOverwritePrompt;
    std::vector<Fnd::WString> foldersSet_;
    ShellItemRef folder_;
    Fnd::WString title_;
    std::uintptr_t shownParent_ = 0;
    std::vector<HRESULT> fileOkAnswers_;
    std::optional<IShellItemArray> chosen_;
};

// Makes every dialog the library creates the given one, for its lifetime, and the previous factory
// afterwards. Fails the test when the dialog still has answers queued at the end: the library did not show it
// as often as the test expected.
class ScopedFileDialogFactory {
public:
    explicit ScopedFileDialogFactory(std::shared_ptr<ScriptedFileDialog> dialog);
    ~ScopedFileDialogFactory();
    ScopedFileDialogFactory(const ScopedFileDialogFactory&) = delete;
    ScopedFileDialogFactory& operator=(const ScopedFileDialogFactory&) = delete;

private:
    std::shared_ptr<ScriptedFileDialog> dialog_;
    std::shared_ptr<IFileDialogFactory> previous_;
};

// An item that lives outside the filesystem: it has no path.
ShellItemRef MakeItemWithoutPath();

} // namespace igd::test
