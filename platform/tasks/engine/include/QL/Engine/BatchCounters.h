#pragma once
#include <cstdint>

namespace QL::Engine {

// What a batch did: kept by its worker, carried by its outcome message, and summed by a host
// over the batches it watched.
struct BatchCounters {
    std::uint64_t filesCopied = 0; // file targets written, over all destinations; folders not
    std::uint64_t filesSkipped = 0;
    std::uint64_t filesAlreadyCopied = 0;
    std::uint64_t filesFailed = 0;
    std::uint64_t filesCancelled = 0;
    std::uint64_t tasksFailed = 0;
    std::uint64_t itemsImported = 0;
    std::uint64_t bytesRead = 0; // of sources: a source written to two destinations counts once

    // Whether anything failed or was cancelled.
    bool AnyFailure() const { return filesFailed > 0 || filesCancelled > 0 || tasksFailed > 0; }

    BatchCounters& operator+=(const BatchCounters& other) {
        filesCopied += other.filesCopied;
        filesSkipped += other.filesSkipped;
        filesAlreadyCopied += other.filesAlreadyCopied;
        filesFailed += other.filesFailed;
        filesCancelled += other.filesCancelled;
        tasksFailed += other.tasksFailed;
        itemsImported += other.itemsImported;
        bytesRead += other.bytesRead;
        return *this;
    }
};

} // namespace QL::Engine
