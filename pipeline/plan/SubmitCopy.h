#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IngestCustomData.h"
#include "fluxcore/Guid.h"

namespace IGD {

// Submits one copy task for the destination: a unit for each item, with the item's own file
// first, then its extra files, and what to import, rename and identify once they are copied.
void SubmitCopyForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                              const SelectedItemList& items, const QL::IngestCustomData& customData,
                              const IngestDestination& destination, std::uint32_t verifyMode,
                              const CopyActionMap& decisions);

} // namespace IGD
