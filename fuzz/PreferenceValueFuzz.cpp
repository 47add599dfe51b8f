// Preference values as text, for every kind: what parses must format to text that parses to the
// same value, since `igd prefs` shows values in that text and takes them back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Proj/SerializeableValue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (Proj::ValueKind kind : {Proj::ValueKind::kBool, Proj::ValueKind::kInt32, Proj::ValueKind::kUInt32,
                                 Proj::ValueKind::kFloat, Proj::ValueKind::kString}) {
        const auto parsed = Proj::ParsePreferenceData(kind, text);
        if (!parsed)
            continue;
        if (Proj::KindOf(*parsed) != kind)
            std::abort();
        const std::string shown = Proj::FormatPreferenceData(*parsed);
        const auto again = Proj::ParsePreferenceData(kind, shown);
        if (!again || *again != *parsed)
            std::abort();
    }
    return 0;
}
