#pragma once
// Where a copy task's media lands, as the history of the copy is kept there.
#include <string>
#include <vector>

namespace QL::Engine {

struct IngestedFolder {
    std::string target; // the folder the copies land in
    std::string source; // the folder they come from, when it was taken whole; else empty
};

// The rule, from the task's sources and planned targets alone (the plan keeps no other record of
// the destination): take the deepest folder holding every target and the deepest holding every
// source, then step both up while their names agree. A card or folder copied whole lands under
// its own name, so the walk stops at the card's folder in the destination (inside the subfolder,
// when one was given), and the card's root is its source. Files taken one by one, or cards side
// by side, share no such name: the folder holding the targets, the destination root or the
// subfolder, is the ingested folder, and no source folder came whole.
IngestedFolder IngestedFolderOf(const std::vector<std::string>& sources,
                                const std::vector<std::string>& targets);

} // namespace QL::Engine
