#pragma once
// The shape shared by the checks on lists of paths: one service test, and on failure one error box
// naming the first failing path, with its own texts when that path is empty.
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace IGD {

// Answers true when every path passes; on false, failingPath names the first that did not.
using PathListTest = bool (*)(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath);

struct PathListCheckTexts {
    std::string_view title;      // localised text with key and default
    std::string_view text;       // takes the normalised failing path as @0
    std::string_view emptyTitle; // when the failing path is empty
    std::string_view emptyText;
};

// Runs the test; on failure shows one error box and answers false.
bool CheckPathList(PathListTest test, const std::vector<Fnd::WString>& paths,
                   const PathListCheckTexts& texts);

} // namespace IGD
