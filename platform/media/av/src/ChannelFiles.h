#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "AvHandles.h"

namespace Av {

// The sound of a shot kept as one file per channel (P2 cards): channel i of the result from file
// i, read as far as the picture has come and merged into frames of planar float samples.
class ChannelFiles {
public:
    ChannelFiles(const std::vector<std::string>& paths, double from, double length);
    ~ChannelFiles();
    ChannelFiles(const ChannelFiles&) = delete;
    ChannelFiles& operator=(const ChannelFiles&) = delete;

    // Reads every file until it holds sound up to the given second of the part (or its end), and
    // passes on what all channels hold. toEnd flushes the rest at the end of the part.
    void ReadUntil(double seconds, const std::function<void(const AVFrame&)>& sink, bool toEnd = false);

private:
    struct File;
    void Merge(const std::function<void(const AVFrame&)>& sink);

    std::vector<std::unique_ptr<File>> files_;
    int sampleRate_ = 48000;
};

} // namespace Av
