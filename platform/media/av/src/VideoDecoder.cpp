#include "VideoDecoder.h"

#include <cmath>

#include "Av/MediaError.h"

namespace Av {

namespace {

// What a decoder needs to start. Containers such as QuickTime and MXF say it in their header;
// MPEG transport streams (AVCHD) need their first packets read.
bool HeaderSaysEnough(const AVFormatContext& format) {
    const int index = av_find_best_stream(const_cast<AVFormatContext*>(&format), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0)
        return false;
    const AVCodecParameters& codec = *format.streams[index]->codecpar;
    return codec.codec_id != AV_CODEC_ID_NONE && codec.width > 0 && codec.height > 0;
}

} // namespace

VideoDecoder::VideoDecoder(AvFormatInput& input) : input_(input) {
    if (!HeaderSaysEnough(input.Context()))
        input.FindStreamInfo();
    const AVCodec* decoder = nullptr;
    const int index = av_find_best_stream(&input.Context(), AVMEDIA_TYPE_VIDEO, -1, -1, &decoder, 0);
    if (index == AVERROR_STREAM_NOT_FOUND)
        throw MediaError(input.Path() + ": has no video");
    if (index < 0 || decoder == nullptr)
        throw MediaError(input.Path() + ": no decoder for its video in this build");
    stream_ = input.Context().streams[index];
    codec_.reset(avcodec_alloc_context3(decoder));
    if (!codec_ || avcodec_parameters_to_context(codec_.get(), stream_->codecpar) < 0)
        throw MediaError(input.Path() + ": its video cannot be decoded");
    // One picture wanted: frame threads would only delay it.
    codec_->thread_count = 1;
    codec_->pkt_timebase = stream_->time_base;
    if (const int opened = avcodec_open2(codec_.get(), decoder, nullptr); opened < 0)
        throw MediaError(input.Path() + ": its video cannot be decoded (" + AvErrorText(opened) + ")");
    // Only the picture is read.
    for (unsigned i = 0; i < input.Context().nb_streams; ++i)
        if (input.Context().streams[i] != stream_)
            input.Context().streams[i]->discard = AVDISCARD_ALL;
}

void VideoDecoder::SeekBefore(double seconds) {
    const std::int64_t start = stream_->start_time == AV_NOPTS_VALUE ? 0 : stream_->start_time;
    const auto target = start + std::llround(seconds / av_q2d(stream_->time_base));
    // A file that cannot seek is read from its start instead.
    if (av_seek_frame(&input_.Context(), stream_->index, target, AVSEEK_FLAG_BACKWARD) >= 0)
        avcodec_flush_buffers(codec_.get());
    flushed_ = false;
}

bool VideoDecoder::SendNextPacket() {
    while (true) {
        const int read = av_read_frame(&input_.Context(), packet_.get());
        if (read < 0) {
            // The end, or a file cut short: what the decoder holds still comes out.
            avcodec_send_packet(codec_.get(), nullptr);
            flushed_ = true;
            return false;
        }
        const bool ours = packet_->stream_index == stream_->index;
        const int sent = ours ? avcodec_send_packet(codec_.get(), packet_.get()) : 0;
        av_packet_unref(packet_.get());
        if (ours && sent != AVERROR_INVALIDDATA)
            return true;
    }
}

bool VideoDecoder::Next(AVFrame& frame) {
    while (true) {
        const int received = avcodec_receive_frame(codec_.get(), &frame);
        if (received == 0)
            return true;
        if (received == AVERROR_EOF)
            return false;
        if (received != AVERROR(EAGAIN))
            throw MediaError(input_.Path() + ": its video cannot be decoded (" + AvErrorText(received) + ")");
        if (flushed_)
            return false;
        SendNextPacket();
    }
}

double VideoDecoder::SecondsOf(const AVFrame& frame) const {
    const std::int64_t start = stream_->start_time == AV_NOPTS_VALUE ? 0 : stream_->start_time;
    const std::int64_t time = frame.best_effort_timestamp;
    return time == AV_NOPTS_VALUE ? 0.0 : double(time - start) * av_q2d(stream_->time_base);
}

} // namespace Av
