#include "fluxcore/Localizer.h"

#include <fstream>

namespace fluxcore::config {

namespace {

constexpr std::string_view kKeyPrefix = "$$$/";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

Localizer& Localizer::Get() {
    // Never destroyed: texts may still be localised by static destructors and late threads.
    static Localizer* instance = new Localizer;
    return *instance;
}

bool Localizer::LoadCatalogue(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return false;

    std::map<std::string, Fnd::WString, std::less<>> loaded;
    std::string line;
    bool firstLine = true;
    while (std::getline(file, line)) {
        std::string_view text = line;
        if (firstLine && text.starts_with(kByteOrderMark))
            text.remove_prefix(kByteOrderMark.size());
        firstLine = false;
        // Catalogues edited on other systems end their lines with CR LF.
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (!text.starts_with(kKeyPrefix))
            continue; // blank, comment, or not a catalogue line
        const auto equals = text.find('=');
        if (equals == std::string_view::npos)
            continue;
        loaded.insert_or_assign(std::string(text.substr(0, equals)), Fnd::FromUTF8(text.substr(equals + 1)));
    }
    if (file.bad())
        return false;

    std::lock_guard lock(mutex_);
    translations_ = std::move(loaded);
    return true;
}

void Localizer::SetTranslation(std::string key, Fnd::WString text) {
    std::lock_guard lock(mutex_);
    translations_.insert_or_assign(std::move(key), std::move(text));
}

void Localizer::Clear() {
    std::lock_guard lock(mutex_);
    translations_.clear();
}

std::optional<Fnd::WString> Localizer::Lookup(std::string_view key) const {
    std::lock_guard lock(mutex_);
    const auto found = translations_.find(key);
    if (found == translations_.end())
        return std::nullopt;
    return found->second;
}

} // namespace fluxcore::config
