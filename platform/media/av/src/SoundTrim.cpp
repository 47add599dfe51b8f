#include "SoundTrim.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace Av {

FramePtr TrimSound(const AVFrame& frame, const SoundWindow& window, bool& pastEnd) {
    pastEnd = false;
    const std::int64_t pts = frame.best_effort_timestamp;
    if (pts == AV_NOPTS_VALUE || frame.sample_rate <= 0) {
        FramePtr whole(av_frame_clone(&frame));
        return whole;
    }
    const double at = double(pts - window.start) * av_q2d(window.timeBase) - window.from;
    const int first = int(std::clamp<std::int64_t>(std::llround(-at * frame.sample_rate), 0, frame.nb_samples));
    const int last = int(std::clamp<std::int64_t>(std::llround((window.length - at) * frame.sample_rate), 0,
                                                  frame.nb_samples));
    if (last == 0 && at >= window.length - 1e-9)
        pastEnd = true;
    if (last <= first)
        return nullptr;
    if (first == 0 && last == frame.nb_samples)
        return FramePtr(av_frame_clone(&frame));
    FramePtr part = NewFrame();
    part->format = frame.format;
    part->sample_rate = frame.sample_rate;
    part->nb_samples = last - first;
    av_channel_layout_copy(&part->ch_layout, &frame.ch_layout);
    if (av_frame_get_buffer(part.get(), 0) < 0)
        throw std::bad_alloc();
    av_samples_copy(part->extended_data, frame.extended_data, 0, first, last - first,
                    frame.ch_layout.nb_channels, static_cast<AVSampleFormat>(frame.format));
    part->pts = pts;
    return part;
}

} // namespace Av
