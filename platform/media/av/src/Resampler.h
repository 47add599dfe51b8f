#pragma once
#include <cstdint>

extern "C" {
#include <libavutil/audio_fifo.h>
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
}

#include "AvHandles.h"

struct SwrContext;

namespace Av {

// Converts sound to one sample format, rate and channel layout and keeps it in a queue, from which
// frames of the size an encoder takes are read (aac takes exactly 1024 samples a frame). The
// conversion is set up again when the input changes, between the clips of a stitch.
class Resampler {
public:
    Resampler(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout);
    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    void Push(const AVFrame& input);
    // Everything held back by the conversion into the queue: the input ended or will change.
    void Flush();
    void PushSilence(int samples);
    // Forgets the last samples of the queue, to keep sound no longer than its picture.
    void DropLast(int samples);

    int Queued() const;
    // Up to samples from the queue as a new frame; nullptr when it is empty.
    FramePtr Pull(int samples);

    int SampleRate() const { return sampleRate_; }

private:
    void Convert(const std::uint8_t* const* input, int samples);
    FramePtr NewBuffer(int samples) const;

    AVSampleFormat format_;
    int sampleRate_;
    AVChannelLayout layout_{};
    SwrContext* context_ = nullptr;
    AVChannelLayout inputLayout_{};
    int inputFormat_ = AV_SAMPLE_FMT_NONE;
    int inputRate_ = 0;
    AVAudioFifo* queue_ = nullptr;
};

} // namespace Av
