#include "Remux.h"

#include <algorithm>
#include <cctype>

#include "Av/MediaError.h"
#include "AvFormatInput.h"
#include "AvHandles.h"
#include "Encoder.h"
#include "OutputMuxer.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Av {
namespace {

// "Proxy" as the decoder names a profile and "proxy" as the encoder takes it; "DNXHR SQ" and "dnxhr_sq".
std::string ProfileKey(const std::string& profile) {
    std::string key;
    for (const char c : profile)
        if (std::isalnum(static_cast<unsigned char>(c)))
            key += char(std::tolower(static_cast<unsigned char>(c)));
    return key;
}

std::string DefaultPixelFormat(const std::string& encoder) {
    const AVCodec* codec = avcodec_find_encoder_by_name(encoder.c_str());
    if (codec == nullptr || codec->pix_fmts == nullptr)
        return {};
    return av_get_pix_fmt_name(codec->pix_fmts[0]);
}

bool SpanMatches(const ClipInfo& clip, const ClipInfo& first, const EncoderSettings& settings) {
    if (clip.videoCodec != CodecNameOfEncoder(settings.videoEncoder))
        return false;
    if (!settings.profile.empty() && ProfileKey(clip.videoProfile) != ProfileKey(settings.profile))
        return false;
    const bool ownSize = settings.width > 0 && settings.height > 0;
    if (clip.width != (ownSize ? settings.width : first.width) ||
        clip.height != (ownSize ? settings.height : first.height))
        return false;
    const bool ownRate = settings.frameRateNum > 0 && settings.frameRateDen > 0;
    const std::int64_t num = ownRate ? settings.frameRateNum : first.frameRateNum;
    const std::int64_t den = ownRate ? settings.frameRateDen : first.frameRateDen;
    if (std::int64_t(clip.frameRateNum) * den != num * clip.frameRateDen)
        return false;
    const std::string pixels = settings.pixelFormat.empty() ? DefaultPixelFormat(settings.videoEncoder)
                                                            : settings.pixelFormat;
    if (clip.pixelFormat != pixels)
        return false;
    if (settings.audioEncoder.empty() || clip.audioStreams == 0)
        return clip.audioStreams == first.audioStreams;
    return clip.audioCodec == settings.audioEncoder && clip.audioChannels == first.audioChannels &&
           (settings.audioSampleRate == 0 || clip.audioSampleRate == settings.audioSampleRate) &&
           clip.audioSampleRate == first.audioSampleRate;
}

struct CopiedStream {
    int input = -1;
    int output = -1;
    AVRational timeBase{1, 1};
    std::int64_t start = 0;
    std::int64_t offset = 0; // where this span begins in the output, in timeBase
    std::int64_t end = 0;    // the furthest time written
};

int FirstStream(const AVFormatContext& format, AVMediaType type) {
    return av_find_best_stream(const_cast<AVFormatContext*>(&format), type, -1, -1, nullptr, 0);
}

} // namespace

bool CanRemux(const ClipTimeline& timeline, const EncoderSettings& settings) {
    if (timeline.cut)
        return false;
    const ClipInfo& first = timeline.spans.front().video;
    return std::all_of(timeline.spans.begin(), timeline.spans.end(), [&](const SegmentSpan& span) {
        return span.segment->audio.empty() && SpanMatches(span.video, first, settings);
    });
}

std::string Remux(const ClipTimeline& timeline, const EncoderSettings& settings, const std::string& path,
                  ProgressMeter& meter, double secondsBefore) {
    OutputMuxer muxer(path, settings.container);
    CopiedStream picture;
    CopiedStream sound;
    const bool withSound = !settings.audioEncoder.empty() && timeline.spans.front().video.audioStreams > 0;
    {
        AvFormatInput first(timeline.spans.front().segment->video);
        const AVFormatContext& format = first.Context();
        const AVStream& video = *format.streams[FirstStream(format, AVMEDIA_TYPE_VIDEO)];
        picture.timeBase = video.time_base;
        picture.output = muxer.AddCopiedStream(*video.codecpar, video.time_base, video.avg_frame_rate);
        if (withSound) {
            const AVStream& audio = *format.streams[FirstStream(format, AVMEDIA_TYPE_AUDIO)];
            sound.timeBase = audio.time_base;
            sound.output = muxer.AddCopiedStream(*audio.codecpar, audio.time_base, {0, 1});
        }
    }
    if (settings.container == "mov" || settings.container == "mxf")
        muxer.SetTimecode(timeline.startTimecode);
    muxer.Start();
    const PacketPtr packet = NewPacket();
    double spanStart = secondsBefore;
    for (const SegmentSpan& span : timeline.spans) {
        if (muxer.Failed())
            break;
        AvFormatInput input(span.segment->video);
        const AVFormatContext& format = input.Context();
        for (CopiedStream* copied : {&picture, &sound}) {
            if (copied->output < 0)
                continue;
            copied->input = FirstStream(format, copied == &picture ? AVMEDIA_TYPE_VIDEO : AVMEDIA_TYPE_AUDIO);
            const AVStream& stream = *format.streams[copied->input];
            copied->start = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
            copied->start = av_rescale_q(copied->start, stream.time_base, copied->timeBase);
        }
        // Both streams of the next span start where the longer of them ended, so neither overlaps.
        const std::int64_t pictureEnd = picture.end;
        const std::int64_t soundEnd = sound.output >= 0 ? av_rescale_q(sound.end, sound.timeBase, picture.timeBase) : 0;
        picture.offset = std::max(pictureEnd, soundEnd);
        sound.offset = av_rescale_q(picture.offset, picture.timeBase, sound.timeBase);
        while (!muxer.Failed()) {
            meter.Checkpoint();
            if (av_read_frame(&input.Context(), packet.get()) < 0)
                break;
            CopiedStream* copied = packet->stream_index == picture.input ? &picture
                                   : (sound.output >= 0 && packet->stream_index == sound.input) ? &sound
                                                                                                : nullptr;
            if (copied != nullptr) {
                const AVRational inputBase = format.streams[packet->stream_index]->time_base;
                av_packet_rescale_ts(packet.get(), inputBase, copied->timeBase);
                const std::int64_t shift = copied->offset - copied->start;
                if (packet->pts != AV_NOPTS_VALUE)
                    packet->pts += shift;
                if (packet->dts != AV_NOPTS_VALUE)
                    packet->dts += shift;
                const std::int64_t last = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
                copied->end = std::max(copied->end, last + packet->duration);
                if (copied == &picture)
                    meter.Frame(spanStart + double(last - picture.offset) * av_q2d(picture.timeBase) +
                                span.video.FrameSeconds());
                muxer.Write(*packet, copied->output, copied->timeBase);
            }
            av_packet_unref(packet.get());
        }
        spanStart += span.length;
    }
    muxer.Finish();
    return muxer.Error();
}

} // namespace Av
