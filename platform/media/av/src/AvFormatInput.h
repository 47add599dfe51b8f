#pragma once
#include <string>

extern "C" {
#include <libavformat/avformat.h>
}

namespace Av {

// A media file opened for reading, with its streams found. Throws MediaError naming the file when
// it is missing, unreadable or no media.
class AvFormatInput {
public:
    explicit AvFormatInput(const std::string& path);
    ~AvFormatInput();
    AvFormatInput(const AvFormatInput&) = delete;
    AvFormatInput& operator=(const AvFormatInput&) = delete;

    AVFormatContext& Context() { return *context_; }
    const AVFormatContext& Context() const { return *context_; }
    const std::string& Path() const { return path_; }

private:
    std::string path_;
    AVFormatContext* context_ = nullptr;
};

// FFmpeg writes its own log to stderr; a host prints what our errors say instead. Called by every
// entry into FFmpeg; the first call silences it for the process.
void QuietFFmpegLog();

// FFmpeg's text for an error code.
std::string AvErrorText(int code);

} // namespace Av
