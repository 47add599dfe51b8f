#pragma once
// The checks of the rename and metadata templates before an ingest, run by the dialog and by
// hosts that check an embedded settings view. Each answers false after one box when the ingest
// must not go on; nothing in the session or its presets is changed.
#include "IGD/IIngestDialogData.h"

namespace fluxui::ui {
class UI_Node;
}

namespace IGD {

// Passes when the rename template is off. Refuses a template still being edited, or one whose
// text fields hold illegal characters or add nothing to a name; asks before using an empty one.
bool CheckRenameTemplate(const IIngestDialogData& session, fluxui::ui::UI_Node* parent);

// Passes when the metadata template is off. Refuses a template still being edited or with a
// required field left empty; asks before using an empty one.
bool CheckMetadataTemplate(const IIngestDialogData& session, fluxui::ui::UI_Node* parent);

} // namespace IGD
