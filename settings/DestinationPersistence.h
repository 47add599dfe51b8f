#pragma once
// A destination's record in the preferences: its transcode choice, its list of recent paths and
// its subfolder flag; a backup's also its enabled flag. The primary's concatenate flag is kept,
// its name is not.
#include <cstdint>
#include <string>

#include "Proj/IPreferences.h"
#include "settings/DestinationSetting.h"

namespace IGD {

// A fresh record with a new primary destination (without a path: the path section sets it from
// the list) and a new transcode setting.
DestinationSetting LoadPrimaryDestination(Proj::IPreferences& preferences);
// The same for backup `index` (1 for the first); the destination is not primary.
DestinationSetting LoadBackupDestination(Proj::IPreferences& preferences, std::uint32_t index);

// The key prefix of the recent paths of destination `index`: 0 for the primary, from 1 a backup.
std::string RecentPathListPrefix(std::uint32_t index);

// Nothing is written for a record without a destination.
void StorePrimaryDestination(Proj::IPreferences& preferences, const DestinationSetting& setting);
void StoreBackupDestination(Proj::IPreferences& preferences, const DestinationSetting& setting,
                            std::uint32_t index);

} // namespace IGD
