#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Av/EncoderSettings.h"
#include "Av/SourceClip.h"

namespace Av {

// One file a transcode writes: where (the caller's temporary name) and how.
struct TranscodeOutput {
    std::string path;
    EncoderSettings settings;
};

struct TranscodeProgress {
    std::int64_t framesDone = 0;
    std::int64_t framesTotal = 0;
    double secondsDone = 0;  // of media
    double secondsTotal = 0;
};

// Clips decoded once, in order, into every output: several clips are stitched into one file each;
// outputs with equal settings share one encoder. When every clip's streams already match an
// output's settings and no clip is cut, that output is remuxed without decoding.
struct TranscodeRequest {
    std::vector<SourceClip> clips;
    std::vector<TranscodeOutput> outputs;
    // Called between packets: waits while the caller pauses, answers false to stop.
    std::function<bool()> checkpoint;
    // Called a few times a second at most, and once at the end.
    std::function<void(const TranscodeProgress&)> progress;
};

// What an output should show when opened again.
struct ExpectedOutput {
    int width = 0;
    int height = 0;
    int frameRateNum = 0;
    int frameRateDen = 1;
    double seconds = 0;
    bool audio = false;
};

// How one output ended: error empty when written whole, else the reason (one output's full disk
// does not stop the others).
struct OutputResult {
    std::string error;
    ExpectedOutput expected;
    bool remuxed = false; // copied without decoding: every clip already matched the settings
};

struct TranscodeResult {
    std::vector<OutputResult> outputs; // in the order of the request
    TranscodeProgress progress;
};

// Throws MediaError when the sources cannot be read (naming the file), MediaCancelled when the
// checkpoint said stop. Outputs are left as they stand for the caller to remove.
TranscodeResult Transcode(const TranscodeRequest& request);

// Opens a finished output again: the settings' video codec, the expected size and rate, audio when
// expected, and a duration within one frame of the expected. Throws MediaError naming the file and
// what differs.
void CheckTranscodedFile(const std::string& path, const EncoderSettings& settings, const ExpectedOutput& expected);

} // namespace Av
