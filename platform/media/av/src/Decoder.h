#pragma once
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace Av {

// The decoder of one stream of an open file, on as many threads as the codec can use. Damaged
// packets are counted, not thrown: whether the clip is whole is judged by how much it yields.
class Decoder {
public:
    // Throws MediaError naming the file when this FFmpeg has no decoder for the stream.
    Decoder(const AVStream& stream, const std::string& path);
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // nullptr drains the decoder at the end of the stream.
    void Send(const AVPacket* packet);
    // The next decoded frame into frame; false when the decoder needs more packets or is drained.
    bool Receive(AVFrame& frame);
    // Forgets what was sent and not yet received, as a seek needs; a drained decoder takes packets again.
    void Flush();

    int Errors() const { return errors_; }
    const AVCodecContext& Context() const { return *context_; }

private:
    AVCodecContext* context_ = nullptr;
    int errors_ = 0;
    bool drained_ = false;
};

} // namespace Av
