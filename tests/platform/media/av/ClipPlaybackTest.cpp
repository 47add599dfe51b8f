// The preview player's reader on a real clip: its rate and length, and that a seek lands on exactly
// the frame that reading from the start reaches, wherever the key frames are.
#include <gtest/gtest.h>

#include <fstream>

#include "Av/ClipPlaybackInstall.h"
#include "Mid/ClipPlayback.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

class ClipPlaybackTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        clips = new TempTree;
        // Two seconds at 25 fps with a key frame every 10 frames; testsrc2 moves on every frame.
        MakeTestClip(clips->NativePath("A001.mov"),
                     {.width = 160, .height = 90, .seconds = 2.0, .audio = false, .extraArguments = {"-g", "10"}});
        Av::InstallClipPlayback();
    }
    static void TearDownTestSuite() {
        Mid::ClipPlaybackFactory::Install(nullptr);
        delete clips;
        clips = nullptr;
    }
    static std::unique_ptr<Mid::ClipPlayback> Open(const std::string& name) {
        return Mid::ClipPlaybackFactory::GetInstance()->Open(clips->NativePath(name));
    }

    static inline TempTree* clips = nullptr;
};

TEST_F(ClipPlaybackTest, TellsTheClipsRateAndLength) {
    auto clip = Open("A001.mov");
    EXPECT_DOUBLE_EQ(clip->FrameRate(), 25.0);
    EXPECT_EQ(clip->FrameCount(), 50);
}

TEST_F(ClipPlaybackTest, SeekGivesTheFrameReadingFromTheStartReaches) {
    auto reference = Open("A001.mov");
    std::vector<Mid::PlaybackFrame> frames{reference->Seek(0, 160, 90)};
    while (auto next = reference->Next(160, 90))
        frames.push_back(*next);
    ASSERT_EQ(frames.size(), 50u);
    for (std::size_t i = 0; i < frames.size(); ++i)
        ASSERT_EQ(frames[i].index, std::int64_t(i));
    ASSERT_NE(*frames[21].rgba, *frames[22].rgba) << "the clip's frames must differ for this test to mean anything";

    auto clip = Open("A001.mov");
    // Back and forth across key frames, forward a step at a time, and back to the start.
    for (std::int64_t index : {37, 22, 23, 24, 9, 10, 45, 0, 49}) {
        const Mid::PlaybackFrame frame = clip->Seek(index, 160, 90);
        EXPECT_EQ(frame.index, index);
        EXPECT_DOUBLE_EQ(frame.seconds, double(index) / 25.0);
        EXPECT_EQ(*frame.rgba, *frames[std::size_t(index)].rgba) << "frame " << index;
    }
    // Next goes on from where a seek landed.
    clip->Seek(30, 160, 90);
    EXPECT_EQ(*clip->Next(160, 90)->rgba, *frames[31].rgba);
}

TEST_F(ClipPlaybackTest, SeekPastTheEndGivesTheLastFrameAndNextThenEnds) {
    auto clip = Open("A001.mov");
    EXPECT_EQ(clip->Seek(500, 160, 90).index, 49);
    EXPECT_FALSE(clip->Next(160, 90).has_value());
    EXPECT_EQ(clip->Seek(-3, 160, 90).index, 0);
}

TEST_F(ClipPlaybackTest, PicturesFitTheBoxKeepingTheirAspect) {
    auto clip = Open("A001.mov");
    const Mid::PlaybackFrame wide = clip->Seek(0, 80, 80);
    EXPECT_EQ(wide.width, 80);
    EXPECT_EQ(wide.height, 45);
    EXPECT_EQ(wide.rgba->size(), std::size_t(80 * 45 * 4));
    const Mid::PlaybackFrame tall = clip->Seek(1, 320, 45);
    EXPECT_EQ(tall.width, 80);
    EXPECT_EQ(tall.height, 45);
}

TEST_F(ClipPlaybackTest, AFileThatIsNoMediaIsUnavailableByName) {
    const std::string path = clips->NativePath("notes.mov");
    std::ofstream(path) << "not a movie";
    try {
        Open("notes.mov");
        FAIL() << "a text file opened as a clip";
    } catch (const Mid::PlaybackUnavailable& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    }
    EXPECT_THROW(Open("missing.mov"), Mid::PlaybackUnavailable);
}

} // namespace
} // namespace igd::test
