#pragma once
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Decides, per destination, whether the rename and metadata templates apply: the primary takes
// each template that is on and has fields; backups take it too unless its apply scope says
// primary only. Only the dialog's Ingest runs this; direct entry points keep their flags.
void ComputeApplyFlags(IIngestDialogData& session);

} // namespace IGD
