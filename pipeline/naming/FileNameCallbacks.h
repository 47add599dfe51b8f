#pragma once
// The two process-wide functions a host may give the plan: one that picks the name a hosted copy
// is written under, and one that is told each main target of a copy.
#include "IGD/IngestApi.h"

namespace IGD {

// Empty when the host set none.
const GenerateAutomaticFileNameFunction& GetGenerateAutomaticFileNameCallback();
const IngestCopyOutputFileNameFunction& GetIngestCopyOutputFileNameCallback();

} // namespace IGD
