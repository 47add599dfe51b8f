#pragma once
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace QL::Engine {

// Makes a group of written files durable with one flush per filesystem instead of one per file:
// each file's filesystem is noted before anything is written to it, and Pass flushes every
// filesystem noted (syncfs), which also reports a write-back error of any file written to it
// since it was noted.
class DurabilityBarrier {
public:
    DurabilityBarrier() = default;
    ~DurabilityBarrier();
    DurabilityBarrier(const DurabilityBarrier&) = delete;
    DurabilityBarrier& operator=(const DurabilityBarrier&) = delete;

    // The filesystem of an open file in folder, before it is written: its index among those noted.
    // -errno when it cannot be told.
    int Note(int fd, const std::string& folder);
    // Flushes every filesystem noted; per index, 0 or the errno of its flush.
    std::vector<int> Pass();

private:
    struct Filesystem {
        dev_t device = 0;
        // A folder of it kept open, read only (a writer kept open would stop the filesystem from
        // being remounted read only), so that its errors from now on are reported to us.
        int fd = -1;
    };
    std::vector<Filesystem> filesystems_;
};

} // namespace QL::Engine
