#pragma once
#include <vector>

#include "Fnd/WString.h"
#include "Proj/ProjectItem.h"
#include "QL/IngestCustomData.h"

namespace QL::Engine {

// Whether the custom data holds anything to write: a value of a metadata set, or a keyword.
bool CarriesMetadata(const IngestCustomData& data);

// What a copy writes into the sidecars at its destination. The panel's answers go to a backup
// only when the user asked for them on every destination; the template's values are already
// filtered per destination by the plan.
IngestCustomData MetadataForDestination(const IngestCustomData& data, bool primary);

// The custom data as the project keeps it: one entry per schema, keywords as dc:subject.
std::vector<Proj::ItemMetadata> ProjectMetadata(const IngestCustomData& data);

// The sidecar that receives the metadata of a media file: its ".xmp" side file if it has one,
// else where the media's sidecar belongs.
Fnd::WString SidecarPathFor(const Fnd::WString& mediaPath, const std::vector<Fnd::WString>& extraPaths);

} // namespace QL::Engine
