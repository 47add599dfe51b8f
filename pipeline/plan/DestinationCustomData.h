#pragma once
#include "IGD/IngestDestination.h"
#include "QL/IngestCustomData.h"

namespace IGD {

// What a copy or transcode to this destination carries: the metadata template's values only where
// the destination applies them; the answers of the metadata panel always.
QL::IngestCustomData CustomDataForDestination(const QL::IngestCustomData& data,
                                              const IngestDestination& destination);

} // namespace IGD
