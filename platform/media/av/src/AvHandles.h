#pragma once
// Owners of FFmpeg's objects, freed with the library's own functions.
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

namespace Av {

struct AvFrameFree {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct AvPacketFree {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct AvCodecContextFree {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct SwsContextFree {
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

using AvFramePtr = std::unique_ptr<AVFrame, AvFrameFree>;
using AvPacketPtr = std::unique_ptr<AVPacket, AvPacketFree>;
using AvCodecContextPtr = std::unique_ptr<AVCodecContext, AvCodecContextFree>;
using SwsContextPtr = std::unique_ptr<SwsContext, SwsContextFree>;

// Allocations that throw std::bad_alloc rather than answer null.
AvFramePtr NewFrame();
AvPacketPtr NewPacket();

} // namespace Av
