#pragma once
// The view mode and the columns a person chose, kept between runs for a browser that remembers.
#include <optional>
#include <vector>

#include "fluxmediabrowser/BrowserPreferenceKeys.h"
#include "fluxmediabrowser/MediaEntry.h"
#include "fluxui/controls/UI_ListView.h"

namespace fluxmediabrowser {

struct BrowserViewState {
    std::optional<fluxui::controls::ListViewMode> mode;
    std::optional<std::vector<MediaColumn>> columns;
};

// What is stored; nothing without installed preferences or for keys never written.
BrowserViewState ReadBrowserViewState();
void WriteBrowserViewMode(fluxui::controls::ListViewMode mode);
void WriteBrowserColumns(const std::vector<MediaColumn>& columns);

} // namespace fluxmediabrowser
