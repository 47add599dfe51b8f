#include "pipeline/naming/OutputNameBuilder.h"

namespace IGD {

Fnd::WString FormatCounterValue(std::uint32_t base, std::uint32_t offset, Fnd::WStringView mask) {
    // Summed in 64 bits: a start number near the top must not wrap round to small numbers.
    const Fnd::WString text = Fnd::ToDecimal(std::uint64_t{base} + offset);
    if (text.size() >= mask.size())
        return text;
    Fnd::WString padded(mask.substr(0, mask.size() - text.size()));
    padded += text;
    return padded;
}

OutputNameBuilder::OutputNameBuilder(const QL::PresetFieldList& fields, std::uint32_t startNumber)
    : startNumber_(startNumber == 0 ? 1 : startNumber) {
    fields_.reserve(fields.size());
    for (const auto& field : fields)
        fields_.emplace_back(field->GetType(), field->GetValue());
}

const Fnd::WString& OutputNameBuilder::FormattedDate(Field& field, Fnd::Date date) {
    if (!field.cached || field.cachedSeconds != date.seconds) {
        field.cachedText = formatter_.Format(date, field.value);
        field.cachedSeconds = date.seconds;
        field.cached = true;
    }
    return field.cachedText;
}

Fnd::WString OutputNameBuilder::Build(Fnd::Date ingestDate, Fnd::Date fileDate, const Fnd::WString& baseName,
                                      std::uint32_t& counter) {
    Fnd::WString name;
    bool used = false;
    for (Field& field : fields_) {
        switch (field.type) {
        case QL::kQLFieldAutoIncrement:
            name += FormatCounterValue(0, counter, field.value);
            used = true;
            break;
        case QL::kQLFieldCustomText:
            name += field.value;
            break;
        case QL::kQLFieldCreationDate:
        case QL::kQLFieldCreationTime:
            name += FormattedDate(field, fileDate);
            break;
        case QL::kQLFieldIngestDate:
        case QL::kQLFieldIngestTime:
            name += FormattedDate(field, ingestDate);
            break;
        case QL::kQLFieldFileName:
            name += baseName;
            break;
        case QL::kQLFieldUserDefinedAutoIncrement:
            name += FormatCounterValue(startNumber_, counter - 1, field.value);
            used = true;
            break;
        case QL::kQLFieldMetadata:
        default:
            break;
        }
    }
    if (used)
        ++counter;
    return name;
}

Fnd::WString BuildOutputName(const QL::PresetFieldList& fields, Fnd::Date ingestDate, Fnd::Date fileDate,
                             const Fnd::WString& baseName, std::uint32_t startNumber, std::uint32_t& counter) {
    return OutputNameBuilder(fields, startNumber).Build(ingestDate, fileDate, baseName, counter);
}

} // namespace IGD
