#pragma once
#include "AvFormatInput.h"
#include "AvHandles.h"

namespace Av {

// The picture of an opened file, decoded frame by frame; the file's first packets are read for what
// its header does not say. Throws MediaError naming the file when it
// has no video or no decoder for it.
class VideoDecoder {
public:
    explicit VideoDecoder(AvFormatInput& input);

    // Moves to the last key frame at or before the time (seconds from the stream's start).
    void SeekBefore(double seconds);
    // The next frame into frame; false at the end of the stream. Throws MediaError when the
    // stream breaks off before its first frame.
    bool Next(AVFrame& frame);
    // A frame's time in seconds from the stream's start.
    double SecondsOf(const AVFrame& frame) const;

private:
    bool SendNextPacket();

    AvFormatInput& input_;
    AVStream* stream_ = nullptr;
    AvCodecContextPtr codec_;
    AvPacketPtr packet_ = NewPacket();
    bool flushed_ = false;
};

} // namespace Av
