#pragma once
#include <optional>

#include "AvFormatInput.h"
#include "AvHandles.h"
#include "Decoder.h"

namespace Av {

// The picture of an opened file, decoded frame by frame from where a seek put it; the file's first
// packets are read for what its header does not say. Throws MediaError naming the file when it has
// no video or no decoder for it.
class VideoDecoder {
public:
    explicit VideoDecoder(AvFormatInput& input);

    // Moves to the last key frame at or before the time (seconds from the stream's start); what
    // was decoded before and not yet taken is dropped.
    void SeekBefore(double seconds);
    // The next frame into frame; false at the end of the stream.
    bool Next(AVFrame& frame);
    // A frame's time in seconds from the stream's start.
    double SecondsOf(const AVFrame& frame) const;

private:
    AvFormatInput& input_;
    AVStream* stream_ = nullptr;
    std::optional<Decoder> decoder_;
    PacketPtr packet_ = NewPacket();
    bool atEnd_ = false;
};

} // namespace Av
