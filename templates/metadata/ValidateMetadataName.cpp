#include "templates/metadata/ValidateMetadataName.h"

#include "fluxui/Messagebox.h"

namespace IGD {

bool ShowMetadataNameProblem(const MetadataNameProblem& problem, fluxui::ui::UI_Node* parent) {
    if (!problem)
        return true;
    fluxui::dialogs::messagebox::ShowStop(nullptr, problem.title, problem.text, parent);
    return false;
}

bool ValidateMetadataName(const Fnd::WString& name, fluxui::ui::UI_Node* parent, bool isPresetName) {
    return ShowMetadataNameProblem(
        CheckMetadataName(name, isPresetName ? MetadataNameKind::PresetName : MetadataNameKind::FieldName),
        parent);
}

} // namespace IGD
