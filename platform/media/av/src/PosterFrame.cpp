#include "Av/PosterFrame.h"

#include <stdexcept>
#include <utility>

#include "Av/MediaError.h"
#include "FrameScaler.h"
#include "PngEncoder.h"
#include "VideoDecoder.h"

namespace Av {

Mid::FrameImage DecodePosterFrame(const std::string& path, int width, double atSeconds) {
    if (width < 1)
        throw std::invalid_argument("a poster frame needs a width of at least one pixel");
    AvFormatInput input(path, false);
    VideoDecoder decoder(input);
    if (atSeconds > 0)
        decoder.SeekBefore(atSeconds);
    AvFramePtr chosen = NewFrame();
    AvFramePtr next = NewFrame();
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
    AvFramePtr rgb = ScaleToRgb(*chosen, width);
    return Mid::FrameImage{EncodePng(*rgb), rgb->width, rgb->height};
}

} // namespace Av
