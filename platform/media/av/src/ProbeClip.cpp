#include "Av/ClipInfo.h"

#include <cmath>

#include "AvFormatInput.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/dict.h>
#include <libavutil/pixdesc.h>
}

namespace Av {
namespace {

std::string TagOf(AVDictionary* tags, const char* key) {
    const AVDictionaryEntry* entry = av_dict_get(tags, key, nullptr, 0);
    return entry != nullptr && entry->value != nullptr ? entry->value : "";
}

// Cameras record the start timecode on the container (MXF), on a timecode track (QuickTime) or on
// the picture's stream.
std::string StartTimecode(const AVFormatContext& format) {
    if (std::string timecode = TagOf(format.metadata, "timecode"); !timecode.empty())
        return timecode;
    for (unsigned i = 0; i < format.nb_streams; ++i)
        if (std::string timecode = TagOf(format.streams[i]->metadata, "timecode"); !timecode.empty())
            return timecode;
    return {};
}

double SecondsOf(std::int64_t duration, AVRational timeBase) {
    return duration == AV_NOPTS_VALUE || duration <= 0 ? 0.0 : double(duration) * av_q2d(timeBase);
}

void ReadVideo(const AVStream& stream, ClipInfo& info) {
    const AVCodecParameters& codec = *stream.codecpar;
    info.width = codec.width;
    info.height = codec.height;
    info.videoCodec = avcodec_get_name(codec.codec_id);
    if (const char* profile = avcodec_profile_name(codec.codec_id, codec.profile))
        info.videoProfile = profile;
    if (const char* pixels = av_get_pix_fmt_name(static_cast<AVPixelFormat>(codec.format)))
        info.pixelFormat = pixels;
    AVRational rate = stream.avg_frame_rate.num > 0 ? stream.avg_frame_rate : stream.r_frame_rate;
    if (rate.num > 0 && rate.den > 0) {
        av_reduce(&rate.num, &rate.den, rate.num, rate.den, 1 << 30);
        info.frameRateNum = rate.num;
        info.frameRateDen = rate.den;
    }
    const double seconds = SecondsOf(stream.duration, stream.time_base);
    if (stream.nb_frames > 0)
        info.frameCount = stream.nb_frames;
    else if (info.frameRateNum > 0)
        info.frameCount = std::llround(seconds * info.frameRateNum / info.frameRateDen);
}

} // namespace

ClipInfo ProbeClip(const std::string& path) {
    AvFormatInput input(path);
    const AVFormatContext& format = input.Context();
    ClipInfo info;
    info.path = path;
    info.container = format.iformat != nullptr ? format.iformat->name : "";
    const AVStream* video = nullptr;
    const AVStream* audio = nullptr;
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const AVStream* stream = format.streams[i];
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
            (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) == 0) {
            ++info.videoStreams;
            if (video == nullptr)
                video = stream;
        } else if (stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            ++info.audioStreams;
            if (audio == nullptr)
                audio = stream;
        }
        info.durationSeconds = std::max(info.durationSeconds, SecondsOf(stream->duration, stream->time_base));
    }
    if (info.durationSeconds <= 0)
        info.durationSeconds = SecondsOf(format.duration, AVRational{1, AV_TIME_BASE});
    if (video != nullptr)
        ReadVideo(*video, info);
    if (audio != nullptr) {
        info.audioCodec = avcodec_get_name(audio->codecpar->codec_id);
        info.audioChannels = audio->codecpar->ch_layout.nb_channels;
        info.audioSampleRate = audio->codecpar->sample_rate;
    }
    info.startTimecode = StartTimecode(format);
    return info;
}

} // namespace Av
