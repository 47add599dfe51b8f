#pragma once
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Moves the settings' start number of a custom counter on by the session's step, when renaming is
// on: a finished ingest must not hand out its numbers again.
void AdvanceRenameCounter(const IIngestDialogData& session);

} // namespace IGD
