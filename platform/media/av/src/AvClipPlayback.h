#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "AvFormatInput.h"
#include "AvHandles.h"
#include "Mid/ClipPlayback.h"
#include "Scaler.h"
#include "VideoDecoder.h"

namespace Av {

// A clip's pictures for a preview player, decoded with FFmpeg. A frame's number comes from its
// timestamp, so a seek lands on the frame asked even where a clip's key frames are far apart.
class AvClipPlayback final : public Mid::ClipPlayback {
public:
    // Throws Mid::PlaybackUnavailable naming the file.
    explicit AvClipPlayback(std::string path);
    ~AvClipPlayback() override;

    double FrameRate() const override { return rate_; }
    std::int64_t FrameCount() const override { return count_; }
    Mid::PlaybackFrame Seek(std::int64_t index, int maxWidth, int maxHeight) override;
    std::optional<Mid::PlaybackFrame> Next(int maxWidth, int maxHeight) override;

private:
    void Reopen();
    // The picture after the last one given, with its number; null at the end.
    FramePtr TakeNext(std::int64_t& index);
    Mid::PlaybackFrame ToRgba(const AVFrame& frame, std::int64_t index, int maxWidth, int maxHeight);

    std::string path_;
    double rate_ = 0;
    std::int64_t count_ = 0;
    std::unique_ptr<AvFormatInput> input_;
    std::unique_ptr<VideoDecoder> decoder_;
    std::unique_ptr<Scaler> scaler_;
    int scaledWidth_ = 0;
    int scaledHeight_ = 0;
    // A picture decoded past the one a seek wanted: the next one to give.
    FramePtr ahead_;
    std::int64_t aheadIndex_ = -1;
    std::int64_t lastIndex_ = -1; // the number of the last picture given; -1 before any
};

} // namespace Av
