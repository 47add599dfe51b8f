#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace QL::Engine {

// Test seams: places between the steps of a copy where a test injects the faults a set or an
// office meets (a card pulled, a sector that cannot be read, a bit flipped on the way to the disk,
// a filesystem that folds case) without the hardware that makes them. Every one is empty in
// production, and an empty one costs a test of a null function per chunk at most.
struct CopyHooks {
    // Before each chunk of the source is read, with the offset it starts at. The hook may change
    // the source (unlink it, truncate it, wait); answering an errno (EIO) makes that read fail so.
    std::function<int(const std::string& source, std::uint64_t offset)> beforeRead;
    // Before each write to a target; answering an errno (ENOSPC, EIO) makes that write fail so.
    std::function<int(const std::string& temporaryPath, std::uint64_t offset)> failWrite;
    // After a temporary is written and flushed, before it is verified. While it is set the whole
    // file is checked after it ran, rather than region by region behind the writing, so that
    // whatever it does to the temporary is seen.
    std::function<void(const std::string& temporaryPath)> afterWrite;
    // Before each read of a copy back from its medium; answering an errno makes that read fail so.
    std::function<int(const std::string& copyPath, std::uint64_t offset)> failReadBack;
    // Whether a final name is taken though no file of that exact spelling exists, as on a
    // filesystem that ignores case: answering true makes the rename to it meet EEXIST.
    std::function<bool(const std::string& finalPath)> nameTaken;
};

} // namespace QL::Engine
