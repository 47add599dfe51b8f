#include "FrameScaler.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

extern "C" {
#include <libavutil/imgutils.h>
}

namespace Av {

int ScaledHeight(const AVFrame& frame, int width) {
    const AVRational pixel = frame.sample_aspect_ratio.num > 0 ? frame.sample_aspect_ratio : AVRational{1, 1};
    const double displayWidth = double(frame.width) * av_q2d(pixel);
    return std::max(1, int(std::lround(double(width) * frame.height / displayWidth)));
}

AvFramePtr ScaleToRgb(const AVFrame& frame, int width) {
    const int height = ScaledHeight(frame, width);
    // Area averaging keeps a small picture free of the aliasing a bilinear shrink leaves.
    const int method = width < frame.width ? SWS_AREA : SWS_BICUBIC;
    SwsContextPtr scaler(sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), width,
                                        height, AV_PIX_FMT_RGB24, method, nullptr, nullptr, nullptr));
    if (!scaler)
        throw std::runtime_error("no scaler from the decoded picture's pixel format");
    AvFramePtr rgb = NewFrame();
    rgb->width = width;
    rgb->height = height;
    rgb->format = AV_PIX_FMT_RGB24;
    if (av_frame_get_buffer(rgb.get(), 0) < 0)
        throw std::bad_alloc();
    sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, rgb->data, rgb->linesize);
    return rgb;
}

} // namespace Av
