// `igd probe` of real clips as a user runs it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "apps/igd/IgdCommand.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

using ProbeCommandTest = IgdCommandTest;

TEST_F(ProbeCommandTest, PrintsWhatTheClipHoldsAndWritesItsPosterFrame) {
    const std::string clip = Native("A001.mov");
    MakeTestClip(clip);
    const std::string png = Native("out/A001.png");
    std::filesystem::create_directories(Native("out"));
    const Ran run = RunIgd({"probe", clip, "--json", "--thumbnail", png, "--width", "64", "--at", "0.5"});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, "{\"path\": \"" + clip +
                           "\", \"durationSeconds\": 1, \"frameCount\": 25, \"frameRate\": \"25/1\", \"width\": 320, "
                           "\"height\": 180, \"videoCodec\": \"mpeg4\", \"audioCodec\": \"pcm_s16le\", "
                           "\"audioChannels\": 1, \"startTimecode\": \"01:00:00:00\", \"thumbnail\": {\"path\": \"" +
                           png + "\", \"width\": 64, \"height\": 36}}\n");
    const std::string bytes = ReadFileBytes(png);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");

    const Ran text = RunIgd({"probe", clip});
    EXPECT_EQ(text.exitCode, 0) << text.err;
    EXPECT_NE(text.out.find("  frame rate  25 fps\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("  timecode    01:00:00:00\n"), std::string::npos) << text.out;
    // Both answers came once from the clip and now from the cache under the home.
    EXPECT_FALSE(std::filesystem::is_empty(home.Path() + "/cache/frames"));
}

} // namespace
} // namespace igd::test
