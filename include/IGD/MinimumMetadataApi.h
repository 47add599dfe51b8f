#pragma once
// The metadata a site requires before an ingest is submitted, asked through an extension panel.
#include <vector>

#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "fluxui/ui/UI_Dialog.h"

namespace IGD {

// Shows the site's minimum-metadata panel for the files (full paths, in order), if the preference
// and the panel host ask for one. QL::MiniMetadataFinishedMessage is posted on
// QL::kStation_IngestMedia on every path, with or without a panel. Answers the panel's dialog while
// a modeless panel runs, else null (a modal panel has ended when this returns).
IGD_EXPORT boost::intrusive_ptr<fluxui::ui::UI_Dialog>
DoMinimumMetadataDialog(const std::vector<Fnd::WString>& filePaths);

} // namespace IGD
