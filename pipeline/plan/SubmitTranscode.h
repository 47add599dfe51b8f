#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IngestCustomData.h"
#include "fluxcore/Guid.h"

namespace IGD {

// Submits one transcode task for each item, from a copy of the destination's setting.
void SubmitTranscodeForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                   const SelectedItemList& items, const QL::IngestCustomData& customData,
                                   const IngestDestination& destination);

// Submits one task that stitches all clips into one file; nothing when the selection holds
// anything but clips.
void SubmitConcatenateForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                     const SelectedItemList& items, const QL::IngestCustomData& customData,
                                     const IngestDestination& destination);

} // namespace IGD
