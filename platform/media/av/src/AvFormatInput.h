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
    // With streamInfo false the streams are as the container's header gives them: enough for a
    // reader of one stream that calls FindStreamInfo when the header lacks what it needs.
    explicit AvFormatInput(const std::string& path, bool streamInfo = true);
    ~AvFormatInput();
    AvFormatInput(const AvFormatInput&) = delete;
    AvFormatInput& operator=(const AvFormatInput&) = delete;

    AVFormatContext& Context() { return *context_; }
    const AVFormatContext& Context() const { return *context_; }
    const std::string& Path() const { return path_; }
    // Reads the first packets for what the header does not say (rates, sizes, pixel formats).
    void FindStreamInfo();

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
