#pragma once
#include "AlignedBuffer.h"
#include "QL/Engine/GroupCopier.h"

namespace QL::Engine {

// The memory of one group in flight: its sources, read whole, each at an aligned place, and a
// window of copies read back at once, so that MD5 hashes several side by side.
class GroupBuffers {
public:
    static constexpr std::uint64_t kReadBackBytes = 16u << 20;

    GroupBuffers() : sources(GroupCopier::kMostBytes), readBack(kReadBackBytes) {}

    AlignedBuffer sources;
    AlignedBuffer readBack;
};

} // namespace QL::Engine
