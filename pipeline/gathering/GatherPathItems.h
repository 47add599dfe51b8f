#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Adds to the session the items that a media browser provider makes of one path a host named,
// and sets the session's source root to match. A path no provider knows adds nothing; the caller
// then takes the path as a single file.
void GatherPathItems(IIngestDialogData& session, const Fnd::WString& path);

} // namespace IGD
