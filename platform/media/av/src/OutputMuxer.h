#pragma once
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace Av {

// One output file being written. A failure (a full disk, a refused header) does not throw: the
// muxer remembers why, ignores what follows, and the other outputs go on.
class OutputMuxer {
public:
    OutputMuxer(const std::string& path, const std::string& container);
    ~OutputMuxer();
    OutputMuxer(const OutputMuxer&) = delete;
    OutputMuxer& operator=(const OutputMuxer&) = delete;

    // A stream as an encoder writes it, or as a source holds it for a copy; its index.
    int AddStream(const AVCodecContext& encoder);
    int AddCopiedStream(const AVCodecParameters& source, AVRational timeBase, AVRational frameRate);
    void SetTimecode(const std::string& timecode);
    // Opens the file and writes the header once every stream is added.
    void Start();
    // Takes the packet's data; its times are in the given time base.
    void Write(AVPacket& packet, int stream, AVRational timeBase);
    // The trailer and the file closed.
    void Finish();

    bool GlobalHeader() const;
    bool Failed() const { return !error_.empty(); }
    const std::string& Error() const { return error_; }
    const std::string& Path() const { return path_; }

private:
    void Fail(const std::string& what, int code);
    void Close();

    std::string path_;
    std::string error_;
    AVFormatContext* context_ = nullptr;
    bool started_ = false;
};

} // namespace Av
