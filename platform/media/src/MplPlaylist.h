#pragma once
#include <filesystem>
#include <string>
#include <vector>

namespace Browse {

// One play item of an AVCHD playlist: the 5-digit stream it plays, and whether it continues the
// previous item seamlessly (a recording split over several streams).
struct MplPlayItem {
    std::string stream;
    bool continuesPrevious = false;
};

// The play items of a playlist file, in play order; empty when the file is not a playlist.
// Only the header and the play item list are read.
std::vector<MplPlayItem> ReadMplPlayItems(const std::filesystem::path& file);

} // namespace Browse
