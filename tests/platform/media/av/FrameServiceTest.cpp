// Poster frames and facts of real clips through the frame service and its cache on disk.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "Av/CachingFrameService.h"
#include "Av/PosterFrame.h"
#include "Mid/FrameService.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

namespace fs = std::filesystem;

// The size a PNG file says it holds, from its header; zero when it is no PNG.
std::pair<int, int> PngSize(const std::vector<std::uint8_t>& png) {
    static const std::uint8_t signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (png.size() < 24 || std::memcmp(png.data(), signature, 8) != 0 || std::memcmp(png.data() + 12, "IHDR", 4) != 0)
        return {0, 0};
    const auto big = [&](std::size_t at) { return int(png[at]) << 24 | int(png[at + 1]) << 16 | int(png[at + 2]) << 8 | png[at + 3]; };
    return {big(16), big(20)};
}

std::vector<fs::path> CacheFiles(const std::string& folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        files.push_back(entry.path());
    return files;
}

class FrameServiceTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        clips = new TempTree;
        MakeTestClip(clips->NativePath("A001.mov"));
    }
    static void TearDownTestSuite() {
        delete clips;
        clips = nullptr;
    }

    std::unique_ptr<Av::CachingFrameService> Service(std::uint64_t limitBytes = 256u << 20) const {
        return std::make_unique<Av::CachingFrameService>(Av::FrameCacheOptions{cacheFolder, limitBytes});
    }

    // 320x180 at 25 fps, one second, with a tone and timecode 01:00:00:00.
    static inline TempTree* clips = nullptr;
    const std::string clip = clips->NativePath("A001.mov");
    TempTree tree;
    const std::string cacheFolder = tree.NativePath("cache/frames");
};

TEST_F(FrameServiceTest, PosterFrameIsADecodablePngOfTheAskedWidthKeepingTheAspect) {
    const Mid::FrameImage frame = Av::DecodePosterFrame(clip, 160);
    EXPECT_EQ(frame.width, 160);
    EXPECT_EQ(frame.height, 90);
    EXPECT_EQ(PngSize(frame.png), std::make_pair(160, 90));

    // Pixels four units wide and three high: shown at 320x180, not at its stored 240x180.
    TestClipOptions anamorphic;
    anamorphic.width = 240;
    anamorphic.extraArguments = {"-aspect", "16:9"};
    MakeTestClip(tree.NativePath("B001.mov"), anamorphic);
    EXPECT_EQ(Av::DecodePosterFrame(tree.NativePath("B001.mov"), 160).height, 90);
    // A transport stream, as AVCHD records, states no picture size before its first packets.
    TestClipOptions stream;
    stream.extraArguments = {"-f", "mpegts"};
    MakeTestClip(tree.NativePath("00000.MTS"), stream);
    EXPECT_EQ(Av::DecodePosterFrame(tree.NativePath("00000.MTS"), 160).height, 90);
    EXPECT_THROW(Av::DecodePosterFrame(clip, 0), std::invalid_argument);
}

// Frames start every 0.04 s: 0.49 and 0.50 show frame 12, 0.53 frame 13.
TEST_F(FrameServiceTest, FrameAtATimeIsTheOneShowingThenAndTheLastPastTheEnd) {
    const auto png = [&](double at) { return Av::DecodePosterFrame(clip, 160, at).png; };
    const std::vector<std::uint8_t> first = png(0);
    EXPECT_NE(png(0.5), first);
    EXPECT_EQ(png(0.49), png(0.5));
    EXPECT_NE(png(0.53), png(0.5));
    EXPECT_EQ(png(30), png(0.97));
    EXPECT_NE(png(30), png(0.95));
}

TEST_F(FrameServiceTest, CacheAnswersAgainWithoutOpeningTheClipInThisProcessAndTheNext) {
    const std::unique_ptr<Av::CachingFrameService> service = Service();
    const Mid::FrameImage frame = service->PosterFrame(clip, 160, 0.5);
    const Mid::ClipFacts facts = service->Facts(clip);
    EXPECT_EQ(service->MediaReads(), 2u);
    EXPECT_EQ(facts.startTimecode, "01:00:00:00");

    EXPECT_EQ(service->PosterFrame(clip, 160, 0.5).png, frame.png);
    EXPECT_EQ(service->Facts(clip), facts);
    EXPECT_EQ(service->MediaReads(), 2u);
    // Another width or time is another picture.
    EXPECT_EQ(service->PosterFrame(clip, 80, 0.5).height, 45);
    EXPECT_EQ(service->MediaReads(), 3u);

    const std::unique_ptr<Av::CachingFrameService> nextRun = Service();
    EXPECT_EQ(nextRun->PosterFrame(clip, 160, 0.5).png, frame.png);
    EXPECT_EQ(nextRun->Facts(clip), facts);
    EXPECT_EQ(nextRun->MediaReads(), 0u);
}

TEST_F(FrameServiceTest, ClipRewrittenOrRetimedIsReadAfresh) {
    const std::string copy = tree.NativePath("C0001.MP4");
    fs::copy_file(clip, copy);
    const std::unique_ptr<Av::CachingFrameService> service = Service();
    service->PosterFrame(copy, 160);
    service->Facts(copy);

    TestClipOptions wide;
    wide.width = 640;
    wide.height = 360;
    MakeTestClip(copy + ".mov", wide);
    fs::rename(copy + ".mov", copy);
    EXPECT_EQ(service->Facts(copy).width, 640);
    EXPECT_EQ(service->MediaReads(), 3u);

    const fs::file_time_type before = fs::last_write_time(copy);
    service->PosterFrame(copy, 160);
    fs::last_write_time(copy, before - std::chrono::seconds(5));
    service->PosterFrame(copy, 160);
    EXPECT_EQ(service->MediaReads(), 5u);
}

TEST_F(FrameServiceTest, CacheBeyondItsLimitLetsTheLeastRecentlyUsedGo) {
    // What the picture at each time takes in the cache; their sizes differ a little.
    std::uint64_t allFour = 0;
    std::uint64_t largest = 0;
    {
        const std::unique_ptr<Av::CachingFrameService> measure = Service();
        for (const double at : {0.0, 0.2, 0.4, 0.6}) {
            measure->PosterFrame(clip, 160, at);
            largest = std::max(largest, measure->CacheBytes() - allFour);
            allFour = measure->CacheBytes();
        }
        fs::remove_all(cacheFolder);
    }
    // Room for all but one.
    const std::uint64_t limit = allFour - 1;
    const std::unique_ptr<Av::CachingFrameService> service = Service(limit);
    for (const double at : {0.0, 0.2, 0.4})
        service->PosterFrame(clip, 160, at);
    service->PosterFrame(clip, 160, 0.0); // used again: now the most recent
    service->PosterFrame(clip, 160, 0.6);
    EXPECT_LE(service->CacheBytes(), limit);
    EXPECT_EQ(CacheFiles(cacheFolder).size(), 3u);
    const std::uint64_t reads = service->MediaReads();
    service->PosterFrame(clip, 160, 0.0);
    service->PosterFrame(clip, 160, 0.6);
    EXPECT_EQ(service->MediaReads(), reads);
    service->PosterFrame(clip, 160, 0.2);
    EXPECT_EQ(service->MediaReads(), reads + 1);

    // A later run with a smaller limit trims what an earlier one left.
    EXPECT_LE(Service(largest)->CacheBytes(), largest);
    EXPECT_EQ(CacheFiles(cacheFolder).size(), 1u);
}

TEST_F(FrameServiceTest, DamagedCacheFilesAreReadAsMissesAndReplaced) {
    const Mid::FrameImage frame = Service()->PosterFrame(clip, 160);
    const Mid::ClipFacts facts = Service()->Facts(clip);
    const std::vector<fs::path> files = CacheFiles(cacheFolder);
    ASSERT_EQ(files.size(), 2u);
    // One cut short as by a crash, one overwritten with something else.
    fs::resize_file(files[0], fs::file_size(files[0]) / 2);
    std::ofstream(files[1], std::ios::binary | std::ios::trunc) << "igd-frame-cache 1 3 4\nkeyjunk";

    const std::unique_ptr<Av::CachingFrameService> service = Service();
    EXPECT_EQ(service->PosterFrame(clip, 160).png, frame.png);
    EXPECT_EQ(service->Facts(clip), facts);
    EXPECT_EQ(service->MediaReads(), 2u);
    service->PosterFrame(clip, 160);
    service->Facts(clip);
    EXPECT_EQ(service->MediaReads(), 2u);
}

TEST_F(FrameServiceTest, WhatGivesNoPictureSaysWhichFileAndWhy) {
    const std::unique_ptr<Av::CachingFrameService> service = Service();
    const auto reason = [&](const std::string& path, bool facts) -> std::string {
        try {
            if (facts)
                service->Facts(path);
            else
                service->PosterFrame(path, 160);
        } catch (const Mid::FrameUnavailable& error) {
            return error.what();
        }
        return "no error";
    };
    const std::string missing = tree.NativePath("C0003.MP4");
    EXPECT_EQ(reason(missing, false), missing + ": No such file or directory");

    const std::string sound = tree.NativePath("A001.wav");
    TestClipOptions tone;
    tone.extraArguments = {"-vn"};
    tone.timecode.clear();
    MakeTestClip(sound, tone);
    EXPECT_EQ(reason(sound, false), sound + ": has no video");
    EXPECT_EQ(service->Facts(sound).videoCodec, "");

    // A host that installed no media layer gets the same kind of answer.
    EXPECT_THROW(Mid::FrameService::GetInstance().PosterFrame(clip, 160), Mid::FrameUnavailable);
}

TEST_F(FrameServiceTest, ThreadsAskingForTheSameClipsGetTheSamePictures) {
    const Mid::FrameImage expected = Av::DecodePosterFrame(clip, 96, 0.3);
    const std::unique_ptr<Av::CachingFrameService> service = Service();
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 5; ++i)
                if (service->PosterFrame(clip, 96, 0.3).png != expected.png || service->Facts(clip).width != 320)
                    ++wrong;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong.load(), 0);
    EXPECT_EQ(CacheFiles(cacheFolder).size(), 2u);
    // Asked at once, decoded once: one picture, one probe.
    EXPECT_EQ(service->MediaReads(), 2u);
}

TEST_F(FrameServiceTest, UnreadableClipIsNotReadAgainUntilItChanges) {
    const std::unique_ptr<Av::CachingFrameService> service = Service();
    const std::string bad = Fnd::ToUTF8(tree.MakeFile("A002.mov", "not a movie"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_THROW(service->Facts(bad), Mid::FrameUnavailable);
        EXPECT_THROW(service->PosterFrame(bad, 96), Mid::FrameUnavailable);
    }
    EXPECT_EQ(service->MediaReads(), 1u);

    // Copied again, this time whole.
    fs::copy_file(clip, bad, fs::copy_options::overwrite_existing);
    EXPECT_EQ(service->Facts(bad).width, 320);
    EXPECT_EQ(service->MediaReads(), 2u);
}

} // namespace
} // namespace igd::test
