#include "tests/filedialogs/ScriptedFileDialog.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace igd::test {
namespace {

class ItemWithoutPath final : public IShellItem {
public:
    HRESULT GetDisplayName(SIGDN, Fnd::WString&) const override { return kFileDialogFailed; }
};

// Hands out the one scripted dialog; null makes creation fail.
class ScriptedFileDialogFactory : public IFileDialogFactory {
public:
    explicit ScriptedFileDialogFactory(std::shared_ptr<ScriptedFileDialog> dialog)
        : dialog_(std::move(dialog)) {}
    std::shared_ptr<IFileOpenDialog> CreateOpenDialog() override { return dialog_; }
    std::shared_ptr<IFileSaveDialog> CreateSaveDialog() override { return dialog_; }

private:
    std::shared_ptr<ScriptedFileDialog> dialog_;
};

} // namespace

ShellItemRef MakeItemWithoutPath() {
    return std::make_shared<ItemWithoutPath>();
}

void ScriptedFileDialog::QueueChoose(std::vector<Fnd::WString> paths) {
    IShellItemArray items;
    for (Fnd::WString& path : paths)
        items.push_back(MakeFileSystemShellItem(std::move(path)));
    QueueChooseItems(std::move(items));
}

HRESULT ScriptedFileDialog::Show(std::uintptr_t parent) {
    shownParent_ = parent;
    chosen_.reset();
    if (whileShown_)
        whileShown_();
    while (true) {
        if (answers_.empty()) {
            ADD_FAILURE() << "a file dialog was shown with no answer queued";
            return kFileDialogCancelled;
        }
        Answer answer = std::move(answers_.front());
        answers_.pop_front();
        if (!answer.ok) {
            chosen_.reset();
            return kFileDialogCancelled;
        }
        chosen_ = std::move(answer.items);
        HRESULT verdict = S_OK;
        // A copy: a handler may unadvise while it runs.
        const auto events = events_;
        for (const auto& [cookie, handler] : events) {
            const HRESULT result = handler->OnFileOk(*this);
            fileOkAnswers_.push_back(result);
            if (result != S_OK)
                verdict = result;
        }
        if (verdict == S_OK)
            return S_OK;
        chosen_.reset();
    }
}

HRESULT ScriptedFileDialog::SetFileTypes(unsigned count, const FileDialogFilterRow* rows) {
    ++setFileTypesCalls_;
    rows_.clear();
    for (unsigned i = 0; i < count; ++i)
        rows_.push_back({rows[i].name, rows[i].pattern});
    typeIndex_ = 1;
    return S_OK;
}

HRESULT ScriptedFileDialog::SetFileTypeIndex(unsigned index) {
    if (index < 1 || index > rows_.size()) {
        ADD_FAILURE() << "row " << index << " of " << rows_.size() << " selected";
        return kFileDialogFailed;
    }
    typeIndex_ = index;
    return S_OK;
}

HRESULT ScriptedFileDialog::Advise(IFileDialogEvents* events, unsigned& cookie) {
    cookie = nextCookie_++;
    events_.emplace_back(cookie, events);
    return S_OK;
}

HRESULT ScriptedFileDialog::Unadvise(unsigned cookie) {
    const auto found = std::find_if(events_.begin(), events_.end(),
                                    [cookie](const auto& entry) { return entry.first == cookie; });
    if (found == events_.end())
        return kFileDialogFailed;
    events_.erase(found);
    return S_OK;
}

HRESULT ScriptedFileDialog::SetFolder(const ShellItemRef& folder) {
    Fnd::WString path;
    if (!folder || folder->GetDisplayName(SIGDN_FILESYSPATH, path) != S_OK)
        return kFileDialogFailed;
    folder_ = folder;
    foldersSet_.push_back(path);
    return S_OK;
}

HRESULT ScriptedFileDialog::GetResult(ShellItemRef& item) {
    if (!chosen_ || chosen_->empty())
        return kFileDialogFailed;
    item = chosen_->front();
    return S_OK;
}

HRESULT ScriptedFileDialog::GetResults(IShellItemArray& items) {
    if (!chosen_)
        return kFileDialogFailed;
    items = *chosen_;
    return S_OK;
}

ScopedFileDialogFactory::ScopedFileDialogFactory(std::shared_ptr<ScriptedFileDialog> dialog)
    : dialog_(dialog), previous_(SetFileDialogFactory(std::make_shared<ScriptedFileDialogFactory>(dialog))) {}

ScopedFileDialogFactory::~ScopedFileDialogFactory() {
    SetFileDialogFactory(previous_);
    if (dialog_) {
        EXPECT_EQ(dialog_->UnusedAnswers(), 0u) << "the file dialog was shown fewer times than scripted";
    }
}

} // namespace igd::test
