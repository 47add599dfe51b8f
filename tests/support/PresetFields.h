#pragma once
// A preset field in one call, for tests that build templates: its value follows the format, as in
// a field the user has just set up.
#include <string_view>

#include "QL/PresetFieldFactory.h"

namespace igd::test {

inline Fnd::InterfaceRef<QL::IQLPresetField> Field(QL::_QLPresetFieldType type, std::u16string_view format = {},
                                                   std::u16string_view key = {}, bool required = false) {
    auto field = QL::CreatePresetField(type);
    field->SetKey(Fnd::WString(key));
    field->SetFormat(Fnd::WString(format));
    field->SetRequired(required);
    return field;
}

} // namespace igd::test
