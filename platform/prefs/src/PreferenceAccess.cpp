#include "Proj/PreferenceAccess.h"

#include "Fnd/StationUtils.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceMessages.h"

namespace Proj {

Fnd::InterfaceRef<Proj::IPreferences> GetPreferences() {
    return Fnd::InterfaceRef<Proj::IPreferences>::Query(Proj::GetBackend());
}

void ReadPreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key, Fnd::WString& value) {
    preferences.Refresh();
    Proj::SerializeableValue<std::string> holder;
    if (preferences.GetValue(key, holder))
        value = Fnd::FromUTF8(holder.Get());
}

bool MayWritePreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key) {
    if (!preferences.IsReadOnly(key))
        return true;
    // Posted even on the UI thread, so that the application hears of it after the current
    // handler rather than in the middle of a store.
    Fnd::StationUtils::PostMessageToUIThread(preferences.GetStationID(),
                                             Proj::OverrideReadOnlyPropertyWarningMessage(), false);
    return false;
}

void WritePreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key,
                     const Fnd::WString& value, bool persistent) {
    if (MayWritePreference(preferences, key))
        preferences.SetValue(key, Proj::SerializeableValue<std::string>(Fnd::ToUTF8(value)), persistent);
}

} // namespace Proj
