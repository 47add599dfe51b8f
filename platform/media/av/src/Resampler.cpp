#include "Resampler.h"

#include <algorithm>
#include <stdexcept>

#include "Av/MediaError.h"

extern "C" {
#include <libswresample/swresample.h>
}

namespace Av {

Resampler::Resampler(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout)
    : format_(format), sampleRate_(sampleRate) {
    av_channel_layout_copy(&layout_, &layout);
    queue_ = av_audio_fifo_alloc(format_, layout_.nb_channels, 4096);
    if (queue_ == nullptr)
        throw std::bad_alloc();
}

Resampler::~Resampler() {
    swr_free(&context_);
    av_audio_fifo_free(queue_);
    av_channel_layout_uninit(&layout_);
    av_channel_layout_uninit(&inputLayout_);
}

void Resampler::Push(const AVFrame& input) {
    if (context_ == nullptr || input.format != inputFormat_ || input.sample_rate != inputRate_ ||
        av_channel_layout_compare(&input.ch_layout, &inputLayout_) != 0) {
        Flush();
        AVChannelLayout inputLayout{};
        if (input.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
            av_channel_layout_default(&inputLayout, input.ch_layout.nb_channels);
        else
            av_channel_layout_copy(&inputLayout, &input.ch_layout);
        const int allocated =
            swr_alloc_set_opts2(&context_, &layout_, format_, sampleRate_, &inputLayout,
                                static_cast<AVSampleFormat>(input.format), input.sample_rate, 0, nullptr);
        av_channel_layout_uninit(&inputLayout);
        if (allocated < 0 || swr_init(context_) < 0)
            throw MediaError("the sound cannot be converted to the output's format");
        av_channel_layout_uninit(&inputLayout_);
        av_channel_layout_copy(&inputLayout_, &input.ch_layout);
        inputFormat_ = input.format;
        inputRate_ = input.sample_rate;
    }
    Convert(input.extended_data, input.nb_samples);
}

void Resampler::Flush() {
    if (context_ == nullptr)
        return;
    Convert(nullptr, 0);
    swr_free(&context_);
}

FramePtr Resampler::NewBuffer(int samples) const {
    FramePtr frame = NewFrame();
    frame->format = format_;
    frame->sample_rate = sampleRate_;
    frame->nb_samples = samples;
    av_channel_layout_copy(&frame->ch_layout, &layout_);
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        throw std::bad_alloc();
    return frame;
}

void Resampler::Convert(const std::uint8_t* const* input, int samples) {
    const int room = swr_get_out_samples(context_, samples);
    if (room <= 0)
        return;
    FramePtr converted = NewBuffer(room);
    const int made = swr_convert(context_, converted->extended_data, room,
                                 const_cast<const std::uint8_t**>(input), samples);
    if (made < 0)
        throw MediaError("the sound cannot be converted to the output's format");
    if (made > 0 && av_audio_fifo_write(queue_, reinterpret_cast<void**>(converted->extended_data), made) < made)
        throw std::bad_alloc();
}

void Resampler::PushSilence(int samples) {
    if (samples <= 0)
        return;
    FramePtr silence = NewBuffer(samples);
    av_samples_set_silence(silence->extended_data, 0, samples, layout_.nb_channels, format_);
    if (av_audio_fifo_write(queue_, reinterpret_cast<void**>(silence->extended_data), samples) < samples)
        throw std::bad_alloc();
}

void Resampler::DropLast(int samples) {
    const int keep = Queued() - std::min(samples, Queued());
    FramePtr kept = Pull(keep);
    av_audio_fifo_reset(queue_);
    if (kept && av_audio_fifo_write(queue_, reinterpret_cast<void**>(kept->extended_data), keep) < keep)
        throw std::bad_alloc();
}

int Resampler::Queued() const {
    return av_audio_fifo_size(queue_);
}

FramePtr Resampler::Pull(int samples) {
    samples = std::min(samples, Queued());
    if (samples <= 0)
        return nullptr;
    FramePtr frame = NewBuffer(samples);
    av_audio_fifo_read(queue_, reinterpret_cast<void**>(frame->extended_data), samples);
    return frame;
}

} // namespace Av
