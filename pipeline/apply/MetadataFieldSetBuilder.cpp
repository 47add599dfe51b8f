#include "pipeline/apply/MetadataFieldSetBuilder.h"

#include <memory>

#include "fluxmetadata/DynamicSchema.h"

namespace IGD {

void BuildMetadataFieldSet(const Fnd::InterfaceRef<QL::IQLPreset>& preset, QL::IngestCustomData& customData) {
    customData.metadataSets.clear();
    if (!preset)
        return;
    const QL::PresetFieldList fields = preset->GetFields();
    if (fields.empty())
        return;
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->presetName = preset->GetName(true);
    set->schemaNamespace =
        Fnd::FromUTF8(fluxmetadata::MakeDynamicSchemaNamespace(Fnd::ToUTF8(set->presetName)));
    for (const auto& field : fields)
        set->values[field->GetKey()] = field->GetValue();
    customData.metadataSets.push_back(std::move(set));
}

} // namespace IGD
