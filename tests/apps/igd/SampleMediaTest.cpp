// The sample cards of tools/make-sample-media as igd and FFmpeg meet them: the providers find the
// clips the tool meant, and every media file holds the frames, timecode and sound it claims.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Av/ClipInfo.h"
#include "apps/igd/IgdCommand.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

// A clip's picture as one line, for comparing in one piece: "prores Proxy 320x180 25/1".
std::string Picture(const Av::ClipInfo& clip) {
    return clip.videoCodec + (clip.videoProfile.empty() ? "" : " " + clip.videoProfile) + " " +
           std::to_string(clip.width) + "x" + std::to_string(clip.height) + " " + std::to_string(clip.frameRateNum) +
           "/" + std::to_string(clip.frameRateDen);
}

class SampleMediaTest : public IgdCommandTest {
protected:
    // The tool's cards under "media", with short tiny clips unless the arguments say otherwise.
    void MakeCards(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {IGD_SAMPLE_MEDIA_TOOL, Native("media")});
        arguments.insert(arguments.end(), {"--seconds", "0.4"});
        ASSERT_EQ(RunProgram(arguments), 0);
    }

    // How `igd cards` lists the card; which files make a clip is the providers' own test.
    std::string Cards(const std::string& card) {
        const Ran run = RunIgd({"cards", Native("media/" + card)});
        EXPECT_EQ(run.exitCode, 0) << run.err;
        return run.out;
    }

    Av::ClipInfo Probe(const std::string& relative) { return Av::ProbeClip(Native("media/" + relative)); }
};

TEST_F(SampleMediaTest, XavcSCardHoldsH264ClipsWithIndexFilesThumbnailsAndTheirOwnTimecode) {
    MakeCards({"xavcs"});
    const std::string cards = Cards("XAVCS_CARD");
    const std::string m4 = "XAVCS_CARD/PRIVATE/M4ROOT/";
    const char* timecodes[] = {"10:00:00:00", "10:01:00:00"};
    for (int i = 0; i < 2; ++i) {
        const std::string name = i == 0 ? "C0001" : "C0002";
        EXPECT_NE(cards.find(name + "  (XAVCS, 3 files)"), std::string::npos) << cards;
        const Av::ClipInfo clip = Probe(m4 + "CLIP/" + name + ".MP4");
        EXPECT_EQ(Picture(clip), "h264 High 320x180 25/1");
        EXPECT_EQ(clip.frameCount, 10);
        EXPECT_EQ(clip.startTimecode, timecodes[i]);
        EXPECT_EQ(clip.audioChannels, 2);
        // The camera's index says how long the clip is, in frames.
        EXPECT_NE(ReadFileBytes(Native("media/" + m4 + "CLIP/" + name + "M01.XML")).find("<Duration value=\"10\"/>"),
                  std::string::npos);
    }
}

// The proxy of a P2 clip is named as the card names it and joins the channels the card keeps apart.
TEST_F(SampleMediaTest, P2CardHoldsOpAtomVideoAndOneFilePerAudioChannelWhichItsProxyJoins) {
    MakeCards({"p2"});
    const std::string cards = Cards("P2_CARD");
    EXPECT_NE(cards.find("Interview 0001AB  (P2, "), std::string::npos) << "named by its UserClipName\n" << cards;
    EXPECT_NE(cards.find("0002AB  (P2, 5 files)"), std::string::npos) << cards;
    const Av::ClipInfo video = Probe("P2_CARD/CONTENTS/VIDEO/0002AB.MXF");
    EXPECT_EQ(Picture(video), "dnxhd DNXHR LB 320x180 25/1");
    EXPECT_EQ(video.audioStreams, 0);
    EXPECT_EQ(video.startTimecode, "10:01:00:00");
    EXPECT_NEAR(video.durationSeconds, 0.4, 0.001);
    for (const std::string channel : {"00", "01"}) {
        const Av::ClipInfo audio = Probe("P2_CARD/CONTENTS/AUDIO/0002AB" + channel + ".MXF");
        EXPECT_EQ(audio.videoStreams, 0);
        EXPECT_EQ(audio.audioCodec, "pcm_s24le");
        EXPECT_EQ(audio.audioChannels, 1);
        EXPECT_NEAR(audio.durationSeconds, video.durationSeconds, 0.001) << channel;
    }

    const Ran run = RunIgd({"ingest", Native("media/P2_CARD"), "--to", Native("Proxies") + ":Apple ProRes 422 Proxy"});
    ASSERT_EQ(run.exitCode, 0) << run.Said();
    const Av::ClipInfo proxy = Av::ProbeClip(Native("Proxies/Interview 0001AB.mov"));
    EXPECT_EQ(Picture(proxy), "prores Proxy 320x180 25/1");
    EXPECT_EQ(proxy.audioChannels, 2);
    EXPECT_NEAR(proxy.durationSeconds, 0.4, 0.001);
    EXPECT_EQ(proxy.startTimecode, "10:00:00:00");
}

// The NTSC rate checks that frames, timecode and the sound agree where seconds are not whole.
TEST_F(SampleMediaTest, GoProCardHoldsTwoChaptersWithContinuousTimecodeThenASingleChapterVideo) {
    MakeCards({"gopro", "--rate", "30000/1001", "--size", "256x144"});
    const std::string cards = Cards("GOPRO_CARD");
    EXPECT_NE(cards.find("GH010001  (GoPro, 3 files)"), std::string::npos) << cards;
    EXPECT_NE(cards.find("GH010002  (GoPro, 2 files)"), std::string::npos) << cards;

    const std::string d = "GOPRO_CARD/DCIM/100GOPRO/";
    const Av::ClipInfo first = Probe(d + "GH010001.MP4");
    const Av::ClipInfo second = Probe(d + "GH020001.MP4");
    EXPECT_EQ(first.frameCount, 12);
    EXPECT_EQ(Picture(first), "h264 High 256x144 30000/1001");
    EXPECT_EQ(first.startTimecode, "10:00:00:00");
    EXPECT_EQ(second.startTimecode, "10:00:00:12") << "the second chapter starts where the first ends";
    EXPECT_NEAR(first.durationSeconds + second.durationSeconds, 24 * 1001 / 30000.0, 0.002);
    EXPECT_EQ(Probe(d + "GH010002.MP4").startTimecode, "10:01:00:00");
}

TEST_F(SampleMediaTest, PlainFolderAlternatesProResMovAndH264Mp4AndIsNoCard) {
    MakeCards({"plain", "--clips", "3"});
    EXPECT_NE(Cards("PLAIN").find("No camera card structure"), std::string::npos);
    const char* files[] = {"A001C001.mov", "A001C002.mp4", "A001C003.mov"};
    const char* pictures[] = {"prores Proxy 320x180 25/1", "h264 High 320x180 25/1", "prores Proxy 320x180 25/1"};
    for (int i = 0; i < 3; ++i) {
        const Av::ClipInfo clip = Probe(std::string("PLAIN/") + files[i]);
        EXPECT_EQ(Picture(clip), pictures[i]) << files[i];
        EXPECT_EQ(clip.audioStreams, 1);
        EXPECT_NEAR(clip.durationSeconds, 0.4, 0.001);
    }
}

TEST_F(SampleMediaTest, RefusesWhatItCannotMakeBeforeWritingAnything) {
    EXPECT_EQ(RunProgram({IGD_SAMPLE_MEDIA_TOOL, Native("media"), "p2", "--size", "160x90"}), 1);
    EXPECT_EQ(RunProgram({IGD_SAMPLE_MEDIA_TOOL, Native("media"), "dv"}), 1);
    EXPECT_EQ(RunProgram({IGD_SAMPLE_MEDIA_TOOL, Native("media"), "--rate", "fast"}), 1);
    EXPECT_FALSE(std::filesystem::exists(Native("media")));
}

} // namespace
} // namespace igd::test
