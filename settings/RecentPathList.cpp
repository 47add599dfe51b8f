#include "settings/RecentPathList.h"

#include <algorithm>

#include "Mid/Utilities.h"
#include "settings/DestinationSetting.h"
#include "Proj/PreferenceAccess.h"
#include "settings/SettingKeys.h"

namespace IGD {

std::vector<Fnd::WString> ReadRecentPathList(Proj::IPreferences& preferences, std::string_view prefix) {
    std::uint32_t count = kPathsMRUCount.defaultValue;
    ReadPreference(preferences, PathListCountKey(prefix), count);
    count = std::min<std::uint32_t>(count, DestinationSetting::kMaxRecentPaths);

    std::vector<Fnd::WString> paths;
    paths.reserve(count);
    for (std::uint32_t item = 0; item < count; ++item) {
        Fnd::WString path(kPathsMRUItem.defaultValue);
        ReadPreference(preferences, PathListItemKey(prefix, item), path);
        if (!path.empty())
            paths.push_back(Mid::Utilities::NormalizePathWithoutUNC(path));
    }
    return paths;
}

void StoreRecentPathList(Proj::IPreferences& preferences, std::string_view prefix,
                         const std::vector<Fnd::WString>& paths) {
    WritePreference(preferences, PathListCountKey(prefix), static_cast<std::uint32_t>(paths.size()));
    for (std::size_t item = 0; item < paths.size(); ++item)
        WritePreference(preferences, PathListItemKey(prefix, static_cast<std::uint32_t>(item)),
                        Mid::Utilities::NormalizePathWithoutUNC(paths[item]));
}

} // namespace IGD
