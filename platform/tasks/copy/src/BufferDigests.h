#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "Checksum/Checksum.h"

namespace QL::Engine {

struct ByteRange {
    const std::byte* data = nullptr;
    std::size_t size = 0;
};

// The digests of many whole buffers at once, in their order (lower-case hex). MD5 runs the
// buffers side by side in the lanes of Md5Lanes, on the calling thread: a group of small files
// hashes about as fast as one large one, with no thread to hand them to.
std::vector<std::string> DigestsOf(Checksum::Algorithm algorithm, const std::vector<ByteRange>& buffers);

} // namespace QL::Engine
