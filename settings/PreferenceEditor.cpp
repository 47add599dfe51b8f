#include "IGD/PreferenceEditor.h"

#include <algorithm>
#include <charconv>
#include <memory>

#include "Fnd/WString.h"
#include "settings/SettingKeys.h"

namespace IGD {
namespace {

struct DefaultFormatter {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(std::u16string_view text) const { return Fnd::ToUTF8(text); }
    std::string operator()(auto value) const { return Proj::FormatPreferenceData(value); }
};

std::string DefaultText(const PreferenceKeyInfo& info) {
    if (!info.defaultNote.empty())
        return std::string(info.defaultNote);
    return std::visit(DefaultFormatter{}, info.defaultValue);
}

// A backup's number or a list item's, written as the library writes it: decimal, no sign, no
// leading zero. Consumes the digits from text.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
    std::size_t digits = 0;
    while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9')
        ++digits;
    if (digits == 0 || (digits > 1 && text[0] == '0'))
        return std::nullopt;
    std::uint32_t number = 0;
    if (std::from_chars(text.data(), text.data() + digits, number).ec != std::errc())
        return std::nullopt;
    text.remove_prefix(digits);
    return number;
}

std::optional<KnownPreferenceKey> Known(const PreferenceKeyInfo& info) {
    return KnownPreferenceKey{*info.kind, DefaultText(info), !info.defaultNote.empty(), info.choices};
}

// What follows a list's prefix: its count, or an item with its number.
std::optional<KnownPreferenceKey> FindListPart(std::string_view rest) {
    if (rest == kPathsMRUCount.name)
        return Known(Describe(kPathsMRUCount));
    if (rest.starts_with(kPathsMRUItem.name)) {
        rest.remove_prefix(kPathsMRUItem.name.size());
        if (TakeNumber(rest) && rest.empty())
            return Known(Describe(kPathsMRUItem));
    }
    return std::nullopt;
}

std::optional<KnownPreferenceKey> FindInTable(const auto& table, std::string_view key) {
    for (const PreferenceKeyInfo& info : table) {
        switch (info.shape) {
        case KeyShape::kPlain:
            if (key == info.name)
                return Known(info);
            break;
        case KeyShape::kIndexed:
        case KeyShape::kIndexedListPrefix:
            if (key.starts_with(info.name)) {
                std::string_view rest = key.substr(info.name.size());
                const auto index = TakeNumber(rest);
                if (!index || *index == 0)
                    break;
                if (info.shape == KeyShape::kIndexed && rest.empty())
                    return Known(info);
                if (info.shape == KeyShape::kIndexedListPrefix)
                    if (auto part = FindListPart(rest))
                        return part;
            }
            break;
        case KeyShape::kListPrefix:
            if (key.starts_with(info.name))
                if (auto part = FindListPart(key.substr(info.name.size())))
                    return part;
            break;
        case KeyShape::kListCount:
        case KeyShape::kListItem:
            break; // only ever joined to a prefix
        }
    }
    return std::nullopt;
}

std::unique_ptr<Proj::SerializeableValueBase> MakeValue(Proj::ValueKind kind) {
    switch (kind) {
    case Proj::ValueKind::kBool:
        return std::make_unique<Proj::SerializeableValue<bool>>();
    case Proj::ValueKind::kInt32:
        return std::make_unique<Proj::SerializeableValue<std::int32_t>>();
    case Proj::ValueKind::kUInt32:
        return std::make_unique<Proj::SerializeableValue<std::uint32_t>>();
    case Proj::ValueKind::kFloat:
        return std::make_unique<Proj::SerializeableValue<float>>();
    case Proj::ValueKind::kString:
        return std::make_unique<Proj::SerializeableValue<std::string>>();
    }
    return nullptr;
}

std::optional<Proj::PreferenceData> StoredValue(Proj::IPreferences& preferences, const std::string& key,
                                                Proj::ValueKind kind) {
    const auto value = MakeValue(kind);
    if (!preferences.GetValue(Proj::PreferenceKey(key), *value))
        return std::nullopt;
    return value->GetData();
}

std::string_view KindExplained(Proj::ValueKind kind) {
    switch (kind) {
    case Proj::ValueKind::kBool:
        return "true or false";
    case Proj::ValueKind::kInt32:
        return "a whole number from -2147483648 to 2147483647";
    case Proj::ValueKind::kUInt32:
        return "a whole number from 0 to 4294967295";
    case Proj::ValueKind::kFloat:
        return "a decimal number";
    case Proj::ValueKind::kString:
        return "UTF-8 text";
    }
    return {};
}

class Lister {
public:
    explicit Lister(Proj::IPreferences& preferences) : preferences_(preferences) {}

    void Add(const std::string& key, const PreferenceKeyInfo& info) {
        entries_.push_back({.key = key,
                            .kind = *info.kind,
                            .value = StoredValue(preferences_, key, *info.kind),
                            .defaultText = DefaultText(info),
                            .defaultIsComputed = !info.defaultNote.empty(),
                            .locked = preferences_.IsReadOnly(Proj::PreferenceKey(key))});
    }

    // The keys of a list, as far as its count reaches (at most five items are ever read).
    void AddList(const std::string& prefix) {
        const std::string countKey = prefix + std::string(kPathsMRUCount.name);
        Add(countKey, Describe(kPathsMRUCount));
        const auto count = StoredValue(preferences_, countKey, Proj::ValueKind::kUInt32);
        const std::uint32_t items = count ? std::min<std::uint32_t>(std::get<std::uint32_t>(*count), 5) : 0;
        for (std::uint32_t item = 0; item < items; ++item)
            Add(prefix + std::string(kPathsMRUItem.name) + std::to_string(item), Describe(kPathsMRUItem));
    }

    void AddBackups() {
        const auto stored =
            StoredValue(preferences_, std::string(kLocalBackupCount.name), Proj::ValueKind::kUInt32);
        // As the controller loads them: the count plus one in 32 bits, so 0xFFFFFFFF means none.
        const std::uint32_t end = (stored ? std::get<std::uint32_t>(*stored) : 0) + 1;
        for (std::uint32_t index = 1; index < end; ++index)
            for (const PreferenceKeyInfo& info : kSettingsControllerKeys) {
                const std::string key = std::string(info.name) + std::to_string(index);
                if (info.shape == KeyShape::kIndexed)
                    Add(key, info);
                else if (info.shape == KeyShape::kIndexedListPrefix)
                    AddList(key);
            }
    }

    std::vector<PreferenceListing> Take() { return std::move(entries_); }

private:
    Proj::IPreferences& preferences_;
    std::vector<PreferenceListing> entries_;
};

} // namespace

std::optional<KnownPreferenceKey> FindPreferenceKey(std::string_view key) {
    if (auto known = FindInTable(kSettingsControllerKeys, key))
        return known;
    return FindInTable(kDialogKeys, key);
}

std::vector<PreferenceListing> ListPreferences(Proj::IPreferences& preferences) {
    preferences.Refresh();
    Lister lister(preferences);
    bool backupsListed = false;
    for (const PreferenceKeyInfo& info : kSettingsControllerKeys) {
        switch (info.shape) {
        case KeyShape::kPlain:
            lister.Add(std::string(info.name), info);
            break;
        case KeyShape::kListPrefix:
            lister.AddList(std::string(info.name));
            break;
        case KeyShape::kIndexed:
        case KeyShape::kIndexedListPrefix:
            // Each backup's keys together, where the first of them stands in the table.
            if (!backupsListed)
                lister.AddBackups();
            backupsListed = true;
            break;
        case KeyShape::kListCount:
        case KeyShape::kListItem:
            break;
        }
    }
    for (const PreferenceKeyInfo& info : kDialogKeys)
        lister.Add(std::string(info.name), info);
    return lister.Take();
}

PreferenceEditResult GetPreferenceText(Proj::IPreferences& preferences, std::string_view key) {
    const auto known = FindPreferenceKey(key);
    if (!known)
        return {false, "unknown preference key: " + std::string(key)};
    preferences.Refresh();
    if (auto value = StoredValue(preferences, std::string(key), known->kind))
        return {true, Proj::FormatPreferenceData(*value)};
    return {true, known->defaultIsComputed ? "(default: " + known->defaultText + ")" : known->defaultText};
}

PreferenceEditResult SetPreferenceFromText(Proj::IPreferences& preferences, std::string_view key,
                                           std::string_view text, std::string_view lockSource) {
    const auto known = FindPreferenceKey(key);
    if (!known)
        return {false, "unknown preference key: " + std::string(key) + "; nothing was written"};
    const auto data = Proj::ParsePreferenceData(known->kind, text);
    if (!data)
        return {false, std::string(key) + " holds " + std::string(Proj::KindName(known->kind)) + " (" +
                           std::string(KindExplained(known->kind)) + "), not \"" + std::string(text) +
                           "\"; nothing was written"};
    if (!known->choices.empty() && std::find(known->choices.begin(), known->choices.end(), text) == known->choices.end()) {
        std::string names;
        for (const std::string_view choice : known->choices)
            names += (names.empty() ? "" : ", ") + std::string(choice);
        return {false, std::string(key) + " holds one of " + names + ", not \"" + std::string(text) +
                           "\"; nothing was written"};
    }
    const Proj::PreferenceKey preferenceKey(key);
    if (preferences.IsReadOnly(preferenceKey)) {
        std::string reason = std::string(key) + " is locked by the administrator";
        if (!lockSource.empty())
            reason += " (listed in " + std::string(lockSource) + ")";
        return {false, reason + "; nothing was written"};
    }
    const auto value = MakeValue(known->kind);
    value->SetData(*data);
    preferences.SetValue(preferenceKey, *value, true);
    return {true, Proj::FormatPreferenceData(*data)};
}

} // namespace IGD
