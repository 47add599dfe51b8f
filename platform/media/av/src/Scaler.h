#pragma once
#include "AvHandles.h"

struct SwsContext;

namespace Av {

// Brings decoded pictures to an encoder's size and pixel format, on slice threads. Clips of a
// stitch may differ in size or format, so the conversion is set up again when the input changes;
// a picture already as wanted passes through untouched.
class Scaler {
public:
    Scaler(int width, int height, AVPixelFormat format);
    ~Scaler();
    Scaler(const Scaler&) = delete;
    Scaler& operator=(const Scaler&) = delete;

    // The picture to encode: input itself when nothing needs converting, else a converted copy
    // valid until the next call.
    const AVFrame& Convert(const AVFrame& input);

private:
    int width_;
    int height_;
    AVPixelFormat format_;
    SwsContext* context_ = nullptr;
    int inputWidth_ = 0;
    int inputHeight_ = 0;
    int inputFormat_ = AV_PIX_FMT_NONE;
    FramePtr output_;
};

} // namespace Av
