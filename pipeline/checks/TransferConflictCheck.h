#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// No destination may be the source folder itself (only a clip being transcoded may land there,
// under its new name), and no selected folder may contain a destination, which would copy the
// copy into itself. The first conflict is told in one error box and answers false.
bool CheckTransferConflicts(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                            const DestinationList& destinations);

} // namespace IGD
