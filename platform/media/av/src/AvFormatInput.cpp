#include "AvFormatInput.h"

#include "Av/MediaError.h"

#include <mutex>

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

namespace Av {

void QuietFFmpegLog() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_level(AV_LOG_QUIET); });
}

std::string AvErrorText(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

AvFormatInput::AvFormatInput(const std::string& path, bool streamInfo) : path_(path) {
    QuietFFmpegLog();
    if (const int opened = avformat_open_input(&context_, path.c_str(), nullptr, nullptr); opened < 0) {
        context_ = nullptr;
        throw MediaError(path + ": " +
                         (opened == AVERROR_INVALIDDATA ? std::string("not a media file") : AvErrorText(opened)));
    }
    if (streamInfo) {
        try {
            FindStreamInfo();
        } catch (...) {
            avformat_close_input(&context_);
            throw;
        }
    }
}

void AvFormatInput::FindStreamInfo() {
    if (const int found = avformat_find_stream_info(context_, nullptr); found < 0)
        throw MediaError(path_ + ": its streams cannot be read (" + AvErrorText(found) + ")");
}

AvFormatInput::~AvFormatInput() {
    avformat_close_input(&context_);
}

} // namespace Av
