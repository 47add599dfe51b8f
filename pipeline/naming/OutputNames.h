#pragma once
#include <cstdint>

#include "Fnd/Date.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Names every selected item (its outputName) and every stitching destination (its
// concatenateName) by the session's rename template, with date as the ingest date. Items count
// from 1 in order; each stitching destination counts from 1 on its own, so stitched files of one
// run carry the same number. A session without a template, or with an empty one, keeps the names
// it has. No uniqueness is enforced: equal names surface later as existing-file questions.
void GenerateOutputNames(IIngestDialogData& session, Fnd::Date date);

// The same with the items counted from firstCounter: a request spread over several sessions goes
// on counting where the last one stopped. Stitching destinations still count from 1.
void GenerateOutputNames(IIngestDialogData& session, Fnd::Date date, std::uint32_t firstCounter);

// The same with the present time as the ingest date.
void GenerateOutputNamesNow(IIngestDialogData& session);

} // namespace IGD
