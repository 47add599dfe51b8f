#include "Decoder.h"

#include "Av/MediaError.h"
#include "AvFormatInput.h"

namespace Av {

Decoder::Decoder(const AVStream& stream, const std::string& path) {
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    if (codec == nullptr)
        throw MediaError(path + ": this build of FFmpeg cannot decode " +
                         avcodec_get_name(stream.codecpar->codec_id));
    context_ = avcodec_alloc_context3(codec);
    if (context_ == nullptr)
        throw std::bad_alloc();
    avcodec_parameters_to_context(context_, stream.codecpar);
    context_->pkt_timebase = stream.time_base;
    context_->thread_count = 0;
    context_->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
    if (const int opened = avcodec_open2(context_, codec, nullptr); opened < 0) {
        avcodec_free_context(&context_);
        throw MediaError(path + ": its " + avcodec_get_name(stream.codecpar->codec_id) +
                         " stream cannot be decoded (" + AvErrorText(opened) + ")");
    }
}

Decoder::~Decoder() {
    avcodec_free_context(&context_);
}

void Decoder::Send(const AVPacket* packet) {
    if (drained_)
        return;
    if (packet == nullptr)
        drained_ = true;
    const int sent = avcodec_send_packet(context_, packet);
    if (sent < 0 && sent != AVERROR_EOF)
        ++errors_;
}

bool Decoder::Receive(AVFrame& frame) {
    // A frame-threaded decoder reports the damage of earlier packets here, one error per call.
    for (int attempt = 0; attempt < 64; ++attempt) {
        const int received = avcodec_receive_frame(context_, &frame);
        if (received >= 0)
            return true;
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF)
            return false;
        ++errors_;
    }
    return false;
}

void Decoder::Flush() {
    avcodec_flush_buffers(context_);
    drained_ = false;
}

} // namespace Av
