// The sample cards of tools/make-sample-media as igd and FFmpeg meet them: the providers find the
// clips the tool meant, and every media file holds the frames, timecode and sound it claims.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
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

// One clip of `igd cards --json`.
struct ListedClip {
    std::string name;
    std::string family;
    std::vector<std::string> files; // named below the card root
};

class SampleMediaTest : public IgdCommandTest {
protected:
    // The tool's cards under "media", with short tiny clips unless the arguments say otherwise.
    void MakeCards(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {IGD_SAMPLE_MEDIA_TOOL, Native("media")});
        arguments.insert(arguments.end(), {"--seconds", "0.4"});
        ASSERT_EQ(RunProgram(arguments), 0);
    }

    std::vector<ListedClip> Cards(const std::string& card) {
        const std::string root = Native("media/" + card) + "/";
        const Ran run = RunIgd({"cards", "--json", Native("media/" + card)});
        EXPECT_EQ(run.exitCode, 0) << run.err;
        static const std::regex clip(R"re(\{"name": "([^"]*)", "family": "([^"]*)", [^\[]*\[([^\]]*)\]\})re");
        static const std::regex file(R"re("([^"]*)")re");
        std::vector<ListedClip> clips;
        for (std::sregex_iterator at(run.out.begin(), run.out.end(), clip), end; at != end; ++at) {
            ListedClip listed{(*at)[1], (*at)[2], {}};
            const std::string files = (*at)[3];
            for (std::sregex_iterator f(files.begin(), files.end(), file); f != end; ++f)
                listed.files.push_back(std::string((*f)[1]).substr(root.size()));
            clips.push_back(std::move(listed));
        }
        return clips;
    }

    Av::ClipInfo Probe(const std::string& relative) { return Av::ProbeClip(Native("media/" + relative)); }
};

TEST_F(SampleMediaTest, XavcSCardHoldsH264ClipsWithIndexFilesThumbnailsAndTheirOwnTimecode) {
    MakeCards({"xavcs"});
    const std::vector<ListedClip> clips = Cards("XAVCS_CARD");
    ASSERT_EQ(clips.size(), 2u);
    const std::string m4 = "PRIVATE/M4ROOT/";
    const char* names[] = {"C0001", "C0002"};
    const char* timecodes[] = {"10:00:00:00", "10:01:00:00"};
    for (int i = 0; i < 2; ++i) {
        const std::string name = names[i];
        EXPECT_EQ(clips[i].name, name);
        EXPECT_EQ(clips[i].family, "XAVCS");
        EXPECT_EQ(clips[i].files, (std::vector<std::string>{m4 + "CLIP/" + name + ".MP4", m4 + "CLIP/" + name + "M01.XML",
                                                            m4 + "THMBNL/" + name + "T01.JPG"}));
        const Av::ClipInfo clip = Probe("XAVCS_CARD/" + m4 + "CLIP/" + name + ".MP4");
        EXPECT_EQ(Picture(clip), "h264 High 320x180 25/1");
        EXPECT_EQ(clip.frameCount, 10);
        EXPECT_EQ(clip.startTimecode, timecodes[i]);
        EXPECT_EQ(clip.audioChannels, 2);
        // The camera's index says how long the clip is, in frames.
        EXPECT_NE(ReadFileBytes(Native("media/XAVCS_CARD/" + m4 + "CLIP/" + name + "M01.XML"))
                      .find("<Duration value=\"10\"/>"),
                  std::string::npos);
    }
    EXPECT_NE(ReadFileBytes(Native("media/XAVCS_CARD/" + m4 + "MEDIAPRO.XML")).find("uri=\"./CLIP/C0002.MP4\""),
              std::string::npos);
}

// The proxy of a P2 clip is named as the card names it and joins the channels the card keeps apart.
TEST_F(SampleMediaTest, P2CardHoldsOpAtomVideoAndOneFilePerAudioChannelWhichItsProxyJoins) {
    MakeCards({"p2"});
    const std::vector<ListedClip> clips = Cards("P2_CARD");
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_EQ(clips[0].name, "Interview 0001AB") << "named by its UserClipName";
    EXPECT_EQ(clips[1].name, "0002AB");
    EXPECT_EQ(clips[1].family, "P2");
    EXPECT_EQ(clips[1].files,
              (std::vector<std::string>{"CONTENTS/VIDEO/0002AB.MXF", "CONTENTS/AUDIO/0002AB00.MXF",
                                        "CONTENTS/AUDIO/0002AB01.MXF", "CONTENTS/ICON/0002AB.BMP",
                                        "CONTENTS/CLIP/0002AB.XML"}));
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
    EXPECT_EQ(ReadFileBytes(Native("media/P2_CARD/LASTCLIP.TXT")), "0002AB\r\n");

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
    const std::vector<ListedClip> clips = Cards("GOPRO_CARD");
    ASSERT_EQ(clips.size(), 2u);
    const std::string d = "DCIM/100GOPRO/";
    EXPECT_EQ(clips[0].name, "GH010001");
    EXPECT_EQ(clips[0].family, "GoPro");
    EXPECT_EQ(clips[0].files,
              (std::vector<std::string>{d + "GH010001.MP4", d + "GH020001.MP4", d + "GH010001.THM"}));
    EXPECT_EQ(clips[1].files, (std::vector<std::string>{d + "GH010002.MP4", d + "GH010002.THM"}));

    const Av::ClipInfo first = Probe("GOPRO_CARD/" + d + "GH010001.MP4");
    const Av::ClipInfo second = Probe("GOPRO_CARD/" + d + "GH020001.MP4");
    EXPECT_EQ(first.frameCount, 12);
    EXPECT_EQ(Picture(first), "h264 High 256x144 30000/1001");
    EXPECT_EQ(first.startTimecode, "10:00:00:00");
    EXPECT_EQ(second.startTimecode, "10:00:00:12") << "the second chapter starts where the first ends";
    EXPECT_NEAR(first.durationSeconds + second.durationSeconds, 24 * 1001 / 30000.0, 0.002);
    EXPECT_EQ(Probe("GOPRO_CARD/" + d + "GH010002.MP4").startTimecode, "10:01:00:00");
}

TEST_F(SampleMediaTest, PlainFolderAlternatesProResMovAndH264Mp4AndIsNoCard) {
    MakeCards({"plain", "--clips", "3"});
    const Ran run = RunIgd({"cards", Native("media/PLAIN")});
    EXPECT_NE(run.out.find("No camera card structure"), std::string::npos) << run.out;
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
