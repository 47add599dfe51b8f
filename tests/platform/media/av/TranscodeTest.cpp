#include <gtest/gtest.h>

#include "Av/ClipInfo.h"
#include "Av/MediaError.h"
#include "Av/Transcoder.h"
#include "TranscodeTestSupport.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

TEST(Transcode, FixedSizeAndRateScaleAndRepeatFrames) {
    TempTree tree;
    const std::string source = tree.NativePath() + "/clip.mov";
    MakeTestClip(source);
    Av::EncoderSettings settings;
    settings.container = "mp4";
    settings.videoEncoder = "libx264";
    settings.profile = "main";
    settings.videoOptions = {{"tune", "fastdecode"}};
    settings.width = 160;
    settings.height = 90;
    settings.frameRateNum = 50;
    settings.frameRateDen = 1;
    settings.audioEncoder = "aac";
    settings.audioBitRate = 128000;
    const std::string output = tree.NativePath() + "/clip.mp4";

    const Av::TranscodeResult result = Av::Transcode(RequestOf({ClipOf(source)}, {{output, settings}}));

    ASSERT_EQ(result.outputs[0].error, "");
    const Av::ClipInfo info = Av::ProbeClip(output);
    EXPECT_EQ(info.videoCodec, "h264");
    EXPECT_EQ(info.videoProfile, "Main");
    EXPECT_EQ(info.width, 160);
    EXPECT_EQ(info.height, 90);
    EXPECT_EQ(info.frameRateNum, 50);
    EXPECT_EQ(info.frameCount, 50);
    EXPECT_EQ(info.audioCodec, "aac");
    EXPECT_NO_THROW(Av::CheckTranscodedFile(output, settings, result.outputs[0].expected));
    // The check itself tells a wrong file from a right one.
    Av::ExpectedOutput longer = result.outputs[0].expected;
    longer.seconds += 0.5;
    EXPECT_THROW(Av::CheckTranscodedFile(output, settings, longer), Av::MediaError);
    EXPECT_THROW(Av::CheckTranscodedFile(output, ProResProxy(), result.outputs[0].expected), Av::MediaError);
}

TEST(Transcode, InAndOutPointsCutAcrossChaptersAndAClipFollows) {
    TempTree tree;
    const std::string first = tree.NativePath() + "/GX010001.MP4";
    const std::string second = tree.NativePath() + "/GX020001.MP4";
    MakeTestClip(first, {.seconds = 1.0, .audioCodec = "aac", .extraArguments = {}});
    MakeTestClip(second, {.seconds = 0.6, .videoCodec = "libx264", .audioCodec = "aac", .extraArguments = {}});
    Av::SourceClip chapters;
    chapters.segments = {{first, {}}, {second, {}}};
    // Cut across the chapters' seam, then a second clip stitched after it.
    const std::string cut = tree.NativePath() + "/cut.mov";
    chapters.inSeconds = 0.4;
    chapters.outSeconds = 1.2;
    const Av::TranscodeResult result =
        Av::Transcode(RequestOf({chapters, ClipOf(second)}, {{cut, ProResProxy()}}));
    ASSERT_EQ(result.outputs[0].error, "");
    const Av::ClipInfo info = Av::ProbeClip(cut);
    EXPECT_EQ(info.frameCount, 20 + 15);
    EXPECT_NEAR(info.durationSeconds, 1.4, 0.04);
    EXPECT_EQ(info.startTimecode, "01:00:00:10");
    EXPECT_NO_THROW(Av::CheckTranscodedFile(cut, ProResProxy(), result.outputs[0].expected));
}

TEST(Transcode, MatchingClipsAreCopiedWithoutDecoding) {
    TempTree tree;
    const std::string first = tree.NativePath() + "/A001.mov";
    const std::string second = tree.NativePath() + "/A002.mov";
    MakeTestClip(first, {.videoCodec = "prores_ks", .extraArguments = {"-profile:v", "proxy"}});
    MakeTestClip(second, {.seconds = 0.4, .videoCodec = "prores_ks", .extraArguments = {"-profile:v", "proxy"}});
    const std::string output = tree.NativePath() + "/joined.mov";
    Av::SourceClip clip;
    clip.segments = {{first, {}}, {second, {}}};

    const Av::TranscodeResult copied = Av::Transcode(RequestOf({clip}, {{output, ProResProxy()}}));
    ASSERT_EQ(copied.outputs[0].error, "");
    EXPECT_TRUE(copied.outputs[0].remuxed);
    const Av::ClipInfo info = Av::ProbeClip(output);
    EXPECT_EQ(info.frameCount, 35);
    EXPECT_EQ(info.audioCodec, "pcm_s16le");
    EXPECT_NO_THROW(Av::CheckTranscodedFile(output, ProResProxy(), copied.outputs[0].expected));

    // A cut, or another profile, has to be encoded.
    clip.outSeconds = 1.0;
    EXPECT_FALSE(Av::Transcode(RequestOf({clip}, {{output, ProResProxy()}})).outputs[0].remuxed);
    clip.outSeconds.reset();
    Av::EncoderSettings lt = ProResProxy();
    lt.profile = "lt";
    EXPECT_FALSE(Av::Transcode(RequestOf({clip}, {{output, lt}})).outputs[0].remuxed);
}

TEST(Transcode, OneDecodeFeedsEveryOutputAndEqualSettingsShareAnEncoder) {
    TempTree tree;
    const std::string source = tree.NativePath() + "/clip.mov";
    MakeTestClip(source);
    Av::EncoderSettings small = ProResProxy();
    small.width = 160;
    small.height = 90;
    const std::string a = tree.NativePath() + "/a.mov";
    const std::string b = tree.NativePath() + "/b.mov";
    const std::string c = tree.NativePath() + "/c.mov";
    Av::TranscodeRequest request = RequestOf({ClipOf(source)}, {{a, ProResProxy()}, {b, small}, {c, ProResProxy()}});
    std::int64_t framesTotal = 0;
    request.progress = [&](const Av::TranscodeProgress& progress) { framesTotal = progress.framesTotal; };

    const Av::TranscodeResult result = Av::Transcode(request);

    for (const Av::OutputResult& output : result.outputs)
        EXPECT_EQ(output.error, "");
    EXPECT_EQ(framesTotal, 25) << "one decode for all three";
    EXPECT_EQ(Av::ProbeClip(b).width, 160);
    EXPECT_EQ(Av::ProbeClip(a).width, 320);
    EXPECT_EQ(ReadFileBytes(a), ReadFileBytes(c)) << "one encoder's packets in both files";
}

TEST(Transcode, TheCheckpointStopsTheWork) {
    TempTree tree;
    const std::string source = tree.NativePath() + "/clip.mov";
    MakeTestClip(source);
    Av::TranscodeRequest request = RequestOf({ClipOf(source)}, {{tree.NativePath() + "/out.mov", ProResProxy()}});
    int calls = 0;
    request.checkpoint = [&] { return ++calls < 5; };
    EXPECT_THROW(Av::Transcode(request), Av::MediaCancelled);
    EXPECT_EQ(calls, 5);
}

} // namespace
} // namespace igd::test
