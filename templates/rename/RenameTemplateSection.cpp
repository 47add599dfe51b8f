#include "templates/rename/RenameTemplateSection.h"

#include <algorithm>

#include "Fnd/PathUtils.h"
#include "fluxcore/ApplicationName.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"
#include "pipeline/naming/RenameSampleText.h"
#include "templates/rename/RenameTemplateAddFieldSection.h"
#include "templates/rename/RenameTemplateEditModeFieldsContainer.h"
#include "templates/rename/RenameTemplateEditModeHeader.h"
#include "templates/rename/RenameTemplateNormalModeFieldsContainer.h"
#include "templates/rename/RenameTemplateNormalModeHeader.h"
#include "templates/rename/RenameTemplateSampleSection.h"

namespace IGD {

using fluxcore::Localize;

RenameTemplateSection::RenameTemplateSection(std::shared_ptr<IngestSettingsController> settings)
    : PresetManagementSection(Localize("$$$/Quillon/Libraries/IngestDialog/RenameOptionsTitle=File Rename"),
                              "igdRenameTemplateHeader", std::move(settings)) {}

RenameTemplateSection::~RenameTemplateSection() = default;

void RenameTemplateSection::BindControls() {
    PresetManagementSection::BindControls();
    SetPowerTooltips(
        Localize("$$$/Quillon/Handlers/MediaCollection/FileRenamePowerOnBtnToolTip=Enable Rename Files"),
        Localize("$$$/Quillon/Handlers/MediaCollection/FileRenamePowerOffBtnToolTip=Disable Rename Files"));
    GetEnableCheckBox().UI_SetToolTip(
        Localize("$$$/Quillon/Ingest/EnableRenameTemplateTooltip=If enabled, ingested clips will be renamed "
                 "according to the selected rename preset. See help for more information."));
}

void RenameTemplateSection::WireControls() {
    PresetManagementSection::WireControls();
    AddOpenedStateChangedCallback([this](bool opened) { Settings().SetRenameSectionOpened(opened); });
}

void RenameTemplateSection::CreateChildSections() {
    normalHeader_ = new RenameTemplateNormalModeHeader(Settings().IsKilnHosted());
    editHeader_ = new RenameTemplateEditModeHeader();
    sample_ = new RenameTemplateSampleSection();
    normalFields_ = new RenameTemplateNormalModeFieldsContainer();
    editFields_ = new RenameTemplateEditModeFieldsContainer();
    addField_ = new RenameTemplateAddFieldSection();
    InsertChildSection(normalHeader_);
    InsertChildSection(editHeader_);
    InsertChildSection(sample_);
    InsertChildSection(normalFields_);
    InsertChildSection(editFields_);
    InsertChildSection(addField_);
}

void RenameTemplateSection::LoadFromSettings() {
    LoadStore(QL::kQLPresetCategoryRename);
    ApplyStoredEnabled(Settings().GetEnableRenameTemplate());
    SetOpened(Settings().GetRenameSectionOpened());
}

void RenameTemplateSection::AddField(const PresetFieldRef& field) {
    if (field->GetType() == QL::kQLFieldUserDefinedAutoIncrement) {
        // One custom counter per preset: its start number is a single setting. A preset loaded with
        // two is taken as it stands; only adding is checked.
        QL::PresetFieldList fields;
        GetEditFields().CollectFields(fields);
        const bool hasOne = std::any_of(fields.begin(), fields.end(), [](const PresetFieldRef& shown) {
            return shown->GetType() == QL::kQLFieldUserDefinedAutoIncrement;
        });
        if (hasOne) {
            fluxui::dialogs::messagebox::ShowStop(
                UI_GetDrawSupplier(),
                Localize(
                    "$$$/Quillon/Libraries/RenameTemplateSection/RenameTemplateSectionErrorTitle=Add Field "
                    "Failure"),
                Localize(
                    "$$$/Quillon/Libraries/RenameTemplateSection/AddMultipleUserDefinedAutoIncrementError="
                    "Can not add multiple Custom Auto Increment fields into a single preset!"),
                this);
            return;
        }
        Settings().SetUserDefAutoIncStartNumber(1);
    }
    PresetManagementSection::AddField(field);
    UpdateSample();
}

void RenameTemplateSection::RefreshFields(bool load, bool editCopy) {
    PresetManagementSection::RefreshFields(load, editCopy);
    UpdateSample();
}

bool RenameTemplateSection::ValidateFields(QL::PresetFieldList& fields) {
    const Fnd::WString sample = ComposeSampleName(fields);
    if (sample.empty() || Fnd::PathUtils::IsValidFileName(sample))
        return true;
    fluxui::dialogs::messagebox::ShowStop(
        UI_GetDrawSupplier(), fluxcore::config::GetApplicationName(),
        Localize(
            "$$$/Quillon/Ingest/Error/InvalidRenameFieldErrorMessage=The preset cannot be saved.^n^nA text "
            "field cannot contain any of the following characters:^n\\ / : * ? \" < > |"),
        this);
    return false;
}

void RenameTemplateSection::SetEditMode(bool editing) {
    PresetManagementSection::SetEditMode(editing);
    Settings().SetRenameEditMode(editing);
}

void RenameTemplateSection::StoreEnabled(bool enabled) {
    Settings().SetEnableRenameTemplate(enabled);
}

Fnd::WString RenameTemplateSection::ComposeSampleName(const QL::PresetFieldList& fields) const {
    return BuildRenameSampleText(fields, Settings().GetUserDefAutoIncStartNumber());
}

void RenameTemplateSection::UpdateSample() {
    // Before the children exist (and before they are built) there are no rows to sample.
    if (!sample_ || !editHeader_ || !normalFields_ || !editFields_)
        return;
    QL::PresetFieldList fields;
    if (GetEditHeader().UI_IsShown())
        GetEditFields().CollectFields(fields);
    else
        GetNormalFields().CollectFields(fields);
    sample_->SetSampleText(ComposeSampleName(fields));
}

} // namespace IGD
