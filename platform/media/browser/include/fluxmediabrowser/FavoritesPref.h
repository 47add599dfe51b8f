#pragma once
// The browser's favourite and recent directories, one list each for the whole process, kept in
// the preference store between runs.
#include <vector>

#include "Fnd/WString.h"
#include "fluxmediabrowser/BrowserPreferenceKeys.h"

namespace fluxmediabrowser {

// Recent directories kept; the oldest goes first.
inline constexpr std::size_t kMaxRecentDirectories = 10;

// Loads both lists from the installed preferences; without preferences both stay as they are.
void ReadFavoritesPref();
// Stores both lists; a read-only key is left alone (the preferences warn).
void WriteFavoritesPref();

std::vector<Fnd::WString>& FavoriteDirectories();
// Newest first.
std::vector<Fnd::WString>& RecentDirectories();
// Puts the directory at the head of the recent list, once, and drops the oldest past the limit.
void AddRecentDirectory(const Fnd::WString& directory);

} // namespace fluxmediabrowser
