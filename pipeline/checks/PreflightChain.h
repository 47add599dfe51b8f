#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// The checks of sources and destinations before anything is transferred, in order, stopping at
// the first that fails; that one has shown its box. Every destination must have a transcode
// setting: whether it is on decides whether the destination is a copy target.
bool RunPreflightChain(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                       const DestinationList& destinations);

} // namespace IGD
