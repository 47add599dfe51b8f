#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Av/Transcoder.h"
#include "Encoder.h"
#include "OutputMuxer.h"
#include "Resampler.h"
#include "Scaler.h"

namespace Av {

// The outputs that share one set of settings: one video and one audio encoder whose packets go to
// every file of the group. Pictures are dropped or repeated to the output's frame rate by their
// time; sound follows its picture across the spans of a stitch, cut or padded with silence so
// that neither drifts. An encoder's failure ends the group; a file's failure ends only that file.
class OutputGroup {
public:
    OutputGroup(const EncoderSettings& settings, const std::vector<TranscodeOutput>& outputs,
                std::vector<std::size_t> members, const SourceFormat& source, const std::string& timecode);
    ~OutputGroup();
    OutputGroup(const OutputGroup&) = delete;
    OutputGroup& operator=(const OutputGroup&) = delete;

    bool Active() const;
    bool WantsSound() const { return soundEncoder_.has_value(); }

    void Picture(const AVFrame& frame, double at, double frameSeconds);
    void Sound(const AVFrame& frame);
    // The span ended: the sound is brought to the length of the picture.
    void EndSpan();
    void Finish();

    const std::vector<std::size_t>& Members() const { return members_; }
    // The reason output member i failed, empty when it was written whole.
    std::string ErrorOf(std::size_t i) const;
    ExpectedOutput Expected(double seconds) const;

private:
    void FailAll(const std::string& why);
    void EncodeQueuedSound(bool all);
    void Deliver(AVPacket& packet, int stream, AVRational timeBase);

    std::vector<std::size_t> members_;
    std::vector<std::unique_ptr<OutputMuxer>> muxers_;
    std::vector<int> pictureStreams_;
    std::vector<int> soundStreams_;
    std::optional<Encoder> pictureEncoder_;
    std::optional<Encoder> soundEncoder_;
    std::unique_ptr<Scaler> scaler_;
    std::unique_ptr<Resampler> resampler_;
    std::string groupError_;
    AVRational frameRate_{25, 1};
    std::int64_t nextSlot_ = 0;
    std::int64_t spanFirstSlot_ = 0;
    std::int64_t samplesSent_ = 0;
    int soundFrameSize_ = 1024;
};

} // namespace Av
