#include "QL/PresetDocument.h"

#include "Fnd/NullInterfaceException.h"
#include "QL/PresetFieldFactory.h"

namespace QL {

PresetDocument MakePresetDocument(_QLPresetCategory category, const Fnd::WString& name,
                                  const PresetFieldList& fields) {
    PresetDocument document;
    document.category = category;
    document.name = name;
    document.fields.reserve(fields.size());
    for (const auto& field : fields) {
        if (!field)
            throw Fnd::NullInterfaceException("QL::MakePresetDocument: null field");
        document.fields.push_back(
            {field->GetType(), field->GetKey(), field->GetFormat(), field->GetRequired()});
    }
    return document;
}

PresetFieldList MakePresetFields(const std::vector<PresetFieldRecord>& records) {
    PresetFieldList fields;
    fields.reserve(records.size());
    for (const auto& record : records) {
        auto field = CreatePresetField(record.type);
        field->SetKey(record.key);
        field->SetRequired(record.required);
        field->SetFormat(record.format);
        fields.push_back(field);
    }
    return fields;
}

bool FieldTypeBelongsTo(_QLPresetFieldType type, _QLPresetCategory category) {
    return (type == kQLFieldMetadata) == (category == kQLPresetCategoryMetadata);
}

} // namespace QL
