#pragma once
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace Browse {

// One clip as a card provider sees it. Paths are absolute and spelled as they are on disk.
struct CardClip {
    Fnd::WString name;
    // The provider's identification.
    std::string family;
    // The file that stands for the clip in a browser: the first media file of the clip.
    Fnd::WString mediaPath;
    // Every file of the clip, media first, in the order a copy should take them (spans in play
    // order).
    std::vector<Fnd::WString> files;
};

} // namespace Browse
