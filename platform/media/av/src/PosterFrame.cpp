#include "Av/PosterFrame.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "Av/MediaError.h"
#include "Scaler.h"
#include "PngEncoder.h"
#include "VideoDecoder.h"

namespace Av {
namespace {

// The height a picture of the frame takes at the width, keeping its display aspect (non-square
// pixels included); at least 1.
int ScaledHeight(const AVFrame& frame, int width) {
    const AVRational pixel = frame.sample_aspect_ratio.num > 0 ? frame.sample_aspect_ratio : AVRational{1, 1};
    const double displayWidth = double(frame.width) * av_q2d(pixel);
    return std::max(1, int(std::lround(double(width) * frame.height / displayWidth)));
}

} // namespace

Mid::FrameImage DecodePosterFrame(const std::string& path, int width, double atSeconds) {
    if (width < 1)
        throw std::invalid_argument("a poster frame needs a width of at least one pixel");
    AvFormatInput input(path, false);
    VideoDecoder decoder(input);
    if (atSeconds > 0)
        decoder.SeekBefore(atSeconds);
    FramePtr chosen = NewFrame();
    FramePtr next = NewFrame();
    bool any = false;
    // The frame showing at the time: the last that starts at or before it, read on from the key
    // frame before it; the last of all when the clip ends sooner.
    while (decoder.Next(*next)) {
        if (any && decoder.SecondsOf(*next) > atSeconds + 1e-6)
            break;
        std::swap(chosen, next);
        av_frame_unref(next.get());
        any = true;
        if (atSeconds <= 0)
            break;
    }
    if (!any)
        throw MediaError(path + ": no picture could be decoded");
    const int height = ScaledHeight(*chosen, width);
    Scaler toRgb(width, height, AV_PIX_FMT_RGB24);
    return Mid::FrameImage{EncodePng(toRgb.Convert(*chosen)), width, height};
}

} // namespace Av
