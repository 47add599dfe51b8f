#pragma once
#include <functional>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
}

#include "Av/EncoderSettings.h"

namespace Av {

// What the picture and sound fed to the encoders look like, as the first clip gives them.
struct SourceFormat {
    int width = 0;
    int height = 0;
    AVRational frameRate{25, 1};
    AVRational sampleAspect{0, 1};
    AVColorRange colorRange = AVCOL_RANGE_UNSPECIFIED;
    AVColorSpace colorSpace = AVCOL_SPC_UNSPECIFIED;
    AVColorPrimaries colorPrimaries = AVCOL_PRI_UNSPECIFIED;
    AVColorTransferCharacteristic colorTransfer = AVCOL_TRC_UNSPECIFIED;
    int audioChannels = 0; // 0: no sound
    int sampleRate = 0;
};

// One open encoder, video or audio, as an output's settings ask. Packets come out in the encoder's
// time base through the sink.
class Encoder {
public:
    using PacketSink = std::function<void(AVPacket&)>;

    // Throw MediaError naming outputPath when the encoder is missing from this FFmpeg or refuses
    // the settings; globalHeader when the container keeps the codec's set-up apart from its packets.
    static Encoder ForVideo(const EncoderSettings& settings, const SourceFormat& source, bool globalHeader,
                            const std::string& outputPath);
    static Encoder ForAudio(const EncoderSettings& settings, const SourceFormat& source, bool globalHeader,
                            const std::string& outputPath);

    Encoder(Encoder&& other) noexcept;
    Encoder& operator=(Encoder&&) = delete;
    Encoder(const Encoder&) = delete;
    ~Encoder();

    // nullptr drains the encoder at the end. Throws MediaError on an encoder's failure.
    void Send(const AVFrame* frame, const PacketSink& sink);

    const AVCodecContext& Context() const { return *context_; }

private:
    Encoder(AVCodecContext* context, std::string outputPath);
    AVCodecContext* context_ = nullptr;
    std::string outputPath_;
};

// The name of the decoder that reads what an encoder writes: prores_ks writes prores.
std::string CodecNameOfEncoder(const std::string& encoder);

} // namespace Av
