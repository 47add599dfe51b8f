#include "QL/PresetFieldTypeNames.h"

#include <array>
#include <stdexcept>
#include <string>
#include <utility>

namespace QL {
namespace {

constexpr std::array<std::pair<_QLPresetFieldType, std::string_view>, 9> kNames{{
    {kQLFieldAutoIncrement, "autoIncrement"},
    {kQLFieldCustomText, "customText"},
    {kQLFieldCreationDate, "creationDate"},
    {kQLFieldIngestDate, "ingestDate"},
    {kQLFieldCreationTime, "creationTime"},
    {kQLFieldIngestTime, "ingestTime"},
    {kQLFieldFileName, "fileName"},
    {kQLFieldMetadata, "metadata"},
    {kQLFieldUserDefinedAutoIncrement, "customAutoIncrement"},
}};

} // namespace

std::string_view PresetFieldTypeName(_QLPresetFieldType type) {
    for (const auto& [value, name] : kNames)
        if (value == type)
            return name;
    throw std::invalid_argument("QL::PresetFieldTypeName: no field type " + std::to_string(type));
}

std::optional<_QLPresetFieldType> PresetFieldTypeFromName(std::string_view name) {
    for (const auto& [value, text] : kNames)
        if (text == name)
            return value;
    return std::nullopt;
}

} // namespace QL
