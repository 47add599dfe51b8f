#pragma once
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "ChunkPool.h"
#include "LaneHasher.h"
#include "QL/Engine/CopyControl.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// What the targets of one source share.
struct CopyJob {
    std::string source;
    struct stat sourceStatus {};
    std::uint32_t verifyMode = 0;
    std::size_t bufferBytes = 0;       // of each chunk
    std::size_t readBackBytes = 0;     // of each buffer that reads a copy or the source back
    std::size_t readBacksInFlight = 1; // per copy, for an MD5 check
    // Bytes between flushes that let verification trail the writing; 0: one flush at the end.
    std::uint64_t flushEvery = 0;
    CopyControl* control = nullptr;
    const CopyHooks* hooks = nullptr;
    ChunkPool* pool = nullptr;
    LaneHasher* hasher = nullptr; // takes every MD5 of the copy
};

} // namespace QL::Engine
