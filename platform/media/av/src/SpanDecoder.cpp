#include "SpanDecoder.h"

#include <memory>

#include "Av/MediaError.h"
#include "AvFormatInput.h"
#include "AvHandles.h"
#include "ChannelFiles.h"
#include "Decoder.h"
#include "SoundTrim.h"
#include "SecondsText.h"

namespace Av {
namespace {

int PictureStream(const AVFormatContext& format, const std::string& path) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const AVStream& stream = *format.streams[i];
        if (stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0)
            return int(i);
    }
    throw MediaError(path + ": the clip has no video");
}

class SpanDecoding {
public:
    SpanDecoding(const SegmentSpan& span, bool wantSound, const SpanSinks& sinks)
        : span_(span), sinks_(sinks), input_(span.segment->video) {
        AVFormatContext& format = input_.Context();
        pictureStream_ = PictureStream(format, input_.Path());
        const AVStream& picture = *format.streams[pictureStream_];
        pictureDecoder_ = std::make_unique<Decoder>(picture, input_.Path());
        pictureBase_ = picture.time_base;
        pictureStart_ = picture.start_time == AV_NOPTS_VALUE ? 0 : picture.start_time;
        frameSeconds_ = span.video.FrameSeconds();
        if (wantSound && !span.segment->audio.empty()) {
            channelFiles_ = std::make_unique<ChannelFiles>(span.segment->audio, span.from, span.length);
        } else if (wantSound) {
            soundStream_ = av_find_best_stream(&format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
            if (soundStream_ >= 0) {
                const AVStream& sound = *format.streams[soundStream_];
                soundDecoder_ = std::make_unique<Decoder>(sound, input_.Path());
                soundWindow_ = {sound.time_base, sound.start_time == AV_NOPTS_VALUE ? 0 : sound.start_time,
                                span.from, span.length};
            }
        }
        if (span.from > 0)
            av_seek_frame(&format, pictureStream_,
                          pictureStart_ + std::int64_t(span.from / av_q2d(pictureBase_)), AVSEEK_FLAG_BACKWARD);
    }

    void Run() {
        const PacketPtr packet = NewPacket();
        while (!(pictureDone_ && (soundDecoder_ == nullptr || soundDone_))) {
            sinks_.betweenPackets();
            if (av_read_frame(&input_.Context(), packet.get()) < 0)
                break;
            if (packet->stream_index == pictureStream_ && !pictureDone_) {
                pictureDecoder_->Send(packet.get());
                ReceivePictures();
            } else if (packet->stream_index == soundStream_ && soundDecoder_ && !soundDone_) {
                soundDecoder_->Send(packet.get());
                ReceiveSound();
            }
            av_packet_unref(packet.get());
        }
        pictureDecoder_->Send(nullptr);
        ReceivePictures();
        if (soundDecoder_) {
            soundDecoder_->Send(nullptr);
            ReceiveSound();
        }
        if (channelFiles_)
            channelFiles_->ReadUntil(span_.length, sinks_.sound, true);
        if (pictureEnd_ < span_.length - frameSeconds_ - 1e-6)
            throw MediaError(input_.Path() + ": the clip is truncated: its picture ends at " +
                             SecondsText(span_.from + pictureEnd_) + " of the " + SecondsText(span_.from + span_.length) +
                             " its file promises");
    }

private:
    void ReceivePictures() {
        while (pictureDecoder_->Receive(*frame_)) {
            const std::int64_t pts = frame_->best_effort_timestamp;
            const double at = pts == AV_NOPTS_VALUE
                                  ? pictureEnd_
                                  : double(pts - pictureStart_) * av_q2d(pictureBase_) - span_.from;
            if (at >= span_.length - frameSeconds_ / 2)
                pictureDone_ = true;
            else if (at >= -frameSeconds_ / 2) {
                sinks_.picture(*frame_, at, frameSeconds_);
                pictureEnd_ = at + frameSeconds_;
                if (channelFiles_)
                    channelFiles_->ReadUntil(pictureEnd_ + 0.5, sinks_.sound);
            }
            av_frame_unref(frame_.get());
        }
    }

    void ReceiveSound() {
        while (soundDecoder_->Receive(*frame_)) {
            bool pastEnd = false;
            if (const FramePtr part = TrimSound(*frame_, soundWindow_, pastEnd))
                sinks_.sound(*part);
            soundDone_ = soundDone_ || pastEnd;
            av_frame_unref(frame_.get());
        }
    }

    const SegmentSpan& span_;
    const SpanSinks& sinks_;
    AvFormatInput input_;
    int pictureStream_ = -1;
    std::unique_ptr<Decoder> pictureDecoder_;
    AVRational pictureBase_{1, 1};
    std::int64_t pictureStart_ = 0;
    double frameSeconds_ = 0;
    double pictureEnd_ = 0;
    bool pictureDone_ = false;
    int soundStream_ = -1;
    std::unique_ptr<Decoder> soundDecoder_;
    SoundWindow soundWindow_;
    bool soundDone_ = false;
    std::unique_ptr<ChannelFiles> channelFiles_;
    FramePtr frame_ = NewFrame();
};

} // namespace

void DecodeSpan(const SegmentSpan& span, bool wantSound, const SpanSinks& sinks) {
    SpanDecoding(span, wantSound, sinks).Run();
}

} // namespace Av
