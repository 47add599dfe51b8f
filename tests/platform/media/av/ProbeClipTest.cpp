#include <gtest/gtest.h>

#include <fstream>

#include "Av/ClipInfo.h"
#include "Av/MediaError.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

TEST(ProbeClip, ReadsWhatACameraClipHolds) {
    TempTree tree;
    const std::string path = tree.NativePath() + "/A001.mov";
    TestClipSpec spec;
    spec.width = 640;
    spec.height = 360;
    spec.frameRate = "30000/1001";
    spec.videoCodec = "prores_ks";
    spec.timecode = "10:00:00;00";
    MakeTestClip(path, spec);
    const Av::ClipInfo info = Av::ProbeClip(path);
    EXPECT_EQ(info.videoCodec, "prores");
    EXPECT_EQ(info.width, 640);
    EXPECT_EQ(info.height, 360);
    EXPECT_EQ(info.frameRateNum, 30000);
    EXPECT_EQ(info.frameRateDen, 1001);
    EXPECT_EQ(info.frameCount, 30);
    EXPECT_NEAR(info.durationSeconds, 1.0, info.FrameSeconds());
    EXPECT_EQ(info.audioCodec, "pcm_s16le");
    EXPECT_EQ(info.audioChannels, 1);
    EXPECT_EQ(info.audioSampleRate, 48000);
    EXPECT_EQ(info.startTimecode, "10:00:00;00");
}

TEST(ProbeClip, RefusesWhatIsNoMediaNamingTheFile) {
    TempTree tree;
    const std::string path = tree.NativePath() + "/C0001.MP4";
    std::ofstream(path) << "these are not the frames you are looking for";
    try {
        Av::ProbeClip(path);
        FAIL() << "no error for a text file";
    } catch (const Av::MediaError& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    }
    EXPECT_THROW(Av::ProbeClip(tree.NativePath() + "/missing.mov"), Av::MediaError);
}

} // namespace
} // namespace igd::test
