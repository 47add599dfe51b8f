#include "BrowserViewState.h"

#include "MediaRows.h"
#include "Proj/PreferenceAccess.h"

namespace fluxmediabrowser {
namespace {

constexpr const char16_t* kListMode = u"list";
constexpr const char16_t* kIconMode = u"icons";

} // namespace

BrowserViewState ReadBrowserViewState() {
    BrowserViewState state;
    const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    if (!preferences)
        return state;
    Fnd::WString mode;
    Proj::ReadPreference(*preferences, kPrefsViewMode, mode);
    if (mode == kListMode)
        state.mode = fluxui::controls::ListViewMode::List;
    else if (mode == kIconMode)
        state.mode = fluxui::controls::ListViewMode::Icons;
    Fnd::WString keys;
    Proj::ReadPreference(*preferences, kPrefsColumns, keys);
    if (!keys.empty())
        state.columns = ColumnsFromKeys(keys);
    return state;
}

void WriteBrowserViewMode(fluxui::controls::ListViewMode mode) {
    if (const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences())
        Proj::WritePreference(*preferences, kPrefsViewMode,
                              Fnd::WString(mode == fluxui::controls::ListViewMode::Icons ? kIconMode : kListMode));
}

void WriteBrowserColumns(const std::vector<MediaColumn>& columns) {
    if (const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences())
        Proj::WritePreference(*preferences, kPrefsColumns, ColumnKeys(columns));
}

} // namespace fluxmediabrowser
