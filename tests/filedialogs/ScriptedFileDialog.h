#pragma once
// A common file dialog for tests: it records what the library sets on it and answers Show from a
// script, calling the advised OnFileOk before it closes on OK, as a real dialog does. When OnFileOk
// answers S_FALSE the dialog stays open and the next queued answer is what the person does next.
// A Show with nothing queued fails the test and is cancelled.
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "IGD/CommonFileDialog.h"

namespace igd::test {

class ScriptedFileDialog : public IFileOpenDialog, public IFileSaveDialog {
public:
    using Row = std::pair<Fnd::WString, Fnd::WString>; // name, pattern

    // The person chooses these files (or items of the test's making) and presses OK.
    void QueueChoose(const std::vector<Fnd::WString>& paths) {
        IShellItemArray items;
        for (const Fnd::WString& path : paths)
            items.push_back(MakeFileSystemShellItem(path));
        QueueChooseItems(std::move(items));
    }
    void QueueChooseItems(IShellItemArray items) { answers_.push_back(std::move(items)); }
    void QueueCancel() { answers_.push_back(std::nullopt); }
    // Runs inside Show before the queued answer, while the library waits on the dialog.
    void WhileShown(std::function<void()> probe) { whileShown_ = std::move(probe); }

    HRESULT Show(std::uintptr_t parent) override {
        shownParent = parent;
        if (whileShown_)
            whileShown_();
        while (true) {
            chosen.reset();
            if (answers_.empty()) {
                ADD_FAILURE() << "a file dialog was shown with no answer queued";
                return kFileDialogCancelled;
            }
            chosen = std::move(answers_.front());
            answers_.pop_front();
            if (!chosen)
                return kFileDialogCancelled;
            HRESULT verdict = S_OK;
            const auto events = advised; // a handler may unadvise while it runs
            for (const auto& [cookie, handler] : events) {
                fileOkAnswers.push_back(handler->OnFileOk(*this));
                if (fileOkAnswers.back() != S_OK)
                    verdict = fileOkAnswers.back();
            }
            if (verdict == S_OK)
                return S_OK;
        }
    }
    HRESULT SetFileTypes(unsigned count, const FileDialogFilterRow* given) override {
        rows.clear();
        for (unsigned i = 0; i < count; ++i)
            rows.emplace_back(given[i].name, given[i].pattern);
        typeIndex = 1;
        return S_OK;
    }
    HRESULT GetFileTypeIndex(unsigned& index) override { return index = typeIndex, S_OK; }
    HRESULT SetFileTypeIndex(unsigned index) override {
        EXPECT_TRUE(index >= 1 && index <= rows.size()) << "row " << index << " of " << rows.size();
        return typeIndex = index, S_OK;
    }
    HRESULT Advise(IFileDialogEvents* events, unsigned& cookie) override {
        advised.emplace_back(cookie = nextCookie_++, events);
        return S_OK;
    }
    HRESULT Unadvise(unsigned cookie) override {
        return std::erase_if(advised, [cookie](const auto& entry) { return entry.first == cookie; }) == 1
                   ? S_OK
                   : kFileDialogFailed;
    }
    HRESULT GetOptions(FileDialogOptions& out) override { return out = options, S_OK; }
    HRESULT SetOptions(FileDialogOptions value) override { return options = value, S_OK; }
    HRESULT SetFolder(const ShellItemRef& folder) override {
        Fnd::WString path;
        if (!folder || folder->GetDisplayName(SIGDN_FILESYSPATH, path) != S_OK)
            return kFileDialogFailed;
        folder_ = folder;
        foldersSet.push_back(path);
        return S_OK;
    }
    HRESULT GetFolder(ShellItemRef& folder) override { return (folder = folder_) ? S_OK : kFileDialogFailed; }
    HRESULT SetFileName(const Fnd::WString&) override { return S_OK; }
    HRESULT SetTitle(const Fnd::WString& value) override { return title = value, S_OK; }
    HRESULT GetResult(ShellItemRef& item) override {
        if (!chosen || chosen->empty())
            return kFileDialogFailed;
        return item = chosen->front(), S_OK;
    }
    HRESULT GetResults(IShellItemArray& items) override {
        if (!chosen)
            return kFileDialogFailed;
        return items = *chosen, S_OK;
    }

    // What the library set and what happened; a test may also set them, to call a wrapper's
    // OnFileOk or SelectExtension itself.
    std::vector<Row> rows;
    unsigned typeIndex = 1;
    FileDialogOptions options = kFileDialogOverwritePrompt;
    std::vector<Fnd::WString> foldersSet;
    Fnd::WString title;
    std::uintptr_t shownParent = 0;
    std::vector<HRESULT> fileOkAnswers; // of each OnFileOk call, in order
    std::optional<IShellItemArray> chosen;
    std::vector<std::pair<unsigned, IFileDialogEvents*>> advised;
    std::size_t UnusedAnswers() const { return answers_.size(); }

private:
    std::deque<std::optional<IShellItemArray>> answers_; // nothing: cancel
    std::function<void()> whileShown_;
    unsigned nextCookie_ = 1;
    ShellItemRef folder_;
};

// Makes every dialog the library creates the given one (none for null), for its lifetime. Fails the
// test when answers are still queued at the end: the library showed the dialog less often than scripted.
class ScopedFileDialogFactory : public IFileDialogFactory {
public:
    explicit ScopedFileDialogFactory(std::shared_ptr<ScriptedFileDialog> dialog)
        : dialog_(std::move(dialog)), previous_(SetFileDialogFactory({std::shared_ptr<void>(), this})) {}
    ~ScopedFileDialogFactory() override {
        SetFileDialogFactory(previous_);
        if (dialog_) {
            EXPECT_EQ(dialog_->UnusedAnswers(), 0u) << "the file dialog was shown fewer times than scripted";
        }
    }
    ScopedFileDialogFactory(const ScopedFileDialogFactory&) = delete;
    ScopedFileDialogFactory& operator=(const ScopedFileDialogFactory&) = delete;
    std::shared_ptr<IFileOpenDialog> CreateOpenDialog() override { return dialog_; }
    std::shared_ptr<IFileSaveDialog> CreateSaveDialog() override { return dialog_; }

private:
    std::shared_ptr<ScriptedFileDialog> dialog_;
    std::shared_ptr<IFileDialogFactory> previous_;
};

// An item that lives outside the filesystem: it has no path.
inline ShellItemRef MakeItemWithoutPath() {
    struct ItemWithoutPath final : IShellItem {
        HRESULT GetDisplayName(SIGDN, Fnd::WString&) const override { return kFileDialogFailed; }
    };
    return std::make_shared<ItemWithoutPath>();
}

} // namespace igd::test
