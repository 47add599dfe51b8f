#include "Scaler.h"

#include <stdexcept>

#include "Av/MediaError.h"

extern "C" {
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace Av {

Scaler::Scaler(int width, int height, AVPixelFormat format) : width_(width), height_(height), format_(format) {}

Scaler::~Scaler() {
    sws_freeContext(context_);
}

const AVFrame& Scaler::Convert(const AVFrame& input) {
    if (input.width == width_ && input.height == height_ && input.format == format_)
        return input;
    if (context_ == nullptr || input.width != inputWidth_ || input.height != inputHeight_ ||
        input.format != inputFormat_) {
        sws_freeContext(context_);
        context_ = sws_alloc_context();
        if (context_ == nullptr)
            throw std::bad_alloc();
        av_opt_set_int(context_, "srcw", input.width, 0);
        av_opt_set_int(context_, "srch", input.height, 0);
        av_opt_set_int(context_, "src_format", input.format, 0);
        av_opt_set_int(context_, "dstw", width_, 0);
        av_opt_set_int(context_, "dsth", height_, 0);
        av_opt_set_int(context_, "dst_format", format_, 0);
        av_opt_set_int(context_, "sws_flags", SWS_BICUBIC, 0);
        av_opt_set_int(context_, "threads", 0, 0);
        if (sws_init_context(context_, nullptr, nullptr) < 0) {
            sws_freeContext(context_);
            context_ = nullptr;
            throw MediaError("the picture cannot be converted to the output's size and pixel format");
        }
        inputWidth_ = input.width;
        inputHeight_ = input.height;
        inputFormat_ = input.format;
    }
    // The encoder has let go of the last picture by now unless it keeps frames in flight; reusing
    // its buffer spares mapping and faulting in megabytes per frame.
    if (!output_ || !av_frame_is_writable(output_.get())) {
        output_ = NewFrame();
        output_->width = width_;
        output_->height = height_;
        output_->format = format_;
        if (av_frame_get_buffer(output_.get(), 0) < 0)
            throw std::bad_alloc();
    }
    av_frame_copy_props(output_.get(), &input);
    if (sws_scale_frame(context_, output_.get(), &input) < 0)
        throw MediaError("the picture cannot be converted to the output's size and pixel format");
    return *output_;
}

} // namespace Av
