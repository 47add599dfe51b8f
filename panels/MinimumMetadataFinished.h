#pragma once
#include "QL/MetadataFieldSet.h"

namespace IGD {

// Posts QL::MiniMetadataFinishedMessage (urgent) to the UI thread's queue of kStation_IngestMedia.
void PostMinimumMetadataFinished(bool success, const QL::MinimumMetadataResult& result);

} // namespace IGD
