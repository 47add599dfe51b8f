#pragma once
// The library's preferences by name and text, for tools such as `igd prefs`: which keys exist,
// what they hold, and a checked way to change one.
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "IGD/Export.h"
#include "Proj/IPreferences.h"

namespace IGD {

struct KnownPreferenceKey {
    Proj::ValueKind kind;
    // A value, or where the default is not a constant, how it comes about.
    std::string defaultText;
    bool defaultIsComputed = false;
    // The texts a key that names one of a few things may hold; empty for any text of its kind.
    std::span<const std::string_view> choices;
};

// The kind and default of a key the library reads, backups' and list keys included
// ("...Local.Backup.Enabled2", "...Primary.DestPathMRUIGD.IngestDestinationSettingImpl.PathsMRUItem0");
// nothing for any other text.
IGD_EXPORT std::optional<KnownPreferenceKey> FindPreferenceKey(std::string_view key);

struct PreferenceListing {
    std::string key;
    Proj::ValueKind kind;
    // What the store holds for the key; none when the default applies.
    std::optional<Proj::PreferenceData> value;
    std::string defaultText;
    bool defaultIsComputed = false;
    bool locked = false;
};

// Every key the library would read now, in the order of the tables: the lists of recent paths
// and the backups expanded as far as the stored counts reach.
IGD_EXPORT std::vector<PreferenceListing> ListPreferences(Proj::IPreferences& preferences);

struct PreferenceEditResult {
    bool ok = false;
    // The value on success, else why nothing was done.
    std::string text;
};

// The stored value of a known key as text, else its default ("(default: ...)" where the default
// is computed).
IGD_EXPORT PreferenceEditResult GetPreferenceText(Proj::IPreferences& preferences, std::string_view key);

// Writes a known key from its text form. Refused, with nothing written, for an unknown key, a
// text that is not of the key's kind or not one of its choices, or a locked key; lockSource, when given, names where the
// lock comes from.
IGD_EXPORT PreferenceEditResult SetPreferenceFromText(Proj::IPreferences& preferences, std::string_view key,
                                                      std::string_view text,
                                                      std::string_view lockSource = {});

} // namespace IGD
