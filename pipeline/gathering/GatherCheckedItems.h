#pragma once
#include "IGD/IIngestDialogData.h"
#include "fluxmediabrowser/MediaBrowserView.h"

namespace IGD {

// Adds to the session what the person ticked in the browser, relative to the directory shown,
// and puts that directory among the recent ones. A null browser adds nothing.
void GatherCheckedItems(IIngestDialogData& session, fluxmediabrowser::MediaBrowserView* browser);

} // namespace IGD
