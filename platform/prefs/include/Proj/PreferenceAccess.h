#pragma once
// Reading and writing single preferences the way the whole library does: a refresh before every
// read, and no write to a read-only key, only a warning to the application.
#include <string>
#include <type_traits>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "Proj/IPreferences.h"

namespace Proj {

// The preferences of the installed back end; null when there is none, and using the null
// reference raises Fnd::NullInterfaceException.
Fnd::InterfaceRef<Proj::IPreferences> GetPreferences();

// value holds the default on the way in and keeps it when the key holds nothing of its kind.
template <class T>
void ReadPreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key, T& value) {
    preferences.Refresh();
    Proj::SerializeableValue<T> holder(value);
    if (preferences.GetValue(key, holder))
        value = holder.Get();
}
// Stored as UTF-8.
void ReadPreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key, Fnd::WString& value);

// Answers whether the key may be written; when not, posts
// Proj::OverrideReadOnlyPropertyWarningMessage to the preferences' station.
bool MayWritePreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key);

template <class T>
void WritePreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key, const T& value,
                     bool persistent = true) {
    static_assert(!std::is_convertible_v<T, Fnd::WStringView>, "wide strings go through their own overload");
    if (MayWritePreference(preferences, key))
        preferences.SetValue(key, Proj::SerializeableValue<T>(value), persistent);
}
void WritePreference(Proj::IPreferences& preferences, const Proj::PreferenceKey& key,
                     const Fnd::WString& value, bool persistent = true);

} // namespace Proj
