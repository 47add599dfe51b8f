#pragma once
#include <cstdint>

namespace QL::Engine {

// What a batch did, for its outcome message. Touched by its worker only.
struct BatchCounters {
    std::uint64_t filesCopied = 0;
    std::uint64_t filesSkipped = 0;
    std::uint64_t filesAlreadyCopied = 0;
    std::uint64_t filesFailed = 0;
    std::uint64_t filesCancelled = 0;
    std::uint64_t tasksFailed = 0;
    std::uint64_t itemsImported = 0;
};

} // namespace QL::Engine
