#pragma once
#include "Fnd/WString.h"

namespace IGD {

// The box of a stopped ingest: the text with OK, under the title every such stop shares. Answers
// false, the answer of the check that stopped.
bool ShowIngestFailure(const Fnd::WString& text);

} // namespace IGD
