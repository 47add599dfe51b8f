#pragma once
// The host's calls around the Ingest dialog.
#include "IGD/Export.h"

namespace IGD {

// Called once at exit: the settings model lets go of its destinations and presets.
IGD_EXPORT void IngestDialogTerminate();

} // namespace IGD
