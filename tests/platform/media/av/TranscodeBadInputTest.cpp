#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "Av/ClipInfo.h"
#include "Av/Transcoder.h"
#include "TranscodeTestSupport.h"
#include "support/ScratchMount.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(TranscodeBadInput, SourcesThatCannotBeReadFailNamingTheFileAndTheReason) {
    TempTree tree;
    const std::string output = tree.NativePath() + "/out.mov";
    const std::string text = tree.NativePath() + "/C0001.MP4";
    std::ofstream(text) << "no frames here";
    const std::string notMedia = MediaErrorOf(RequestOf({ClipOf(text)}, {{output, ProResProxy()}}));
    EXPECT_TRUE(Contains(notMedia, text + ": ")) << notMedia;

    const std::string sound = tree.NativePath() + "/sound.wav";
    MakeTestClip(sound, {.timecode = "", .extraArguments = {"-vn"}});
    EXPECT_EQ(MediaErrorOf(RequestOf({ClipOf(sound)}, {{output, ProResProxy()}})), sound + ": the clip has no video");

    // The index at the front promises a second; the frames stop halfway.
    const std::string cut = tree.NativePath() + "/A001.mov";
    MakeTestClip(cut, {.extraArguments = {"-movflags", "+faststart"}});
    std::filesystem::resize_file(cut, std::filesystem::file_size(cut) * 6 / 10);
    const std::string truncated = MediaErrorOf(RequestOf({ClipOf(cut)}, {{output, ProResProxy()}}));
    EXPECT_TRUE(Contains(truncated, cut + ": the clip is truncated")) << truncated;

    const std::string good = tree.NativePath() + "/A002.mov";
    MakeTestClip(good);
    Av::SourceClip tooLong = ClipOf(good);
    tooLong.outSeconds = 12.0;
    EXPECT_EQ(MediaErrorOf(RequestOf({tooLong}, {{output, ProResProxy()}})),
              good + ": the out point 12.00 s lies past the end of the clip (1.00 s)");
}

TEST(TranscodeBadInput, AnOutputThatCannotBeWrittenStopsOnlyItself) {
    TempTree tree;
    const std::string source = tree.NativePath() + "/A001.mov";
    MakeTestClip(source);
    const std::string missing = tree.NativePath() + "/missing.mov";
    const std::string good = tree.NativePath() + "/good.mov";
    Av::EncoderSettings unknown = ProResProxy();
    unknown.videoEncoder = "prores_xx";

    const Av::TranscodeResult result = Av::Transcode(RequestOf({ClipOf(source)}, {{missing, unknown}, {good, ProResProxy()}}));

    EXPECT_EQ(result.outputs[0].error, missing + ": the encoder prores_xx is not in this build of FFmpeg");
    EXPECT_EQ(result.outputs[1].error, "");
    EXPECT_EQ(Av::ProbeClip(good).frameCount, 25);
}

TEST(TranscodeBadInput, AFullDiskFailsItsOutputAndTheOthersGoOn) {
    TempTree tree;
    ScratchMount disk(tree.NativePath("small"), "tmpfs", "size=64k");
    if (!disk.Mounted())
        GTEST_SKIP() << disk.Why();
    const std::string source = tree.NativePath() + "/A001.mov";
    MakeTestClip(source);
    const std::string full = disk.Folder() + "/A001.mov";
    const std::string good = tree.NativePath() + "/A001.mov.out";

    const Av::TranscodeResult result =
        Av::Transcode(RequestOf({ClipOf(source)}, {{full, ProResProxy()}, {good, ProResProxy()}}));

    EXPECT_EQ(result.outputs[0].error, full + ": the disk is full");
    EXPECT_EQ(result.outputs[1].error, "");
    EXPECT_NO_THROW(Av::CheckTranscodedFile(good, ProResProxy(), result.outputs[1].expected));
}

} // namespace
} // namespace igd::test
