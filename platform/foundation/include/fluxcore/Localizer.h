#pragma once
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace fluxcore::config {

// The optional translation catalogue. Without one every text shows its default.
class Localizer {
public:
    static Localizer& Get();

    // Reads a UTF-8 file of lines "$$$/path/Key=Translated text"; blank lines and lines starting
    // with "#" are ignored. Answers false (and keeps the current catalogue) if the file cannot be
    // read. Lines that are not of the form are skipped.
    bool LoadCatalogue(const std::string& path);
    void SetTranslation(std::string key, Fnd::WString text);
    void Clear();

    std::optional<Fnd::WString> Lookup(std::string_view key) const;

private:
    mutable std::mutex mutex_;
    std::map<std::string, Fnd::WString, std::less<>> translations_;
};

} // namespace fluxcore::config
