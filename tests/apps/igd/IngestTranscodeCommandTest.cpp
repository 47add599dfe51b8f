// `igd ingest` with transcoding destinations as a user runs it: real clips, ffprobe (not our own
// probe) reading back what landed, and a kill in the middle of an encode.
#include <gtest/gtest.h>
#include <signal.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "QL/Engine/FileCopier.h"
#include "apps/igd/IgdCommand.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

// What the file's first video stream is, "codec,width,height,rate", and how long the file lasts.
struct Probed {
    std::string stream;
    double seconds = 0;
};

Probed Probe(const std::string& path) {
    const auto run = [](const std::string& command) {
        std::string out;
        if (FILE* pipe = ::popen(command.c_str(), "r")) {
            char buffer[256];
            while (std::fgets(buffer, sizeof buffer, pipe))
                out += buffer;
            ::pclose(pipe);
        }
        while (!out.empty() && (out.back() == '\n' || out.back() == ','))
            out.pop_back();
        return out;
    };
    const std::string quoted = "'" + path + "'";
    const std::string seconds = run("ffprobe -v error -show_entries format=duration -of csv=p=0 " + quoted);
    return {run("ffprobe -v error -select_streams v:0 -show_entries stream=codec_name,width,height,r_frame_rate "
                "-of csv=p=0 " + quoted),
            seconds.empty() ? -1 : std::stod(seconds)};
}

std::vector<std::string> TemporariesBelow(const std::string& root) {
    std::vector<std::string> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error))
        if (QL::Engine::FileCopier::IsTemporaryName(entry.path().filename().string()))
            found.push_back(entry.path().string());
    return found;
}

class IgdTranscodeCommandTest : public IgdCommandTest {
protected:
    void Clip(const std::string& relative, double seconds, int width = 320, int height = 180,
              const std::string& rate = "25") {
        std::filesystem::create_directories(std::filesystem::path(Native(relative)).parent_path());
        TestClipOptions clip;
        clip.seconds = seconds;
        clip.width = width;
        clip.height = height;
        clip.frameRate = rate;
        clip.videoCodec = "libx264";
        clip.audioCodec = "aac";
        MakeTestClip(Native(relative), clip);
    }
};

TEST_F(IgdTranscodeCommandTest, AGoProVideoStitchedIsOneFileAsLongAsItsChapters) {
    Clip("GOPRO/DCIM/100GOPRO/GH010001.MP4", 1.0);
    Clip("GOPRO/DCIM/100GOPRO/GH020001.MP4", 0.6);
    tree.MakeFile("main/Day1.mov", "the user's own file");
    const Ran ran = RunIgd({"ingest", Native("GOPRO"), "--to", Native("main") + ":Apple ProRes 422 Proxy",
                            "--stitch", "Day1"});
    ASSERT_EQ(ran.exitCode, 0) << ran.Said();
    const Probed stitched = Probe(Native("main/Day1 (1).mov"));
    EXPECT_EQ(stitched.stream, "prores,320,180,25/1");
    EXPECT_NEAR(stitched.seconds, 1.6, 0.04);
    EXPECT_EQ(ReadFileBytes(Native("main/Day1.mov")), "the user's own file") << "a stitch takes no existing name";
}

TEST_F(IgdTranscodeCommandTest, AProxyKeepsTheSourcesSizeAndRateBesideAVerifiedCopy) {
    Clip("SHOOT/A001.MP4", 1.0, 640, 360, "30000/1001");
    const Ran ran = RunIgd({"ingest", Native("SHOOT/A001.MP4"), "--to", Native("main"), "--to",
                            Native("proxies") + ":QuickTime:Apple ProRes 422 Proxy", "--verify", "xxh128"});
    ASSERT_EQ(ran.exitCode, 0) << ran.Said();
    EXPECT_TRUE(std::filesystem::exists(Native("main/A001.MP4")));
    const Probed proxy = Probe(Native("proxies/A001.mov"));
    EXPECT_EQ(proxy.stream, "prores,640,360,30000/1001");
    EXPECT_NEAR(proxy.seconds, 1.0, 0.034);
}

TEST_F(IgdTranscodeCommandTest, AKillDuringAnEncodeLeavesATemporaryThatResumeReplacesWithTheFile) {
    // Many small frames: long enough to be caught in the middle, cheap to make and to encode again.
    Clip("SHOOT/LONG.MP4", 40.0);
    IgdProcess ingest({"ingest", Native("SHOOT/LONG.MP4"), "--to", Native("main") + ":Apple ProRes 422 Proxy", "--json"});
    std::string line;
    bool encoding = false;
    while (!encoding && ingest.ReadLine(line))
        encoding = line.find("\"framesDone\":") != std::string::npos && line.find("\"framesDone\":0,") == std::string::npos;
    ingest.Signal(SIGSTOP);
    ASSERT_TRUE(encoding) << "the encode ended before it could be killed: " << line;
    ingest.Signal(SIGKILL);
    EXPECT_EQ(ingest.Wait(), 128 + SIGKILL);
    EXPECT_FALSE(TemporariesBelow(Native("main")).empty());
    EXPECT_FALSE(std::filesystem::exists(Native("main/LONG.mov")));

    const Ran resume = RunIgd({"resume"});
    EXPECT_EQ(resume.exitCode, 0) << resume.Said();
    EXPECT_TRUE(TemporariesBelow(Native("main")).empty());
    EXPECT_NEAR(Probe(Native("main/LONG.mov")).seconds, 40.0, 0.04);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Native("main")))
        names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"LONG.mov"});
}

} // namespace
} // namespace igd::test
