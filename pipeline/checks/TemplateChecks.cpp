#include "pipeline/checks/TemplateChecks.h"

#include <string_view>

#include "Fnd/PathUtils.h"
#include "fluxcore/ApplicationName.h"
#include "fluxcore/ZString.h"
#include "settings/IngestSettingsController.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

using fluxcore::Localize;

bool HasFields(const PresetRef& preset) {
    return preset && !preset->GetFields().empty();
}

// An empty template is allowed, but it is more often a slip than a choice.
bool ConfirmEmptyPreset(std::string_view message, fluxui::ui::UI_Node* parent) {
    enum { kYes, kNo };
    const int answer = fluxui::dialogs::messagebox::Messagebox(
        nullptr, Localize("$$$/Quillon/Ingest/Warning/EmptyPresetTitle=Empty Preset"), Localize(message),
        parent,
        {Localize("$$$/Quillon/Ingest/Warning/OptionYes=Yes"),
         Localize("$$$/Quillon/Ingest/Warning/OptionNo=No")},
        kYes, kNo);
    return answer != kNo;
}

bool Stop(std::string_view message, std::initializer_list<Fnd::WString> arguments = {}) {
    // The host's own name heads the box: the user meets it inside that host, not inside the library.
    fluxui::dialogs::messagebox::ShowStop(nullptr, fluxcore::config::GetApplicationName(),
                                          Localize(message, arguments), nullptr);
    return false;
}

} // namespace

bool CheckRenameTemplate(const IIngestDialogData& session, fluxui::ui::UI_Node* parent) {
    const IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    if (!settings.GetEnableRenameTemplate())
        return true;
    // A half-edited preset is neither saved nor dropped behind the user's back.
    if (settings.GetRenameEditMode())
        return Stop("$$$/Quillon/Ingest/Failure/RenameEditModeErrorMessage=Please save your rename preset "
                    "before continuing.");
    const PresetRef preset = session.GetRenamePreset();
    if (!HasFields(preset))
        return ConfirmEmptyPreset(
            "$$$/Quillon/Ingest/Warning/EmptyRenamePresetMessage=You have chosen an empty "
            "Rename preset. Do you want to continue?",
            parent);

    // Every name the template makes must differ from the source name somewhere: any field that is
    // not plain text does, and a text field does when it holds something usable in a file name.
    bool noEffect = true;
    for (const auto& field : preset->GetFields()) {
        if (field->GetType() != QL::kQLFieldCustomText) {
            noEffect = false;
            continue;
        }
        const Fnd::WString value = field->GetValue();
        if (value.empty())
            continue;
        Fnd::WString cleaned = value;
        if (Fnd::PathUtils::RemoveIllegalFileNameCharacters(cleaned))
            return Stop("$$$/Quillon/Ingest/Warning/InvalidRenameFieldErrorMessage=Cannot proceed with the "
                        "current Rename preset.^n^nA text field in Rename preset cannot contain any of the "
                        "following characters:^n\\ / : * ? \" < > |");
        if (Fnd::PathUtils::IsValidFileName(value))
            noEffect = false;
    }
    if (noEffect)
        return Stop(
            "$$$/Quillon/Ingest/Warning/EmptyTargetNameErrorMessage=Cannot proceed with current Rename "
            "preset.^n^nNo effective preset field is found.");
    return true;
}

bool CheckMetadataTemplate(const IIngestDialogData& session, fluxui::ui::UI_Node* parent) {
    const IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    if (!settings.GetEnableMetadataTemplate())
        return true;
    if (settings.GetMetadataEditMode())
        return Stop(
            "$$$/Quillon/Ingest/Failure/MetadataEditModeErrorMessage=Please save your metadata preset "
            "before continuing.");
    const PresetRef preset = session.GetMetadataPreset();
    if (!HasFields(preset))
        return ConfirmEmptyPreset("$$$/Quillon/Ingest/Warning/EmptyMetadataPresetMessage=You have chosen an "
                                  "empty Metadata preset. Do you want to continue?",
                                  parent);
    for (const auto& field : preset->GetFields())
        if (field->GetRequired() && field->GetValue().empty())
            return Stop(
                "$$$/Quillon/Ingest/Failure/EmptyRequiredFieldErrorMessage=Required field @0 is empty.",
                {field->GetKey()});
    return true;
}

} // namespace IGD
