#pragma once
// A preset field, or a preset of fields, in one call, for tests that build templates: its value follows the format, as in
// a field the user has just set up.
#include <string_view>

#include "QL/PresetFieldFactory.h"
#include "QL/PresetObject.h"

namespace igd::test {

inline Fnd::InterfaceRef<QL::IQLPresetField> Field(QL::_QLPresetFieldType type, std::u16string_view format = {},
                                                   std::u16string_view key = {}, bool required = false) {
    auto field = QL::CreatePresetField(type);
    field->SetKey(Fnd::WString(key));
    field->SetFormat(Fnd::WString(format));
    field->SetRequired(required);
    return field;
}

inline Fnd::InterfaceRef<QL::IQLPreset> Preset(QL::_QLPresetCategory category, const QL::PresetFieldList& fields,
                                               std::u16string_view name = u"Template") {
    return Fnd::InterfaceRef<QL::IQLPreset>(QL::PresetObject::Create(category, Fnd::WString(name), fields).get());
}

} // namespace igd::test
