#pragma once
#include <cstdint>

#include "Fnd/Date.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Names every selected item (its outputName) and every stitching destination (its
// concatenateName) by the session's rename template, with date as the ingest date and custom
// counter fields starting at startNumber (the settings' start number; 0 counts as 1). Items count
// from firstCounter in order: a request spread over several sessions goes on counting where the
// last one stopped. Each stitching destination counts from 1 on its own, so stitched files of one
// run carry the same number. A session without a template, or with an empty one, keeps the names
// it has. No uniqueness is enforced: equal names surface later as existing-file questions.
void GenerateOutputNames(IIngestDialogData& session, Fnd::Date date, std::uint32_t startNumber,
                         std::uint32_t firstCounter = 1);

// The same with the present time as the ingest date.
void GenerateOutputNamesNow(IIngestDialogData& session, std::uint32_t startNumber);

} // namespace IGD
