#include "PrefsCommand.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "ExitCodes.h"
#include "Proj/PreferenceStore.h"
#include "IGD/PreferenceEditor.h"

namespace igd {
namespace {

struct PrefsOptions {
    std::string key;
    std::string value;
};

// Opening fails for a file that is not ours or is newer than this igd; say so and touch nothing.
Fnd::InterfaceRef<Proj::PreferenceStore> OpenStore() {
    try {
        return Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath());
    } catch (const Proj::PreferenceStoreError& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return nullptr;
    }
}

// Quotes an empty text so that a listing never shows a blank where a value stands.
std::string Shown(std::string text) {
    return text.empty() ? "\"\"" : text;
}

std::string ShownValue(const IGD::PreferenceListing& entry) {
    if (entry.value)
        return Shown(Proj::FormatPreferenceData(*entry.value));
    return "(default: " + (entry.defaultIsComputed ? entry.defaultText : Shown(entry.defaultText)) + ")";
}

int RunList() {
    const auto store = OpenStore();
    if (!store)
        return kExitFailure;
    const std::vector<IGD::PreferenceListing> entries = IGD::ListPreferences(*store);
    std::size_t keyWidth = 0;
    for (const auto& entry : entries)
        keyWidth = std::max(keyWidth, entry.key.size());
    for (const auto& entry : entries) {
        std::cout << entry.key << std::string(keyWidth - entry.key.size() + 2, ' ');
        const std::string_view kind = Proj::KindName(entry.kind);
        std::cout << kind << std::string(8 - std::min<std::size_t>(kind.size(), 7), ' ') << ShownValue(entry);
        if (entry.locked)
            std::cout << "  locked";
        std::cout << "\n";
    }
    return kExitSuccess;
}

int RunGet(const PrefsOptions& options) {
    const auto store = OpenStore();
    if (!store)
        return kExitFailure;
    const IGD::PreferenceEditResult result = IGD::GetPreferenceText(*store, options.key);
    (result.ok ? std::cout : std::cerr) << (result.ok ? "" : "igd: ") << result.text << "\n";
    return result.ok ? kExitSuccess : kExitFailure;
}

int RunSet(const PrefsOptions& options) {
    const auto store = OpenStore();
    if (!store)
        return kExitFailure;
    try {
        const IGD::PreferenceEditResult result =
            IGD::SetPreferenceFromText(*store, options.key, options.value, store->LockedKeysFile());
        if (!result.ok) {
            std::cerr << "igd: " << result.text << "\n";
            return kExitFailure;
        }
    } catch (const Proj::PreferenceStoreError& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return kExitFailure;
    }
    return kExitSuccess;
}

} // namespace

void RegisterPrefsCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<PrefsOptions>();
    CLI::App* prefs = app.add_subcommand("prefs", "show or change the preferences kept under $IGD_HOME");
    prefs->require_subcommand(1);

    CLI::App* list =
        prefs->add_subcommand("ls", "every preference with its kind and value; locked ones marked");
    table.Add(list, [] { return RunList(); });

    CLI::App* get = prefs->add_subcommand("get", "the value of a preference, or its default");
    get->add_option("key", options->key, "the preference key")->required();
    table.Add(get, [options] { return RunGet(*options); });

    CLI::App* set = prefs->add_subcommand("set", "change a preference; refused for a locked key");
    set->add_option("key", options->key, "the preference key")->required();
    set->add_option("value", options->value, "true/false, a number or text, as the key's kind asks")
        ->required();
    table.Add(set, [options] { return RunSet(*options); });
}

} // namespace igd
