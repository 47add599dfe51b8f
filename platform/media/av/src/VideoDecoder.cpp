#include "VideoDecoder.h"

#include <cmath>

#include "Av/MediaError.h"

namespace Av {
namespace {

// What a decoder needs to start. Containers such as QuickTime and MXF say it in their header;
// MPEG transport streams (AVCHD) need their first packets read.
bool HeaderSaysEnough(AVFormatContext& format) {
    const int index = av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0)
        return false;
    const AVCodecParameters& codec = *format.streams[index]->codecpar;
    return codec.codec_id != AV_CODEC_ID_NONE && codec.width > 0 && codec.height > 0;
}

std::int64_t StartOf(const AVStream& stream) {
    return stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
}

} // namespace

VideoDecoder::VideoDecoder(AvFormatInput& input) : input_(input) {
    if (!HeaderSaysEnough(input.Context()))
        input.FindStreamInfo();
    const int index = av_find_best_stream(&input.Context(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0)
        throw MediaError(input.Path() + ": has no video");
    stream_ = input.Context().streams[index];
    decoder_.emplace(*stream_, input.Path());
    // Only the picture is read.
    for (unsigned i = 0; i < input.Context().nb_streams; ++i)
        if (input.Context().streams[i] != stream_)
            input.Context().streams[i]->discard = AVDISCARD_ALL;
}

void VideoDecoder::SeekBefore(double seconds) {
    const auto target = StartOf(*stream_) + std::llround(seconds / av_q2d(stream_->time_base));
    // A file that cannot seek is read from its start instead.
    av_seek_frame(&input_.Context(), stream_->index, target, AVSEEK_FLAG_BACKWARD);
    decoder_->Flush();
    atEnd_ = false;
}

bool VideoDecoder::Next(AVFrame& frame) {
    while (!decoder_->Receive(frame)) {
        if (atEnd_)
            return false;
        if (av_read_frame(&input_.Context(), packet_.get()) < 0) {
            // The end, or a file cut short: what the decoder holds still comes out.
            decoder_->Send(nullptr);
            atEnd_ = true;
            continue;
        }
        if (packet_->stream_index == stream_->index)
            decoder_->Send(packet_.get());
        av_packet_unref(packet_.get());
    }
    return true;
}

double VideoDecoder::SecondsOf(const AVFrame& frame) const {
    const std::int64_t time = frame.best_effort_timestamp;
    return time == AV_NOPTS_VALUE ? 0.0 : double(time - StartOf(*stream_)) * av_q2d(stream_->time_base);
}

} // namespace Av
