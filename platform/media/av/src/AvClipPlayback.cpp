#include "AvClipPlayback.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include "Av/ClipInfo.h"
#include "Av/ClipPlaybackInstall.h"
#include "Av/MediaError.h"

namespace Av {
namespace {

// A step or a slow scrub forward decodes on from where the reader is rather than seeking back to
// a key frame it has already passed; further than this, a seek is cheaper.
constexpr std::int64_t kDecodeOnLimit = 12;

// The size that fits the box with the picture's display aspect (non-square pixels included); the
// picture's own size when the box is empty.
std::pair<int, int> FittedSize(const AVFrame& frame, int maxWidth, int maxHeight) {
    const AVRational pixel = frame.sample_aspect_ratio.num > 0 ? frame.sample_aspect_ratio : AVRational{1, 1};
    const double displayWidth = double(frame.width) * av_q2d(pixel);
    if (maxWidth <= 0 || maxHeight <= 0)
        return {std::max(1, int(std::lround(displayWidth))), frame.height};
    const double scale = std::min(double(maxWidth) / displayWidth, double(maxHeight) / frame.height);
    return {std::clamp(int(std::lround(displayWidth * scale)), 1, maxWidth),
            std::clamp(int(std::lround(frame.height * scale)), 1, maxHeight)};
}

class AvClipPlaybackFactory final : public Mid::ClipPlaybackFactory {
public:
    std::unique_ptr<Mid::ClipPlayback> Open(const std::string& path) override {
        return std::make_unique<AvClipPlayback>(path);
    }
};

} // namespace

AvClipPlayback::AvClipPlayback(std::string path) : path_(std::move(path)) {
    try {
        const ClipInfo info = ProbeClip(path_);
        if (!info.HasVideo())
            throw MediaError(path_ + ": has no video");
        if (info.frameRateNum <= 0)
            throw MediaError(path_ + ": its video has no frame rate");
        rate_ = double(info.frameRateNum) / info.frameRateDen;
        count_ = info.frameCount;
        Reopen();
    } catch (const MediaError& error) {
        throw Mid::PlaybackUnavailable(error.what());
    }
}

AvClipPlayback::~AvClipPlayback() = default;

void AvClipPlayback::Reopen() {
    decoder_.reset();
    input_ = std::make_unique<AvFormatInput>(path_, false);
    decoder_ = std::make_unique<VideoDecoder>(*input_);
    ahead_.reset();
    lastIndex_ = -1;
}

FramePtr AvClipPlayback::TakeNext(std::int64_t& index) {
    if (ahead_) {
        index = aheadIndex_;
        return std::move(ahead_);
    }
    FramePtr frame = NewFrame();
    if (!decoder_->Next(*frame))
        return nullptr;
    index = std::llround(decoder_->SecondsOf(*frame) * rate_);
    return frame;
}

Mid::PlaybackFrame AvClipPlayback::Seek(std::int64_t index, int maxWidth, int maxHeight) {
    try {
        index = std::max<std::int64_t>(0, count_ > 0 ? std::min(index, count_ - 1) : index);
        const bool decodeOn = lastIndex_ >= 0 && index > lastIndex_ && index - lastIndex_ <= kDecodeOnLimit;
        bool afterSeek = false;
        if (!decodeOn) {
            decoder_->SeekBefore(double(index) / rate_);
            ahead_.reset();
            afterSeek = true;
        }
        // The picture showing at the index: the last that starts at or before it.
        FramePtr chosen;
        std::int64_t chosenIndex = -1;
        for (;;) {
            std::int64_t frameIndex = -1;
            FramePtr frame = TakeNext(frameIndex);
            if (!frame)
                break;
            if (afterSeek && !chosen && frameIndex > index) {
                // The container could not seek back far enough: read from the start instead.
                afterSeek = false;
                Reopen();
                continue;
            }
            afterSeek = false;
            if (chosen && frameIndex > index) {
                ahead_ = std::move(frame);
                aheadIndex_ = frameIndex;
                break;
            }
            chosen = std::move(frame);
            chosenIndex = frameIndex;
            if (chosenIndex >= index)
                break;
        }
        if (!chosen)
            throw MediaError(path_ + ": frame " + std::to_string(index) + " could not be decoded");
        lastIndex_ = chosenIndex;
        return ToRgba(*chosen, chosenIndex, maxWidth, maxHeight);
    } catch (const MediaError& error) {
        throw Mid::PlaybackUnavailable(error.what());
    }
}

std::optional<Mid::PlaybackFrame> AvClipPlayback::Next(int maxWidth, int maxHeight) {
    try {
        std::int64_t index = -1;
        const FramePtr frame = TakeNext(index);
        if (!frame)
            return std::nullopt;
        lastIndex_ = index;
        return ToRgba(*frame, index, maxWidth, maxHeight);
    } catch (const MediaError& error) {
        throw Mid::PlaybackUnavailable(error.what());
    }
}

Mid::PlaybackFrame AvClipPlayback::ToRgba(const AVFrame& frame, std::int64_t index, int maxWidth, int maxHeight) {
    const auto [width, height] = FittedSize(frame, maxWidth, maxHeight);
    if (!scaler_ || width != scaledWidth_ || height != scaledHeight_) {
        scaler_ = std::make_unique<Scaler>(width, height, AV_PIX_FMT_RGBA);
        scaledWidth_ = width;
        scaledHeight_ = height;
    }
    const AVFrame& rgba = scaler_->Convert(frame);
    // Rows without padding, as the picture travels to another thread and outlives the scaler.
    auto bytes = std::make_shared<std::vector<std::uint8_t>>(std::size_t(width) * height * 4);
    for (int row = 0; row < height; ++row)
        std::memcpy(bytes->data() + std::size_t(row) * width * 4, rgba.data[0] + std::size_t(row) * rgba.linesize[0],
                    std::size_t(width) * 4);
    Mid::PlaybackFrame out;
    out.rgba = std::move(bytes);
    out.width = width;
    out.height = height;
    out.index = index;
    out.seconds = double(index) / rate_;
    return out;
}

void InstallClipPlayback() {
    QuietFFmpegLog();
    Mid::ClipPlaybackFactory::Install(std::make_shared<AvClipPlaybackFactory>());
}

} // namespace Av
