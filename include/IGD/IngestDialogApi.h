#pragma once
// The host's calls around the Ingest dialog.
#include "IGD/Export.h"

namespace IGD {

// Lets go of the images and layouts that an embedded settings view loaded; the next dialog or
// view loads them again. Call it before IngestDialogTerminate.
IGD_EXPORT void ReleaseIngestResHandlers();

// Called once at exit: the settings model lets go of its destinations and presets.
IGD_EXPORT void IngestDialogTerminate();

} // namespace IGD
