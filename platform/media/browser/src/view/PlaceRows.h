#pragma once
#include <vector>

#include "fluxmediabrowser/Places.h"
#include "fluxui/controls/UI_ListView.h"

namespace fluxmediabrowser {

// The directory list's rows, in the order of the places: a folder picture and the place's name,
// a removable volume marked as such.
std::vector<fluxui::controls::ListRow> MakePlaceRows(const std::vector<Place>& places);

} // namespace fluxmediabrowser
