#pragma once
#include <stdexcept>
#include <string>

namespace Av {

// Media that cannot be read or written as asked: not media, truncated, no video, an encoder this
// build lacks, a full disk. The message names the file and the reason, in one line a user can act on.
class MediaError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The work was stopped by its caller between packets; whatever it wrote is incomplete.
class MediaCancelled : public std::runtime_error {
public:
    MediaCancelled() : std::runtime_error("cancelled") {}
};

} // namespace Av
