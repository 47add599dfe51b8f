#include "fluxmediabrowser/MediaBrowserModel.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <tuple>

#include "DirectoryListing.h"
#include "FactWorkers.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "fluxmediabrowser/MediaBrowserCheckStatusChanged.h"

namespace fluxmediabrowser {
namespace {

using fluxmediatypes::kTime_Invalid;

unsigned DefaultWorkers() {
    return std::max(1u, std::thread::hardware_concurrency() / 2);
}

const std::vector<MediaColumn>& DefaultColumns() {
    static const std::vector<MediaColumn> columns{MediaColumn::Name,       MediaColumn::Duration,
                                                  MediaColumn::FrameRate,  MediaColumn::Size,
                                                  MediaColumn::VideoCodec, MediaColumn::StartTimecode,
                                                  MediaColumn::Date};
    return columns;
}

bool ContainsIgnoringCase(const Fnd::WString& text, const Fnd::WString& loweredPart) {
    return loweredPart.empty() || Fnd::ToLowerASCII(text).find(loweredPart) != Fnd::WString::npos;
}

fluxmediatypes::FrameRate FrameRateOf(const std::optional<Mid::ClipFacts>& facts) {
    if (!facts || facts->frameRateNum <= 0 || facts->frameRateDen <= 0)
        return fluxmediatypes::kFrameRate_Zero;
    return fluxmediatypes::kTicksPerSecond * facts->frameRateDen / facts->frameRateNum;
}

} // namespace

class MediaBrowserModel::Impl {
public:
    Impl(Fnd::StationID station, MediaModelOptions options)
        : station_(std::move(station)), options_(options), columns_(DefaultColumns()),
          facts_(options.factWorkers ? options.factWorkers : DefaultWorkers(), options.thumbnailWidth,
                 [this](FactResult result) { Deliver(std::move(result)); }) {
        options_.listingBatch = std::max<std::size_t>(1, options_.listingBatch);
    }

    ~Impl() {
        {
            std::lock_guard lock(listMutex_);
            stopping_ = true;
        }
        listWake_.notify_all();
        if (lister_.joinable())
            lister_.join();
        // facts_ joins its threads as it ends; alive_ goes first, so nothing they posted runs.
        alive_.reset();
    }

    // ---- listing -------------------------------------------------------------------------------

    void OpenDirectory(const Fnd::WString& directory) {
        const std::uint64_t generation = ++generation_;
        latestGeneration_.store(generation);
        const bool hadTicks = checkedCount_ > 0;
        entries_.clear();
        shown_.clear();
        selection_.clear();
        checkedCount_ = 0;
        currentDir_ = directory;
        while (currentDir_.size() > 1 && currentDir_.back() == u'/')
            currentDir_.pop_back();
        provider_ = nullptr;
        listing_ = true;
        // A new directory shows from its top, in as many rows as before.
        visibleFirst_ = 0;
        AddOutstanding(1);
        Finish(facts_.Replace(generation, {}));
        {
            std::lock_guard lock(listMutex_);
            // A directory opened while the one before waited was never shown.
            if (listJob_)
                Finish(1);
            listJob_ = std::make_pair(generation, currentDir_);
            if (!lister_.joinable())
                lister_ = std::thread([this] { RunLister(); });
        }
        listWake_.notify_one();
        if (hadTicks)
            PostCheckStatus();
        Emit({MediaModelChange::Kind::Reset, {}});
    }

    void RunLister() {
        for (;;) {
            std::uint64_t generation = 0;
            Fnd::WString directory;
            {
                std::unique_lock lock(listMutex_);
                listWake_.wait(lock, [this] { return stopping_ || listJob_.has_value(); });
                if (stopping_)
                    return;
                std::tie(generation, directory) = std::move(*listJob_);
                listJob_.reset();
            }
            if (generation != latestGeneration_.load()) {
                Finish(1);
                continue;
            }
            PostListing(generation, ListDirectory(directory));
        }
    }

    void PostListing(std::uint64_t generation, DirectoryListing listing) {
        const auto shared = std::make_shared<const DirectoryListing>(std::move(listing));
        const std::size_t count = shared->entries.size();
        for (std::size_t begin = 0; begin < count; begin += options_.listingBatch) {
            const std::size_t end = std::min(count, begin + options_.listingBatch);
            Post([this, generation, shared, begin, end] { ApplyBatch(generation, *shared, begin, end); });
        }
        std::map<std::size_t, std::string> jobs;
        for (std::size_t i = 0; i < count; ++i)
            if (!shared->entries[i].folder)
                jobs.emplace_hint(jobs.end(), i, Fnd::ToUTF8(shared->entries[i].path));
        AddOutstanding(jobs.size());
        Finish(facts_.Replace(generation, std::move(jobs)));
        Post([this, generation, shared] {
            if (generation == generation_) {
                TakeListingPlace(*shared);
                listing_ = false;
                Emit({MediaModelChange::Kind::Listed, {}});
            }
            Finish(1);
        });
    }

    void TakeListingPlace(const DirectoryListing& listing) {
        currentDir_ = listing.directory;
        provider_ = listing.provider;
    }

    void ApplyBatch(std::uint64_t generation, const DirectoryListing& listing, std::size_t begin, std::size_t end) {
        if (generation != generation_)
            return;
        TakeListingPlace(listing);
        MediaModelChange change{MediaModelChange::Kind::Appended, {}};
        const Fnd::WString part = Fnd::ToLowerASCII(search_);
        for (std::size_t i = begin; i < end; ++i) {
            entries_.push_back(listing.entries[i]);
            change.entries.push_back(entries_.size() - 1);
            if (ContainsIgnoringCase(entries_.back().displayName, part))
                shown_.push_back(entries_.size() - 1);
        }
        UpdateVisible();
        Emit(change);
    }

    // ---- facts and thumbnails -----------------------------------------------------------------

    void Deliver(FactResult result) {
        bool post = false;
        {
            std::lock_guard lock(resultsMutex_);
            results_.push_back(std::move(result));
            post = !applyPosted_;
            applyPosted_ = true;
        }
        // One task takes every result waiting, so that thousands of thumbnails make a few redraws.
        if (post)
            Post([this] { ApplyResults(); });
    }

    void ApplyResults() {
        std::vector<FactResult> results;
        {
            std::lock_guard lock(resultsMutex_);
            results.swap(results_);
            applyPosted_ = false;
        }
        MediaModelChange change{MediaModelChange::Kind::Entries, {}};
        for (FactResult& result : results) {
            if (result.generation != generation_ || result.entry >= entries_.size())
                continue;
            MediaEntry& entry = entries_[result.entry];
            entry.facts = std::move(result.facts);
            entry.factsUnavailable = result.factsUnavailable;
            entry.thumbnail = std::move(result.thumbnail);
            change.entries.push_back(result.entry);
        }
        std::sort(change.entries.begin(), change.entries.end());
        if (!change.entries.empty())
            Emit(change);
        Finish(results.size());
    }

    void SetVisibleRange(std::size_t first, std::size_t count) {
        visibleFirst_ = first;
        visibleCount_ = count;
        UpdateVisible();
    }

    void UpdateVisible() {
        const std::size_t last = visibleFirst_ + (visibleCount_ ? visibleCount_ - 1 : 0);
        if (visibleFirst_ < shown_.size())
            facts_.SetVisible(shown_[visibleFirst_], shown_[std::min(last, shown_.size() - 1)]);
        else
            facts_.SetVisible(visibleFirst_, last);
    }

    // ---- settling -----------------------------------------------------------------------------

    void AddOutstanding(std::size_t count) {
        std::lock_guard lock(settleMutex_);
        outstanding_ += count;
    }

    void Finish(std::size_t count) {
        if (count == 0)
            return;
        {
            std::lock_guard lock(settleMutex_);
            outstanding_ -= count;
        }
        settled_.notify_all();
    }

    void WaitUntilSettled() {
        Fnd::QueueRunLoop& queue = Fnd::GetDefaultQueue();
        if (static_cast<Fnd::RunLoop*>(&queue) != &Fnd::GetRunLoop())
            throw std::logic_error("MediaBrowserModel::WaitUntilSettled: results go to a run loop it cannot drain");
        for (;;) {
            queue.Drain();
            std::unique_lock lock(settleMutex_);
            if (outstanding_ == 0 && queue.Pending() == 0)
                return;
            // Woken by each post; the timeout covers work that finishes without posting.
            settled_.wait_for(lock, std::chrono::milliseconds(20), [&] { return queue.Pending() > 0; });
        }
    }

    void Post(Fnd::Task task) {
        std::weak_ptr<int> alive = alive_;
        Fnd::GetRunLoop().Post(
            [alive, task = std::move(task)] {
                if (alive.lock())
                    task();
            },
            false);
        // Taking the lock orders this wake after a waiter's look at the queue.
        { std::lock_guard lock(settleMutex_); }
        settled_.notify_all();
    }

    // ---- ticks, selection, search ------------------------------------------------------------

    void PostCheckStatus() {
        Fnd::StationUtils::PostMessageToUIThread(station_, MediaBrowserCheckStatusChanged(checkedCount_ > 0), false);
    }

    // Answers whether the tick changed; the caller posts the status once for all.
    bool Tick(std::size_t entry, bool checked) {
        MediaEntry& target = entries_.at(entry);
        if (target.checked == checked)
            return false;
        target.checked = checked;
        if (checked)
            ++checkedCount_;
        else
            --checkedCount_;
        return true;
    }

    void TickMany(const std::vector<std::size_t>& which, bool checked) {
        MediaModelChange change{MediaModelChange::Kind::Entries, {}};
        for (std::size_t entry : which)
            if (Tick(entry, checked))
                change.entries.push_back(entry);
        if (change.entries.empty())
            return;
        std::sort(change.entries.begin(), change.entries.end());
        PostCheckStatus();
        Emit(change);
    }

    void GetChecked(CheckedPairs& checked, ClipSettings& clipSettings) const {
        checked.clear();
        clipSettings.clear();
        for (const MediaEntry& entry : entries_) {
            if (!entry.checked)
                continue;
            checked.emplace_back(entry.path, entry.entryName);
            const TranscodeClipSetting& marks = entry.marks;
            if (entry.folder || (marks.inPoint == kTime_Invalid && marks.outPoint == kTime_Invalid))
                continue;
            TranscodeClipSetting setting = marks;
            if (setting.frameRate == fluxmediatypes::kFrameRate_Zero)
                setting.frameRate = FrameRateOf(entry.facts);
            clipSettings[entry.path] = setting;
        }
    }

    void SetSearchText(const Fnd::WString& text) {
        if (text == search_)
            return;
        search_ = text;
        const Fnd::WString part = Fnd::ToLowerASCII(text);
        shown_.clear();
        for (std::size_t i = 0; i < entries_.size(); ++i)
            if (ContainsIgnoringCase(entries_[i].displayName, part))
                shown_.push_back(i);
        UpdateVisible();
        Emit({MediaModelChange::Kind::Reset, {}});
    }

    void SetSelection(std::vector<std::size_t> entries) {
        std::sort(entries.begin(), entries.end());
        entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
        entries.erase(std::lower_bound(entries.begin(), entries.end(), entries_.size()), entries.end());
        if (entries == selection_)
            return;
        selection_ = std::move(entries);
        Emit({MediaModelChange::Kind::Selection, {}});
    }

    void SetColumns(std::vector<MediaColumn> columns) {
        std::vector<MediaColumn> ordered{MediaColumn::Name};
        for (MediaColumn column : columns)
            if (std::find(ordered.begin(), ordered.end(), column) == ordered.end())
                ordered.push_back(column);
        if (ordered == columns_)
            return;
        columns_ = std::move(ordered);
        Emit({MediaModelChange::Kind::Columns, {}});
    }

    void Emit(const MediaModelChange& change) {
        if (onChange_)
            onChange_(change);
    }

    const Fnd::StationID station_;
    MediaModelOptions options_;
    ChangeFunction onChange_;
    // Tasks posted to the run loop run only while this lives.
    std::shared_ptr<int> alive_ = std::make_shared<int>(0);

    std::uint64_t generation_ = 0;
    std::atomic<std::uint64_t> latestGeneration_{0};
    Fnd::WString currentDir_;
    const Browse::ProviderWrapper* provider_ = nullptr;
    bool listing_ = false;
    std::vector<MediaEntry> entries_;
    std::vector<std::size_t> shown_;
    Fnd::WString search_;
    std::vector<std::size_t> selection_;
    std::size_t checkedCount_ = 0;
    std::vector<MediaColumn> columns_;
    std::size_t visibleFirst_ = 0;
    std::size_t visibleCount_ = 0;

    std::mutex settleMutex_;
    std::condition_variable settled_;
    std::size_t outstanding_ = 0;

    std::mutex resultsMutex_;
    std::vector<FactResult> results_;
    bool applyPosted_ = false;

    std::mutex listMutex_;
    std::condition_variable listWake_;
    bool stopping_ = false;
    std::optional<std::pair<std::uint64_t, Fnd::WString>> listJob_;
    std::thread lister_;

    // Last: its threads end first.
    FactWorkers facts_;
};

MediaBrowserModel::MediaBrowserModel(Fnd::StationID station, MediaModelOptions options)
    : impl_(std::make_unique<Impl>(std::move(station), options)) {}

MediaBrowserModel::~MediaBrowserModel() = default;

void MediaBrowserModel::SetChangeFunction(ChangeFunction function) {
    impl_->onChange_ = std::move(function);
}

void MediaBrowserModel::OpenDirectory(const Fnd::WString& directory) {
    impl_->OpenDirectory(directory);
}

bool MediaBrowserModel::OpenParentDirectory() {
    const Fnd::WString& current = impl_->currentDir_;
    const std::size_t slash = current.find_last_of(u'/');
    if (current.empty() || current == u"/" || slash == Fnd::WString::npos)
        return false;
    impl_->OpenDirectory(slash == 0 ? Fnd::WString(u"/") : current.substr(0, slash));
    return true;
}

const Fnd::WString& MediaBrowserModel::GetCurrentDirPath() const {
    return impl_->currentDir_;
}

const Browse::ProviderWrapper* MediaBrowserModel::GetCurrentProvider() const {
    return impl_->provider_;
}

bool MediaBrowserModel::IsListing() const {
    return impl_->listing_;
}

void MediaBrowserModel::WaitUntilSettled() {
    impl_->WaitUntilSettled();
}

const std::vector<MediaEntry>& MediaBrowserModel::Entries() const {
    return impl_->entries_;
}

const std::vector<std::size_t>& MediaBrowserModel::ShownEntries() const {
    return impl_->shown_;
}

void MediaBrowserModel::SetSearchText(const Fnd::WString& text) {
    impl_->SetSearchText(text);
}

const Fnd::WString& MediaBrowserModel::GetSearchText() const {
    return impl_->search_;
}

void MediaBrowserModel::SetChecked(std::size_t entry, bool checked) {
    impl_->TickMany({entry}, checked);
}

void MediaBrowserModel::CheckAll() {
    impl_->TickMany(impl_->shown_, true);
}

void MediaBrowserModel::UncheckAll() {
    impl_->TickMany(impl_->shown_, false);
}

void MediaBrowserModel::CheckSelected() {
    impl_->TickMany(impl_->selection_, true);
}

bool MediaBrowserModel::AnyChecked() const {
    return impl_->checkedCount_ > 0;
}

void MediaBrowserModel::GetChecked(CheckedPairs& checked, ClipSettings& clipSettings) const {
    impl_->GetChecked(checked, clipSettings);
}

void MediaBrowserModel::SetSelection(std::vector<std::size_t> entries) {
    impl_->SetSelection(std::move(entries));
}

const std::vector<std::size_t>& MediaBrowserModel::GetSelection() const {
    return impl_->selection_;
}

void MediaBrowserModel::SelectAll() {
    impl_->SetSelection(impl_->shown_);
}

void MediaBrowserModel::DeselectAll() {
    impl_->SetSelection({});
}

void MediaBrowserModel::SetMarks(std::size_t entry, const TranscodeClipSetting& marks) {
    impl_->entries_.at(entry).marks = marks;
    impl_->Emit({MediaModelChange::Kind::Entries, {entry}});
}

void MediaBrowserModel::SetVisibleRange(std::size_t firstShown, std::size_t count) {
    impl_->SetVisibleRange(firstShown, count);
}

void MediaBrowserModel::SetColumns(std::vector<MediaColumn> columns) {
    impl_->SetColumns(std::move(columns));
}

const std::vector<MediaColumn>& MediaBrowserModel::GetColumns() const {
    return impl_->columns_;
}

} // namespace fluxmediabrowser
