#pragma once
// What the media view shows of the model: one row per entry, cells in the order of the columns.
#include <vector>

#include "fluxmediabrowser/MediaEntry.h"
#include "fluxui/controls/UI_ListView.h"

namespace fluxmediabrowser {

fluxui::controls::ListRow MakeMediaRow(const MediaEntry& entry, const std::vector<MediaColumn>& columns);
std::vector<fluxui::controls::ListColumn> MakeListColumns(const std::vector<MediaColumn>& columns);

// The columns with column added in its standard place, or taken out; Name always stays.
std::vector<MediaColumn> ToggleColumn(const std::vector<MediaColumn>& columns, MediaColumn column);

// Column keys as stored in the preferences, e.g. "name,duration,size"; unknown keys are skipped
// and Name is put first when missing.
Fnd::WString ColumnKeys(const std::vector<MediaColumn>& columns);
std::vector<MediaColumn> ColumnsFromKeys(const Fnd::WString& keys);

} // namespace fluxmediabrowser
