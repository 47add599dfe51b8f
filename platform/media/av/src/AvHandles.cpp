#include "AvHandles.h"

#include <new>

namespace Av {

AvFramePtr NewFrame() {
    AvFramePtr frame(av_frame_alloc());
    if (!frame)
        throw std::bad_alloc();
    return frame;
}

AvPacketPtr NewPacket() {
    AvPacketPtr packet(av_packet_alloc());
    if (!packet)
        throw std::bad_alloc();
    return packet;
}

} // namespace Av
