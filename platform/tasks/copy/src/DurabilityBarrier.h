#pragma once
#include <sys/types.h>

#include <cstddef>
#include <vector>

namespace QL::Engine {

// Makes a group of written files durable with one flush per filesystem instead of one per file:
// each file's filesystem is noted while the file is open, and Pass flushes every filesystem
// noted (syncfs), which also reports a write-back error of any file written through it since.
class DurabilityBarrier {
public:
    DurabilityBarrier() = default;
    ~DurabilityBarrier();
    DurabilityBarrier(const DurabilityBarrier&) = delete;
    DurabilityBarrier& operator=(const DurabilityBarrier&) = delete;

    // The filesystem of an open file: its index among those noted. -errno when it cannot be told.
    int Note(int fd);
    // Flushes every filesystem noted; per index, 0 or the errno of its flush.
    std::vector<int> Pass();

private:
    struct Filesystem {
        dev_t device = 0;
        int fd = -1; // a descriptor kept open on it, so that its errors are reported to us
    };
    std::vector<Filesystem> filesystems_;
};

} // namespace QL::Engine
