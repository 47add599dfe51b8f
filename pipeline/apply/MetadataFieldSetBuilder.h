#pragma once
#include "Fnd/InterfaceRef.h"
#include "QL/IQLPreset.h"
#include "QL/IngestCustomData.h"

namespace IGD {

// Replaces the metadata sets of customData by the one set the metadata template gives: the
// preset's name, the schema namespace made for that name, and each field's key with the value
// typed for this ingest (a later field wins over an earlier one of the same key). A null preset,
// or one without fields, leaves no set at all.
void BuildMetadataFieldSet(const Fnd::InterfaceRef<QL::IQLPreset>& preset, QL::IngestCustomData& customData);

} // namespace IGD
