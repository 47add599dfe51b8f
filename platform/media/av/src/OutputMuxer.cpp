#include "OutputMuxer.h"

#include <cerrno>

#include "AvFormatInput.h"

extern "C" {
#include <libavutil/dict.h>
}

namespace Av {

OutputMuxer::OutputMuxer(const std::string& path, const std::string& container) : path_(path) {
    QuietFFmpegLog();
    if (avformat_alloc_output_context2(&context_, nullptr, container.c_str(), path.c_str()) < 0 ||
        context_ == nullptr) {
        context_ = nullptr;
        error_ = path + ": the container " + container + " is not in this build of FFmpeg";
    }
}

OutputMuxer::~OutputMuxer() {
    Close();
}

void OutputMuxer::Close() {
    if (context_ == nullptr)
        return;
    if ((context_->oformat->flags & AVFMT_NOFILE) == 0)
        avio_closep(&context_->pb);
    avformat_free_context(context_);
    context_ = nullptr;
}

bool OutputMuxer::GlobalHeader() const {
    return context_ != nullptr && (context_->oformat->flags & AVFMT_GLOBALHEADER) != 0;
}

void OutputMuxer::Fail(const std::string& what, int code) {
    if (Failed())
        return;
    error_ = path_ + ": " + (code == AVERROR(ENOSPC) ? std::string("the disk is full") : what + " (" + AvErrorText(code) + ")");
    Close();
}

int OutputMuxer::AddStream(const AVCodecContext& encoder) {
    if (Failed())
        return -1;
    AVStream* stream = avformat_new_stream(context_, nullptr);
    if (stream == nullptr)
        throw std::bad_alloc();
    avcodec_parameters_from_context(stream->codecpar, &encoder);
    stream->time_base = encoder.time_base;
    if (encoder.codec_type == AVMEDIA_TYPE_VIDEO) {
        stream->avg_frame_rate = encoder.framerate;
        stream->r_frame_rate = encoder.framerate;
        stream->sample_aspect_ratio = encoder.sample_aspect_ratio;
    }
    return stream->index;
}

int OutputMuxer::AddCopiedStream(const AVCodecParameters& source, AVRational timeBase, AVRational frameRate) {
    if (Failed())
        return -1;
    AVStream* stream = avformat_new_stream(context_, nullptr);
    if (stream == nullptr)
        throw std::bad_alloc();
    avcodec_parameters_copy(stream->codecpar, &source);
    stream->codecpar->codec_tag = 0;
    stream->time_base = timeBase;
    if (source.codec_type == AVMEDIA_TYPE_VIDEO) {
        stream->avg_frame_rate = frameRate;
        stream->r_frame_rate = frameRate;
        stream->sample_aspect_ratio = source.sample_aspect_ratio;
    }
    return stream->index;
}

void OutputMuxer::SetTimecode(const std::string& timecode) {
    if (!Failed() && !timecode.empty())
        av_dict_set(&context_->metadata, "timecode", timecode.c_str(), 0);
}

void OutputMuxer::Start() {
    if (Failed())
        return;
    if ((context_->oformat->flags & AVFMT_NOFILE) == 0) {
        if (const int opened = avio_open(&context_->pb, path_.c_str(), AVIO_FLAG_WRITE); opened < 0) {
            Fail("it cannot be created", opened);
            return;
        }
    }
    if (const int written = avformat_write_header(context_, nullptr); written < 0) {
        Fail("the container refuses these streams", written);
        return;
    }
    started_ = true;
}

void OutputMuxer::Write(AVPacket& packet, int stream, AVRational timeBase) {
    if (Failed()) {
        av_packet_unref(&packet);
        return;
    }
    packet.stream_index = stream;
    av_packet_rescale_ts(&packet, timeBase, context_->streams[stream]->time_base);
    if (const int written = av_interleaved_write_frame(context_, &packet); written < 0)
        Fail("it cannot be written", written);
}

void OutputMuxer::Finish() {
    if (Failed() || !started_)
        return;
    if (const int written = av_write_trailer(context_); written < 0) {
        Fail("its index cannot be written", written);
        return;
    }
    if ((context_->oformat->flags & AVFMT_NOFILE) == 0) {
        if (const int closed = avio_closep(&context_->pb); closed < 0) {
            Fail("it cannot be closed", closed);
            return;
        }
    }
    Close();
}

} // namespace Av
