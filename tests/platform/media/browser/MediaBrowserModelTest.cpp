// The browser's model over card trees, plain folders and real clips: what it lists, what it posts
// when ticks change, what it hands the ingest, and that work off the UI thread lands safely.
#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <memory>
#include <string>
#include <vector>

#include "Av/CachingFrameService.h"
#include "Browse/PlainDirectoryProvider.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "fluxmediabrowser/MediaBrowserCheckStatusChanged.h"
#include "fluxmediabrowser/MediaBrowserModel.h"
#include "support/TestClips.h"
#include "tests/platform/media/CardTrees.h"

namespace igd::test {
namespace {

using fluxmediabrowser::MediaBrowserModel;
using fluxmediabrowser::MediaColumn;
using fluxmediatypes::kTicksPerSecond;

// What the browser's station heard, in order.
class StatusListener : public Fnd::Listener {
public:
    explicit StatusListener(Fnd::StationID station) : station_(std::move(station)) {
        Fnd::StationUtils::AddListener(station_, this);
    }
    ~StatusListener() override { Fnd::StationUtils::RemoveListener(station_, this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* status = Fnd::MessageCast<fluxmediabrowser::MediaBrowserCheckStatusChanged>(message))
            heard.push_back(status->GetCheckStatus());
    }
    // Delivers what was posted and answers it, forgetting it.
    std::vector<bool> Take() {
        Fnd::GetDefaultQueue().Drain();
        return std::exchange(heard, {});
    }
    std::vector<bool> heard;

private:
    Fnd::StationID station_;
};

class MediaBrowserModelTest : public ::testing::Test {
protected:
    void TearDown() override { Fnd::GetDefaultQueue().Drain(); }

    // Opens and waits until everything asked has arrived.
    MediaBrowserModel& Open(const std::string& relative) {
        model.OpenDirectory(tree.Path(relative));
        model.WaitUntilSettled();
        return model;
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (std::size_t i : model.ShownEntries())
            names.push_back(Fnd::ToUTF8(model.Entries()[i].displayName));
        return names;
    }

    TempTree tree;
    const Fnd::StationID station{"MediaBrowserModelTest"};
    MediaBrowserModel model{station, {.factWorkers = 2, .thumbnailWidth = 64, .listingBatch = 2}};
};

TEST_F(MediaBrowserModelTest, CardShowsOneEntryPerClipFromAnyOfItsFolders) {
    MakeFiles(tree, {"P2/CONTENTS/CLIP/0001AB.XML", "P2/CONTENTS/VIDEO/0001AB.MXF",
                     "P2/CONTENTS/AUDIO/0001AB00.MXF", "P2/CONTENTS/CLIP/0002CD.XML",
                     "P2/CONTENTS/VIDEO/0002CD.MXF"});
    tree.MakeFile("P2/CONTENTS/CLIP/0001AB.XML", P2ClipXml("G1"));
    tree.MakeFile("P2/CONTENTS/CLIP/0002CD.XML", P2ClipXml("G2"));
    tree.MakeFile("GOPRO/DCIM/100GOPRO/GH010007.MP4", "12345");
    tree.MakeFile("GOPRO/DCIM/100GOPRO/GH020007.MP4", "1234567");
    tree.MakeFile("GOPRO/DCIM/100GOPRO/GH010008.MP4", "1");

    Open("P2/CONTENTS/CLIP");
    // Entries are named from the card's root, as the ingest joins them with the directory.
    EXPECT_EQ(model.GetCurrentDirPath(), tree.Path("P2"));
    ASSERT_NE(model.GetCurrentProvider(), nullptr);
    EXPECT_FALSE(model.GetCurrentProvider()->ShouldCheckFilter());
    ASSERT_EQ(Names(), (std::vector<std::string>{"0001AB", "0002CD"}));
    EXPECT_EQ(model.Entries()[0].entryName, u"CONTENTS/VIDEO/0001AB.MXF");
    EXPECT_EQ(model.Entries()[0].path, tree.Path("P2/CONTENTS/VIDEO/0001AB.MXF"));
    EXPECT_FALSE(model.IsListing());

    Open("GOPRO");
    ASSERT_EQ(Names(), (std::vector<std::string>{"GH010007", "GH010008"}));
    // Both chapters of the first video count.
    EXPECT_EQ(model.Entries()[0].sizeBytes, 12u);
    // Empty files are no clips the frame service can read; they still show name and size.
    EXPECT_TRUE(model.Entries()[1].factsUnavailable);
    EXPECT_EQ(fluxmediabrowser::MediaColumnText(model.Entries()[1], MediaColumn::Size), u"1 B");
}

TEST_F(MediaBrowserModelTest, PlainFolderShowsSubfoldersThenMediaFilesByNameIgnoringCase) {
    MakeFiles(tree, {"shoot/b.mov", "shoot/A.MP4", "shoot/notes.txt", "shoot/.hidden.mov", "shoot/.git/x",
                     "shoot/zeta/c.mov", "shoot/Alpha/d.mov"});
    Open("shoot/");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Alpha", "zeta", "A.MP4", "b.mov"}));
    EXPECT_EQ(model.GetCurrentDirPath(), tree.Path("shoot"));
    EXPECT_EQ(model.GetCurrentProvider()->GetIdentification(), Browse::PlainDirectoryProvider::kIdentification);
    EXPECT_TRUE(model.Entries()[0].folder);
    EXPECT_EQ(fluxmediabrowser::MediaColumnText(model.Entries()[0], MediaColumn::Size), u"");

    ASSERT_TRUE(model.OpenParentDirectory());
    model.WaitUntilSettled();
    EXPECT_EQ(model.GetCurrentDirPath(), tree.Path());
    EXPECT_EQ(Names(), (std::vector<std::string>{"shoot"}));
}

TEST_F(MediaBrowserModelTest, EachChangeOfTicksPostsTheStatusOnce) {
    MakeFiles(tree, {"f/a.mov", "f/b.mov", "f/c.mov"});
    Open("f");
    StatusListener listener(station);
    model.SetChecked(1, true);
    EXPECT_EQ(listener.Take(), (std::vector<bool>{true}));
    model.SetChecked(1, true); // no change, nothing to say
    model.CheckAll();
    EXPECT_EQ(listener.Take(), (std::vector<bool>{true}));
    model.SetChecked(0, false);
    EXPECT_EQ(listener.Take(), (std::vector<bool>{true}));
    model.UncheckAll();
    EXPECT_EQ(listener.Take(), (std::vector<bool>{false}));
    EXPECT_FALSE(model.AnyChecked());

    model.SetSelection({2, 0, 9});
    EXPECT_EQ(model.GetSelection(), (std::vector<std::size_t>{0, 2}));
    model.CheckSelected();
    EXPECT_EQ(listener.Take(), (std::vector<bool>{true}));
    // Another directory drops the ticks and says so.
    Open("f");
    EXPECT_EQ(listener.Take(), (std::vector<bool>{false}));
    EXPECT_TRUE(model.GetSelection().empty());
}

TEST_F(MediaBrowserModelTest, SearchNarrowsWhatIsShownAndWhatTickAllTicks) {
    MakeFiles(tree, {"f/Interview_A.mov", "f/broll.mov", "f/INTERVIEW_B.mov"});
    Open("f");
    model.SetSearchText(u"interview");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Interview_A.mov", "INTERVIEW_B.mov"}));
    model.CheckAll();
    model.SelectAll();
    EXPECT_EQ(model.GetSelection().size(), 2u);
    model.SetSearchText(u"");
    EXPECT_EQ(model.ShownEntries().size(), 3u);
    fluxmediabrowser::CheckedPairs checked;
    fluxmediabrowser::ClipSettings settings;
    model.GetChecked(checked, settings);
    EXPECT_EQ(checked.size(), 2u);
}

TEST_F(MediaBrowserModelTest, ADirectoryOpenedWhileAnotherIsListedIsTheOnlyOneShown) {
    for (int i = 0; i < 200; ++i)
        tree.MakeFile("first/clip" + std::to_string(i) + ".mov");
    MakeFiles(tree, {"second/only.mov"});
    std::vector<fluxmediabrowser::MediaModelChange::Kind> kinds;
    model.SetChangeFunction([&](const fluxmediabrowser::MediaModelChange& change) { kinds.push_back(change.kind); });
    model.OpenDirectory(tree.Path("first"));
    model.OpenDirectory(tree.Path("second"));
    model.WaitUntilSettled();
    EXPECT_EQ(Names(), (std::vector<std::string>{"only.mov"}));
    EXPECT_EQ(model.GetCurrentDirPath(), tree.Path("second"));
    // The first listing never reports itself complete.
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), fluxmediabrowser::MediaModelChange::Kind::Listed), 1);
}

TEST_F(MediaBrowserModelTest, ModelEndedWhileWorkIsInFlightLeavesNothingBehind) {
    for (int i = 0; i < 50; ++i)
        tree.MakeFile("f/clip" + std::to_string(i) + ".mov", "x");
    int changes = 0;
    {
        MediaBrowserModel early{station, {.factWorkers = 2}};
        early.SetChangeFunction([&](const fluxmediabrowser::MediaModelChange&) { ++changes; });
        early.OpenDirectory(tree.Path("f"));
        changes = 0;
    }
    // What the workers posted before they stopped finds the model gone and does nothing.
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(changes, 0);
}

// A frame service that knows no clip, notes the order it was asked in, and holds its first answer
// until released.
class OrderRecordingService : public Mid::FrameService {
public:
    Mid::FrameImage PosterFrame(const std::string& path, int, double) override { throw Mid::FrameUnavailable(path); }
    Mid::ClipFacts Facts(const std::string& path) override {
        std::unique_lock lock(mutex);
        asked.push_back(path.substr(path.size() - 7, 3));
        changed.notify_all();
        changed.wait(lock, [&] { return released; });
        throw Mid::FrameUnavailable(path);
    }
    void WaitForFirst() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return !asked.empty(); });
    }
    void Release() {
        std::lock_guard lock(mutex);
        released = true;
        changed.notify_all();
    }
    std::mutex mutex;
    std::condition_variable changed;
    bool released = false;
    std::vector<std::string> asked;
};

TEST_F(MediaBrowserModelTest, ClipsOnScreenAreAskedForFirstThenTheirNeighbours) {
    for (int i = 0; i < 60; ++i)
        tree.MakeFile("f/f" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ".mov");
    const auto service = std::make_shared<OrderRecordingService>();
    const auto previous = Mid::FrameService::Install(service);
    MediaBrowserModel one{station, {.factWorkers = 1}};
    one.OpenDirectory(tree.Path("f"));
    service->WaitForFirst();
    one.SetVisibleRange(40, 5);
    service->Release();
    one.WaitUntilSettled();
    Mid::FrameService::Install(previous);
    ASSERT_EQ(service->asked.size(), 60u);
    EXPECT_EQ(std::vector<std::string>(service->asked.begin(), service->asked.begin() + 8),
              (std::vector<std::string>{"f00", "f40", "f41", "f42", "f43", "f44", "f39", "f45"}));
}

// Real clips through the frame service, with a cache of their own.
class MediaBrowserFactsTest : public MediaBrowserModelTest {
protected:
    void SetUp() override {
        previous = Mid::FrameService::Install(
            std::make_shared<Av::CachingFrameService>(Av::FrameCacheOptions{tree.NativePath("cache"), 16u << 20}));
        tree.MakeFolder("clips");
        TestClipOptions clip;
        clip.seconds = 2;
        MakeTestClip(tree.NativePath("clips/A001.mov"), clip);
        MakeTestClip(tree.NativePath("clips/A002.mov"));
        tree.MakeFile("clips/B001.mov", "a camera stopped writing here");
    }
    void TearDown() override {
        Mid::FrameService::Install(previous);
        MediaBrowserModelTest::TearDown();
    }
    std::shared_ptr<Mid::FrameService> previous;
};

TEST_F(MediaBrowserFactsTest, FactsAndThumbnailsFillInAndABadClipKeepsNameAndSize) {
    std::vector<std::vector<std::size_t>> filled;
    model.SetChangeFunction([&](const fluxmediabrowser::MediaModelChange& change) {
        if (change.kind == fluxmediabrowser::MediaModelChange::Kind::Entries)
            filled.push_back(change.entries);
    });
    Open("clips");
    const auto& entries = model.Entries();
    ASSERT_EQ(entries.size(), 3u);
    ASSERT_TRUE(entries[0].facts);
    EXPECT_EQ(entries[0].facts->width, 320);
    ASSERT_TRUE(entries[0].thumbnail);
    EXPECT_EQ(entries[0].thumbnail->width, 64);
    EXPECT_EQ(fluxmediabrowser::MediaColumnText(entries[0], MediaColumn::Duration), u"00:00:02:00");
    EXPECT_EQ(fluxmediabrowser::MediaColumnText(entries[0], MediaColumn::FrameRate), u"25 fps");
    EXPECT_EQ(fluxmediabrowser::MediaColumnText(entries[0], MediaColumn::StartTimecode), u"01:00:00:00");
    EXPECT_TRUE(entries[2].factsUnavailable);
    EXPECT_FALSE(entries[2].thumbnail);
    EXPECT_EQ(entries[2].sizeBytes, 29u);
    std::size_t reported = 0;
    for (const auto& change : filled)
        reported += change.size();
    EXPECT_EQ(reported, 3u);
}

TEST_F(MediaBrowserFactsTest, CheckedGivesTickedPairsAndTheMarksOfMarkedClips) {
    Open("clips");
    const fluxmediatypes::Time second = kTicksPerSecond;
    model.SetChecked(0, true);
    model.SetChecked(1, true);
    model.SetMarks(0, {fluxmediatypes::kFrameRate_Zero, second / 2, second});
    // Marked but not ticked: not asked for.
    model.SetMarks(2, {kTicksPerSecond / 30, 0, second});
    fluxmediabrowser::CheckedPairs checked;
    fluxmediabrowser::ClipSettings settings;
    model.GetChecked(checked, settings);
    EXPECT_EQ(checked, (fluxmediabrowser::CheckedPairs{{tree.Path("clips/A001.mov"), u"A001.mov"},
                                                       {tree.Path("clips/A002.mov"), u"A002.mov"}}));
    ASSERT_EQ(settings.size(), 1u);
    const fluxmediabrowser::TranscodeClipSetting& marks = settings.at(tree.Path("clips/A001.mov"));
    EXPECT_EQ(marks.inPoint, second / 2);
    EXPECT_EQ(marks.outPoint, second);
    // The marks came without a rate; the clip's own is taken.
    EXPECT_EQ(marks.frameRate, kTicksPerSecond / 25);
}

} // namespace
} // namespace igd::test
