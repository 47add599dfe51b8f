#pragma once
#include "Fnd/WString.h"
#include "IGD/MetadataPresetRules.h"

namespace fluxui::ui {
class UI_Node;
}

namespace IGD {

// Says a problem in a stop box over parent; false when there was one to say.
bool ShowMetadataNameProblem(const MetadataNameProblem& problem, fluxui::ui::UI_Node* parent);

// A key or a preset name against the metadata rules; false, after a stop box over parent, when it
// breaks one.
bool ValidateMetadataName(const Fnd::WString& name, fluxui::ui::UI_Node* parent, bool isPresetName);

} // namespace IGD
