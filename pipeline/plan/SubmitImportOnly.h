#pragma once
// Requests that transfer nothing: the items are imported where they lie.
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IngestCustomData.h"
#include "fluxcore/Guid.h"

namespace IGD {

// One import task for all items; submitted even when there are none.
void SubmitImportForItems(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                          const SelectedItemList& items, const QL::IngestCustomData& customData);

// One task that imports the items and writes their new names and metadata; nothing without items.
void SubmitUpdateMetadataForItems(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                  const SelectedItemList& items, const QL::IngestCustomData& customData);

} // namespace IGD
