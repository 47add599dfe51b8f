#pragma once
// Real media for tests, made by the ffmpeg program: a moving test pattern with a tone and a start
// timecode, small enough to make in a fraction of a second.
#include <string>
#include <vector>

namespace igd::test {

struct TestClipOptions {
    int width = 320;
    int height = 180;
    std::string frameRate = "25"; // as ffmpeg takes it: "25", "30000/1001"
    double seconds = 1.0;
    bool audio = true;
    std::string videoCodec = "mpeg4"; // any encoder of the ffmpeg program: "prores_ks", "libx264", ...
    std::string audioCodec = "pcm_s16le";
    std::string timecode = "01:00:00:00"; // empty: none recorded
    std::vector<std::string> extraArguments{}; // before the output path, e.g. {"-f", "mxf_opatom"}
};

// Runs a program found on PATH with the arguments (the program's name first) and answers its exit
// code: 127 when it could not be started, 128 plus the signal when one ended it.
int RunProgram(const std::vector<std::string>& arguments);

// Writes the clip to path (its extension chooses the container unless the extra arguments do);
// fails the calling test through an exception when ffmpeg does not make it.
void MakeTestClip(const std::string& path, const TestClipOptions& clip = {});

} // namespace igd::test
