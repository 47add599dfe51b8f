#pragma once
// The browser's preferences, each one UTF-8 text value.

namespace fluxmediabrowser {

// Folders, joined by "\n".
inline constexpr const char* kPrefsFavoriteDirectories = "IGD.MediaBrowser.FavoriteDirectories";
inline constexpr const char* kPrefsRecentDirectories = "IGD.MediaBrowser.RecentDirectories";
// "list" or "icons".
inline constexpr const char* kPrefsViewMode = "IGD.MediaBrowser.ViewMode";
// Column keys of the list view, in order, joined by ",".
inline constexpr const char* kPrefsColumns = "IGD.MediaBrowser.Columns";

} // namespace fluxmediabrowser
