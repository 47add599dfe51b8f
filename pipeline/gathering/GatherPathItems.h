#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Adds to the session the items that a media browser provider makes of one path a host named.
// A session without a source root takes the provider's; one that has a root keeps it, and the new
// items are relative to it. A path no provider knows adds nothing; the caller then takes the path
// as a single file.
void GatherPathItems(IIngestDialogData& session, const Fnd::WString& path);

} // namespace IGD
