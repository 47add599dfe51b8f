#pragma once
// The start number of a custom counter field carries on from one ingest to the next, so that a
// day's clips never share a number.
#include <cstdint>

#include "IGD/IIngestDialogData.h"

namespace IGD {

// How far a successful ingest of the session moves the start number: 0 when its rename template
// has no custom counter; 1 when a stitched file is all it makes; else one per selected item.
std::uint32_t RenameCounterStep(const IIngestDialogData& session);

} // namespace IGD
