#pragma once
// The start number of a custom counter field carries on from one ingest to the next, so that a
// day's clips never share a number.
#include <cstdint>
#include <optional>

#include "IGD/IIngestDialogData.h"

namespace IGD {

// How far a successful ingest of the session moves the start number: 0 when its rename template
// has no custom counter; 1 when a stitched file is all it makes; else one per selected item.
std::uint32_t RenameCounterStep(const IIngestDialogData& session);

// The start number after `used` numbers were handed out from startNumber (0 counts as 1, as it
// does for the names); nothing when that would pass the largest number the stored counter holds,
// where it would wrap round and hand out the day's numbers again.
std::optional<std::uint32_t> NextStartNumber(std::uint32_t startNumber, std::uint64_t used);

} // namespace IGD
