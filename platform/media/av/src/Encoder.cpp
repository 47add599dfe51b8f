#include "Encoder.h"

#include <utility>

#include "Av/MediaError.h"
#include "AvFormatInput.h"
#include "AvHandles.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/dict.h>
#include <libavutil/pixdesc.h>
}

namespace Av {
namespace {

const AVCodec& FindEncoder(const std::string& name, const std::string& outputPath) {
    const AVCodec* codec = avcodec_find_encoder_by_name(name.c_str());
    if (codec == nullptr)
        throw MediaError(outputPath + ": the encoder " + name + " is not in this build of FFmpeg");
    return *codec;
}

AVCodecContext* Allocate(const AVCodec& codec, bool globalHeader) {
    AVCodecContext* context = avcodec_alloc_context3(&codec);
    if (context == nullptr)
        throw std::bad_alloc();
    if (globalHeader)
        context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    context->thread_count = 0;
    context->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
    return context;
}

void Open(AVCodecContext*& context, const AVCodec& codec, AVDictionary*& options, const std::string& outputPath) {
    const int opened = avcodec_open2(context, &codec, &options);
    std::string unknown;
    if (const AVDictionaryEntry* left = av_dict_get(options, "", nullptr, AV_DICT_IGNORE_SUFFIX))
        unknown = left->key;
    av_dict_free(&options);
    if (opened < 0) {
        avcodec_free_context(&context);
        throw MediaError(outputPath + ": the encoder " + codec.name + " refuses these settings (" +
                         AvErrorText(opened) + ")");
    }
    if (!unknown.empty()) {
        avcodec_free_context(&context);
        throw MediaError(outputPath + ": the encoder " + codec.name + " has no option " + unknown);
    }
}

AVPixelFormat PixelFormatFor(const AVCodec& codec, const std::string& name, const std::string& outputPath) {
    if (name.empty())
        return codec.pix_fmts != nullptr ? codec.pix_fmts[0] : AV_PIX_FMT_YUV420P;
    const AVPixelFormat format = av_get_pix_fmt(name.c_str());
    if (format == AV_PIX_FMT_NONE)
        throw MediaError(outputPath + ": no pixel format is called " + name);
    return format;
}

int SampleRateFor(const AVCodec& codec, int wanted) {
    if (codec.supported_samplerates == nullptr)
        return wanted;
    int best = codec.supported_samplerates[0];
    for (const int* rate = codec.supported_samplerates; *rate != 0; ++rate) {
        if (*rate == wanted)
            return wanted;
        if (std::abs(*rate - wanted) < std::abs(best - wanted))
            best = *rate;
    }
    return best;
}

} // namespace

Encoder::Encoder(AVCodecContext* context, std::string outputPath)
    : context_(context), outputPath_(std::move(outputPath)) {}

Encoder::Encoder(Encoder&& other) noexcept
    : context_(std::exchange(other.context_, nullptr)), outputPath_(std::move(other.outputPath_)) {}

Encoder::~Encoder() {
    avcodec_free_context(&context_);
}

Encoder Encoder::ForVideo(const EncoderSettings& settings, const SourceFormat& source, bool globalHeader,
                          const std::string& outputPath) {
    const AVCodec& codec = FindEncoder(settings.videoEncoder, outputPath);
    const AVPixelFormat pixels = PixelFormatFor(codec, settings.pixelFormat, outputPath);
    AVCodecContext* context = Allocate(codec, globalHeader);
    const bool ownSize = settings.width > 0 && settings.height > 0;
    context->width = ownSize ? settings.width : source.width;
    context->height = ownSize ? settings.height : source.height;
    context->pix_fmt = pixels;
    context->framerate = settings.frameRateNum > 0 && settings.frameRateDen > 0
                             ? AVRational{settings.frameRateNum, settings.frameRateDen}
                             : source.frameRate;
    if (context->framerate.num <= 0 || context->framerate.den <= 0) {
        avcodec_free_context(&context);
        throw MediaError(outputPath + ": the source records no frame rate, and the settings name none");
    }
    context->time_base = av_inv_q(context->framerate);
    context->sample_aspect_ratio = ownSize ? AVRational{1, 1} : source.sampleAspect;
    context->color_range = source.colorRange;
    context->colorspace = source.colorSpace;
    context->color_primaries = source.colorPrimaries;
    context->color_trc = source.colorTransfer;
    context->bit_rate = settings.videoBitRate;
    AVDictionary* options = nullptr;
    if (!settings.profile.empty())
        av_dict_set(&options, "profile", settings.profile.c_str(), 0);
    for (const auto& [key, value] : settings.videoOptions)
        av_dict_set(&options, key.c_str(), value.c_str(), 0);
    Open(context, codec, options, outputPath);
    return Encoder(context, outputPath);
}

Encoder Encoder::ForAudio(const EncoderSettings& settings, const SourceFormat& source, bool globalHeader,
                          const std::string& outputPath) {
    const AVCodec& codec = FindEncoder(settings.audioEncoder, outputPath);
    AVCodecContext* context = Allocate(codec, globalHeader);
    context->sample_fmt = codec.sample_fmts != nullptr ? codec.sample_fmts[0] : AV_SAMPLE_FMT_S16;
    context->sample_rate =
        SampleRateFor(codec, settings.audioSampleRate > 0 ? settings.audioSampleRate : source.sampleRate);
    av_channel_layout_default(&context->ch_layout, source.audioChannels);
    context->time_base = AVRational{1, context->sample_rate};
    context->bit_rate = settings.audioBitRate;
    AVDictionary* options = nullptr;
    Open(context, codec, options, outputPath);
    return Encoder(context, outputPath);
}

void Encoder::Send(const AVFrame* frame, const PacketSink& sink) {
    if (const int sent = avcodec_send_frame(context_, frame); sent < 0 && sent != AVERROR_EOF)
        throw MediaError(outputPath_ + ": the encoder " + context_->codec->name + " failed (" +
                         AvErrorText(sent) + ")");
    const PacketPtr packet = NewPacket();
    for (;;) {
        const int received = avcodec_receive_packet(context_, packet.get());
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF)
            return;
        if (received < 0)
            throw MediaError(outputPath_ + ": the encoder " + context_->codec->name + " failed (" +
                             AvErrorText(received) + ")");
        sink(*packet);
        av_packet_unref(packet.get());
    }
}

std::string CodecNameOfEncoder(const std::string& encoder) {
    const AVCodec* codec = avcodec_find_encoder_by_name(encoder.c_str());
    return codec != nullptr ? avcodec_get_name(codec->id) : encoder;
}

} // namespace Av
