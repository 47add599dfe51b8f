#pragma once
// The list of recent paths of one destination in the preferences: a count and numbered items,
// all under the destination's own prefix.
#include <string_view>
#include <vector>

#include "Fnd/WString.h"
#include "Proj/IPreferences.h"

namespace IGD {

// Reads at most five items; empty items are skipped without leaving a gap, the others are
// normalised.
std::vector<Fnd::WString> ReadRecentPathList(Proj::IPreferences& preferences, std::string_view prefix);

// Writes the count and each item normalised. Items past the new count stay in the store unread.
void StoreRecentPathList(Proj::IPreferences& preferences, std::string_view prefix,
                         const std::vector<Fnd::WString>& paths);

} // namespace IGD
