#pragma once
#include "IGD/IIngestDialogData.h"
#include "fluxcore/Guid.h"

namespace IGD {

// Turns a filled session into tasks under one batch: for each destination a copy, transcodes or a
// stitch; without destinations an import or a metadata update. Asks nothing but one box for a
// source that has vanished. Stops silently at a destination that has no copy decisions.
void RunIngestPlan(IngestDialogDataRef session, const fluxcore::utility::Guid& batch);

} // namespace IGD
