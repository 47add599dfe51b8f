#pragma once
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Each destination's sub-folder must make a usable folder name. Blanks around a good name are
// dropped from the destination itself, so what is checked is what gets created; the first bad
// name is told in one error box and answers false.
bool CheckSubFolderNames(const DestinationList& destinations);

} // namespace IGD
