#pragma once
// The checks of a stitch (concatenation) before it is submitted.
#include <vector>

#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Every destination that stitches names a usable file for the stitched clip. On the first that
// does not, one error box, the setting's nameErrorCallback hears true (its section marks the
// field), and the answer is false.
bool CheckConcatenateNames(const DestinationList& destinations);

// Only clips can be stitched: every source path is valid, and none is a folder or a rough cut.
// Else one error box and false.
bool CheckConcatenateSelection(const std::vector<Fnd::WString>& sourcePaths);

// Some destination stitches: its transcode setting is on and asks for a concatenation.
bool AnyDestinationConcatenates(const DestinationList& destinations);

} // namespace IGD
