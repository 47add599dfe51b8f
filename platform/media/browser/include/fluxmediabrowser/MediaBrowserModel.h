#pragma once
// What the browser shows and what the person did with it, without any view: the directory, its
// entries through the media providers, ticks, selection, marks, search and columns. Listing and
// the frame service's facts and thumbnails run off the UI thread and arrive through the run loop
// (Fnd::GetRunLoop), in batches, so that the first rows show at once and the UI stays free.
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Browse/ProviderWrapper.h"
#include "Fnd/Listener.h"
#include "Fnd/WString.h"
#include "fluxmediabrowser/MediaEntry.h"

namespace fluxmediabrowser {

using CheckedPairs = std::vector<std::pair<Fnd::WString, Fnd::WString>>;
using ClipSettings = std::map<Fnd::WString, TranscodeClipSetting>;

// What changed, for a view to redraw only that.
struct MediaModelChange {
    enum class Kind {
        Reset,     // a new directory, or the search changed which entries are shown
        Appended,  // entries arrived at the end of the listing
        Entries,   // facts, thumbnails, ticks or marks of some entries
        Selection,
        Columns,
        Listed,    // the listing is complete
    };
    Kind kind = Kind::Reset;
    std::vector<std::size_t> entries; // indices into Entries(), for Entries
};

struct MediaModelOptions {
    // Workers that ask the frame service; 0: half the machine's cores, at least one.
    unsigned factWorkers = 0;
    // Width in pixels of thumbnails asked of the frame service.
    int thumbnailWidth = 160;
    // Entries handed to the UI thread at once while a listing arrives.
    std::size_t listingBatch = 256;
};

class MediaBrowserModel {
public:
    using ChangeFunction = std::function<void(const MediaModelChange&)>;

    // The check status goes to station.
    explicit MediaBrowserModel(Fnd::StationID station, MediaModelOptions options = {});
    // Stops the workers; results still on their way are dropped.
    ~MediaBrowserModel();
    MediaBrowserModel(const MediaBrowserModel&) = delete;
    MediaBrowserModel& operator=(const MediaBrowserModel&) = delete;

    // Called on the UI thread after each change.
    void SetChangeFunction(ChangeFunction function);

    // Shows a directory: a camera card (its root or any folder of its structure) as one entry per
    // clip through its card provider, any other folder as its media files and subfolders through
    // the plain provider. Ticks and selection of the previous directory are dropped (a false check
    // status is posted if something was ticked). Returns at once; entries arrive.
    void OpenDirectory(const Fnd::WString& directory);
    // The parent of the directory shown; false at the root.
    bool OpenParentDirectory();
    const Fnd::WString& GetCurrentDirPath() const;
    // The provider of the directory shown: a card provider on a card, else the plain one; null
    // before a directory was opened.
    const Browse::ProviderWrapper* GetCurrentProvider() const;
    // True until the listing of the directory shown is complete.
    bool IsListing() const;
    // Blocks until the listing and the facts and thumbnails asked so far have arrived and been
    // applied, running the default run loop queue: for tests, benchmarks and screenshots.
    void WaitUntilSettled();

    // Every entry of the directory, in listing order (folders first, then by name).
    const std::vector<MediaEntry>& Entries() const;
    // Indices into Entries() of the entries the search lets through, in order.
    const std::vector<std::size_t>& ShownEntries() const;
    // Case-insensitive part of the displayed name; empty shows everything.
    void SetSearchText(const Fnd::WString& text);
    const Fnd::WString& GetSearchText() const;

    // Ticks; folders of a plain directory can be ticked too. Each change posts the check status.
    void SetChecked(std::size_t entry, bool checked);
    // The shown entries.
    void CheckAll();
    void UncheckAll();
    // Ticks the selected entries.
    void CheckSelected();
    bool AnyChecked() const;
    // Each ticked entry as (full path, entry name); the marks of ticked clips that have an in or
    // out point, keyed by full path.
    void GetChecked(CheckedPairs& checked, ClipSettings& clipSettings) const;

    // Selected entries, indices into Entries(), ascending.
    void SetSelection(std::vector<std::size_t> entries);
    const std::vector<std::size_t>& GetSelection() const;
    void SelectAll(); // the shown entries
    void DeselectAll();

    void SetMarks(std::size_t entry, const TranscodeClipSetting& marks);

    // Entries on screen go first for facts and thumbnails.
    void SetVisibleRange(std::size_t firstShown, std::size_t count);

    // Columns of the list view, in order; Name is always first and cannot be removed.
    void SetColumns(std::vector<MediaColumn> columns);
    const std::vector<MediaColumn>& GetColumns() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace fluxmediabrowser
