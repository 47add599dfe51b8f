#include "fluxmediabrowser/FavoritesPref.h"

#include <algorithm>

#include "Proj/PreferenceAccess.h"

namespace fluxmediabrowser {
namespace {

std::vector<Fnd::WString> Split(const Fnd::WString& joined) {
    std::vector<Fnd::WString> paths;
    std::size_t at = 0;
    while (at <= joined.size()) {
        const std::size_t end = std::min(joined.find(u'\n', at), joined.size());
        if (end > at)
            paths.push_back(joined.substr(at, end - at));
        at = end + 1;
    }
    return paths;
}

Fnd::WString Joined(const std::vector<Fnd::WString>& paths) {
    Fnd::WString joined;
    for (const Fnd::WString& path : paths) {
        if (!joined.empty())
            joined += u'\n';
        joined += path;
    }
    return joined;
}

} // namespace

std::vector<Fnd::WString>& FavoriteDirectories() {
    static std::vector<Fnd::WString> favorites;
    return favorites;
}

std::vector<Fnd::WString>& RecentDirectories() {
    static std::vector<Fnd::WString> recents;
    return recents;
}

void ReadFavoritesPref() {
    const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    if (!preferences)
        return;
    Fnd::WString favorites = Joined(FavoriteDirectories());
    Fnd::WString recents = Joined(RecentDirectories());
    Proj::ReadPreference(*preferences, kPrefsFavoriteDirectories, favorites);
    Proj::ReadPreference(*preferences, kPrefsRecentDirectories, recents);
    FavoriteDirectories() = Split(favorites);
    RecentDirectories() = Split(recents);
    if (RecentDirectories().size() > kMaxRecentDirectories)
        RecentDirectories().resize(kMaxRecentDirectories);
}

void WriteFavoritesPref() {
    const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    if (!preferences)
        return;
    Proj::WritePreference(*preferences, kPrefsFavoriteDirectories, Joined(FavoriteDirectories()));
    Proj::WritePreference(*preferences, kPrefsRecentDirectories, Joined(RecentDirectories()));
}

void AddRecentDirectory(const Fnd::WString& directory) {
    if (directory.empty())
        return;
    std::vector<Fnd::WString>& recents = RecentDirectories();
    recents.erase(std::remove(recents.begin(), recents.end(), directory), recents.end());
    recents.insert(recents.begin(), directory);
    if (recents.size() > kMaxRecentDirectories)
        recents.resize(kMaxRecentDirectories);
}

} // namespace fluxmediabrowser
