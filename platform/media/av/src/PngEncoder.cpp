#include "PngEncoder.h"

#include <stdexcept>

#include "AvHandles.h"

namespace Av {

std::vector<std::uint8_t> EncodePng(const AVFrame& rgb) {
    const AVCodec* png = avcodec_find_encoder(AV_CODEC_ID_PNG);
    if (png == nullptr)
        throw std::runtime_error("this build of FFmpeg has no PNG encoder");
    CodecContextPtr encoder(avcodec_alloc_context3(png));
    if (!encoder)
        throw std::bad_alloc();
    encoder->width = rgb.width;
    encoder->height = rgb.height;
    encoder->pix_fmt = AV_PIX_FMT_RGB24;
    encoder->time_base = AVRational{1, 25};
    if (avcodec_open2(encoder.get(), png, nullptr) < 0 || avcodec_send_frame(encoder.get(), &rgb) < 0)
        throw std::runtime_error("the PNG encoder refused a picture");
    PacketPtr packet = NewPacket();
    if (avcodec_receive_packet(encoder.get(), packet.get()) < 0)
        throw std::runtime_error("the PNG encoder gave no picture");
    return {packet->data, packet->data + packet->size};
}

} // namespace Av
