#pragma once
#include <cstdint>
#include <utility>
#include <vector>

#include "Fnd/Date.h"
#include "Fnd/LocalTimeFormatter.h"
#include "Fnd/WString.h"
#include "QL/IQLPreset.h"

namespace IGD {

// base + offset in decimal, left-padded with the leading characters of mask up to the mask's
// length ("0001" and 12 give "0012", "abc" and 7 give "ab7"). A number longer than its mask is
// never cut: a counter that outgrows its padding must still give distinct names.
Fnd::WString FormatCounterValue(std::uint32_t base, std::uint32_t offset, Fnd::WStringView mask);

// Turns the fields of one rename template into names, one item after another. The fields are read
// once, so a run over many items touches the preset's objects only at the start; the date fields
// keep their last text, since every item shares the ingest date and clips shot in one second share
// a creation date.
class OutputNameBuilder {
public:
    // startNumber is where custom counter fields start; 0, which no user sets, counts as 1.
    OutputNameBuilder(const QL::PresetFieldList& fields, std::uint32_t startNumber);

    // The name of one item. counter grows by one when any counter field used it, once for the item
    // however many counter fields the template holds.
    Fnd::WString Build(Fnd::Date ingestDate, Fnd::Date fileDate, const Fnd::WString& baseName,
                       std::uint32_t& counter);

private:
    struct Field {
        Field(QL::_QLPresetFieldType t, Fnd::WString v) : type(t), value(std::move(v)) {}

        QL::_QLPresetFieldType type;
        Fnd::WString value;
        bool cached = false;
        std::int64_t cachedSeconds = 0;
        Fnd::WString cachedText;
    };

    const Fnd::WString& FormattedDate(Field& field, Fnd::Date date);

    std::vector<Field> fields_;
    std::uint32_t startNumber_;
    Fnd::LocalTimeFormatter formatter_;
};

// One name, custom counter fields starting at startNumber; see OutputNameBuilder::Build.
Fnd::WString BuildOutputName(const QL::PresetFieldList& fields, Fnd::Date ingestDate, Fnd::Date fileDate,
                             const Fnd::WString& baseName, std::uint32_t startNumber, std::uint32_t& counter);

} // namespace IGD
