#pragma once
#include "QL/MetadataFieldSet.h"

namespace QL {

// What travels unchanged with every task of a request.
struct IngestCustomData {
    MetadataFieldSetList metadataSets; // at most one set: the metadata template's values
    MinimumMetadataResult minimumMetadata;
};

} // namespace QL
