#include "OutputGroup.h"

#include <cmath>

#include "Av/MediaError.h"

namespace Av {

OutputGroup::OutputGroup(const EncoderSettings& settings, const std::vector<TranscodeOutput>& outputs,
                         std::vector<std::size_t> members, const SourceFormat& source, const std::string& timecode)
    : members_(std::move(members)) {
    for (const std::size_t member : members_)
        muxers_.push_back(std::make_unique<OutputMuxer>(outputs[member].path, settings.container));
    const OutputMuxer& first = *muxers_.front();
    try {
        pictureEncoder_.emplace(Encoder::ForVideo(settings, source, first.GlobalHeader(), first.Path()));
        if (!settings.audioEncoder.empty() && source.audioChannels > 0)
            soundEncoder_.emplace(Encoder::ForAudio(settings, source, first.GlobalHeader(), first.Path()));
    } catch (const MediaError& error) {
        FailAll(error.what());
        return;
    }
    const AVCodecContext& picture = pictureEncoder_->Context();
    frameRate_ = picture.framerate;
    scaler_ = std::make_unique<Scaler>(picture.width, picture.height, picture.pix_fmt);
    if (soundEncoder_) {
        const AVCodecContext& sound = soundEncoder_->Context();
        resampler_ = std::make_unique<Resampler>(sound.sample_fmt, sound.sample_rate, sound.ch_layout);
        if (sound.frame_size > 0 && (sound.codec->capabilities & AV_CODEC_CAP_VARIABLE_FRAME_SIZE) == 0)
            soundFrameSize_ = sound.frame_size;
    }
    const bool carriesTimecode = settings.container == "mov" || settings.container == "mxf";
    for (const auto& muxer : muxers_) {
        pictureStreams_.push_back(muxer->AddStream(picture));
        soundStreams_.push_back(soundEncoder_ ? muxer->AddStream(soundEncoder_->Context()) : -1);
        if (carriesTimecode)
            muxer->SetTimecode(timecode);
        muxer->Start();
    }
}

OutputGroup::~OutputGroup() = default;

bool OutputGroup::Active() const {
    if (!groupError_.empty())
        return false;
    for (const auto& muxer : muxers_)
        if (!muxer->Failed())
            return true;
    return false;
}

void OutputGroup::FailAll(const std::string& why) {
    groupError_ = why;
}

std::string OutputGroup::ErrorOf(std::size_t i) const {
    return muxers_[i]->Failed() ? muxers_[i]->Error() : groupError_;
}

void OutputGroup::Deliver(AVPacket& packet, int stream, AVRational timeBase) {
    for (std::size_t i = 0; i < muxers_.size(); ++i) {
        if (muxers_[i]->Failed())
            continue;
        PacketPtr copy(av_packet_clone(&packet));
        if (!copy)
            throw std::bad_alloc();
        muxers_[i]->Write(*copy, stream == 0 ? pictureStreams_[i] : soundStreams_[i], timeBase);
    }
}

void OutputGroup::Picture(const AVFrame& frame, double at, double frameSeconds) {
    if (!Active())
        return;
    const std::int64_t endSlot =
        spanFirstSlot_ + std::llround((at + frameSeconds) * frameRate_.num / frameRate_.den);
    if (endSlot <= nextSlot_)
        return;
    try {
        const FramePtr picture(av_frame_clone(&scaler_->Convert(frame)));
        picture->pict_type = AV_PICTURE_TYPE_NONE;
        const AVRational timeBase = pictureEncoder_->Context().time_base;
        for (; nextSlot_ < endSlot; ++nextSlot_) {
            picture->pts = nextSlot_;
            pictureEncoder_->Send(picture.get(), [&](AVPacket& packet) { Deliver(packet, 0, timeBase); });
        }
    } catch (const MediaError& error) {
        FailAll(error.what());
    }
}

void OutputGroup::Sound(const AVFrame& frame) {
    if (!Active() || !resampler_)
        return;
    try {
        resampler_->Push(frame);
        EncodeQueuedSound(false);
    } catch (const MediaError& error) {
        FailAll(error.what());
    }
}

void OutputGroup::EncodeQueuedSound(bool all) {
    const AVRational timeBase = soundEncoder_->Context().time_base;
    while (resampler_->Queued() >= soundFrameSize_ || (all && resampler_->Queued() > 0)) {
        const FramePtr frame = resampler_->Pull(soundFrameSize_);
        frame->pts = samplesSent_;
        samplesSent_ += frame->nb_samples;
        soundEncoder_->Send(frame.get(), [&](AVPacket& packet) { Deliver(packet, 1, timeBase); });
    }
}

void OutputGroup::EndSpan() {
    spanFirstSlot_ = nextSlot_;
    if (!Active() || !resampler_)
        return;
    try {
        resampler_->Flush();
        const std::int64_t wanted =
            std::llround(double(nextSlot_) * frameRate_.den / frameRate_.num * resampler_->SampleRate());
        const std::int64_t held = samplesSent_ + resampler_->Queued();
        if (held < wanted)
            resampler_->PushSilence(int(wanted - held));
        else
            resampler_->DropLast(int(held - wanted));
        EncodeQueuedSound(false);
    } catch (const MediaError& error) {
        FailAll(error.what());
    }
}

void OutputGroup::Finish() {
    if (!Active())
        return;
    try {
        if (soundEncoder_) {
            EncodeQueuedSound(true);
            const AVRational timeBase = soundEncoder_->Context().time_base;
            soundEncoder_->Send(nullptr, [&](AVPacket& packet) { Deliver(packet, 1, timeBase); });
        }
        const AVRational timeBase = pictureEncoder_->Context().time_base;
        pictureEncoder_->Send(nullptr, [&](AVPacket& packet) { Deliver(packet, 0, timeBase); });
    } catch (const MediaError& error) {
        FailAll(error.what());
        return;
    }
    for (const auto& muxer : muxers_)
        muxer->Finish();
}

ExpectedOutput OutputGroup::Expected(double seconds) const {
    ExpectedOutput expected;
    expected.seconds = seconds;
    if (pictureEncoder_) {
        const AVCodecContext& picture = pictureEncoder_->Context();
        expected.width = picture.width;
        expected.height = picture.height;
        expected.frameRateNum = picture.framerate.num;
        expected.frameRateDen = picture.framerate.den;
    }
    expected.audio = soundEncoder_.has_value();
    return expected;
}

} // namespace Av
