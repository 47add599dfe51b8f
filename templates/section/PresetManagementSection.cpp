#include "templates/section/PresetManagementSection.h"

#include "Fnd/PathUtils.h"
#include "IGD/FileDialogs.h"
#include "QL/PresetFileTypes.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/dialogs/SimpleInputBox.h"
#include "fluxui/utility/FileUtils.h"
#include "templates/fields/PresetManagementAddFieldSection.h"
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"
#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"
#include "templates/section/PresetManagementEditModeHeader.h"
#include "templates/section/PresetManagementNormalModeHeader.h"

namespace IGD {
namespace {

using fluxcore::Localize;

} // namespace

PresetManagementSection::PresetManagementSection(const Fnd::WString& title, std::string layoutName,
                                                 std::shared_ptr<IngestSettingsController> settings)
    : PowerSwitchSectionView(title, std::move(layoutName)), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("PresetManagementSection: no settings controller");
}

PresetManagementSection::~PresetManagementSection() = default;

void PresetManagementSection::BindControls() {
    PowerSwitchSectionView::BindControls();
    enableCheckBox_ = BindControl<fluxui::controls::UI_Checkbox>("EnableManagementCheckBox");
}

void PresetManagementSection::WireControls() {
    PowerSwitchSectionView::WireControls();
    if (settings_->GetSettingsLocked()) {
        // The site decides whether the template applies; nothing here may change it.
        SetPowerState(false);
        SetPowerEnabled(false);
        enableCheckBox_->SetDisabled(true);
        SetAllChildrenEnabled(false);
        return;
    }
    AddPowerCallback([this](bool on) { PowerTo(on); });
    enableCheckBox_->NotifyWhenChangedInteractively([this](const fluxui::controls::UI_ControlMessage&) {
        PowerTo(enableCheckBox_->IsChecked());
        settings_->NotifySettingsChanged();
    });
}

void PresetManagementSection::ChildrenBuilt() {
    PowerSwitchSectionView::ChildrenBuilt();
    editHeader_->UI_Show(false);
    editFields_->UI_Show(false);
    addField_->UI_Show(false);
    if (settings_->GetSettingsLocked())
        SetAllChildrenEnabled(false);
    UpdateSectionLayout();
}

void PresetManagementSection::PowerTo(bool on) {
    StoreEnabled(on);
    enableCheckBox_->SetChecked(on);
    SetPowerState(on);
    SetAllChildrenEnabled(on);
}

void PresetManagementSection::LoadStore(QL::_QLPresetCategory category) {
    store_.Load(category);
}

void PresetManagementSection::ApplyStoredEnabled(bool enabled) {
    enableCheckBox_->SetChecked(enabled);
    const bool usable = enabled && !settings_->GetSettingsLocked();
    SetPowerState(usable);
    SetAllChildrenEnabled(usable);
}

bool PresetManagementSection::IsEditing() const {
    return !normalHeader_->UI_IsShown();
}

void PresetManagementSection::AddField(const PresetFieldRef& field) {
    editFields_->AddRow(field, true);
    // The add-field section stays in sight as the list grows.
    for (fluxui::ui::UI_Node* node = UI_GetParentNode(); node; node = node->UI_GetParentNode()) {
        auto* scroll = dynamic_cast<fluxui::controls::UI_ScrollView*>(node);
        if (!scroll)
            continue;
        const fluxcore::geom::PointF origin = scroll->GetContentView().UI_LocalToGlobal({0.0f, 0.0f});
        const fluxcore::geom::PointF at = addField_->UI_LocalToGlobal({0.0f, 0.0f});
        fluxcore::geom::RectF rect = addField_->UI_GetLocalRectF();
        rect.left = at.x - origin.x;
        rect.top = at.y - origin.y;
        scroll->ScrollIntoView(rect, true);
        return;
    }
}

void PresetManagementSection::RefreshFields(bool load, bool editCopy) {
    QL::PresetFieldList fields;
    if (load && store_.current) {
        const PresetRef preset = editCopy ? store_.current->ClonePreset(false) : store_.current;
        fields = preset->GetFields();
    }
    if (IsEditing()) {
        editFields_->RemoveAllChildSections();
        for (const PresetFieldRef& field : fields)
            editFields_->AddRow(field, false);
    } else {
        normalFields_->RebuildRows(fields);
        RefreshClearTextState();
    }
    UpdateSectionLayout();
}

bool PresetManagementSection::ValidateFields(QL::PresetFieldList&) {
    return true;
}

void PresetManagementSection::SetEditMode(bool editing) {
    ShowPowerSwitch(!editing);
    if (const fluxui::ui::UI_NodeRef& own = GetLayoutContentView())
        own->UI_Show(!editing);
    normalHeader_->UI_Show(!editing);
    normalFields_->UI_Show(!editing);
    editHeader_->UI_Show(editing);
    editFields_->UI_Show(editing);
    addField_->UI_Show(editing);
    UpdateSectionLayout();
}

bool PresetManagementSection::ValidatePresetName(const Fnd::WString& name) {
    if (Fnd::PathUtils::IsValidFileName(name))
        return true;
    fluxui::dialogs::messagebox::ShowStop(
        nullptr, Localize("$$$/Quillon/Ingest/InvalidPresetName=Invalid Preset Name"),
        Localize("$$$/Quillon/Ingest/InvalidPresetNameError=Please enter a valid preset name.^n^nA preset name "
                 "cannot contain any of the following characters:^n\\ / : * ? \" < > |"),
        this);
    return false;
}

void PresetManagementSection::EnterEditMode(bool isNew) {
    const Fnd::WString name =
        isNew || !store_.current ? Localize("$$$/Quillon/Libraries/IngestDialog/UntitiledPreset=Untitled")
                                 : store_.current->GetName(true);
    editHeader_->SetPresetName(name);
    addField_->SetPresetName(name, isNew);
    SetEditMode(true);
    RefreshFields(!isNew, true);
}

bool PresetManagementSection::GatherFields(QL::PresetFieldList& fields) {
    const bool collected = editHeader_->UI_IsShown() ? editFields_->CollectFields(fields)
                                                     : normalFields_->CollectFields(fields);
    return collected && ValidateFields(fields);
}

void PresetManagementSection::SaveEditedPreset(const Fnd::WString& name) {
    QL::PresetFieldList fields;
    if (!GatherFields(fields))
        return;
    if (!QL::PresetSucceeded(store_.SavePresetFields(name, false, fields)))
        return;
    SetEditMode(false);
    ShowPresetAfterChange(store_.current);
}

void PresetManagementSection::SavePresetAs() {
    QL::PresetFieldList fields;
    if (!GatherFields(fields))
        return;
    Fnd::WString text;
    // Asks again until a name is taken: a refused name comes back in the prompt to be mended.
    for (;;) {
        if (!fluxui::dialogs::SimpleInputBox::Ask(
                Localize("$$$/Quillon/Libraries/IngestDialog/SavePresetAs=Save Preset As"),
                Localize("$$$/Quillon/Libraries/IngestDialog/PresetNameLabel=Name:"), text, this))
            return;
        text = Fnd::Trim(text, u" \t");
        if (text.empty() || !ValidatePresetName(text))
            continue;
        if (QL::PresetSucceeded(store_.SavePresetFields(text, true, fields)))
            break;
    }
    SetEditMode(false);
    ShowPresetAfterChange(store_.current);
}

void PresetManagementSection::CancelEditing() {
    SetEditMode(false);
    RefreshFields(true, false);
}

void PresetManagementSection::DeleteCurrentPreset() {
    if (!store_.current)
        return;
    enum { kYes, kNo };
    const int answer = fluxui::dialogs::messagebox::Messagebox(
        nullptr, Localize("$$$/Quillon/Ingest/DeletePreset=Delete Preset File"),
        Localize("$$$/Quillon/Ingest/DeletePresetMsg=Are you sure you want to delete the preset \"@0\"?^nThis "
                 "cannot be undone.",
                 {store_.current->GetName(true)}),
        this, {Localize("$$$/Quillon/Ingest/Warning/OptionYes=Yes"), Localize("$$$/Quillon/Ingest/Warning/OptionNo=No")},
        kNo, kNo);
    if (answer != kYes)
        return;
    store_.DeleteCurrent();
    ShowPresetAfterChange(store_.current);
}

void PresetManagementSection::InstallPresetFile() {
    const bool rename = store_.category == QL::kQLPresetCategoryRename;
    const Fnd::WString extension =
        rename ? QL::GetRenamePresetFileExtension() : QL::GetMetadataPresetFileExtension();
    const Fnd::WString typeString = rename ? QL::GetRenamePresetTypeString() : QL::GetMetadataPresetTypeString();
    Fnd::WString path;
    if (AskOpenFile(Localize("$$$/Quillon/Ingest/InstallPreset=Install Preset File"), path, Fnd::WString(),
                    typeString + Fnd::WString(1, u'\0') + u"*" + extension, 0, 0) &&
        !path.empty())
        store_.Install(path);
    ShowPresetAfterChange(store_.current);
}

void PresetManagementSection::RevealCurrentPreset() {
    if (store_.current)
        fluxui::utility::FileUtils::RevealAndSelectFile(Fnd::PathUtils::ToNormalizedPath(store_.current->GetPath()));
}

void PresetManagementSection::ClearTextFields() {
    normalFields_->ClearText();
    RefreshClearTextState();
}

void PresetManagementSection::ShowPresetAfterChange(const PresetRef& preset) {
    normalHeader_->RebuildPresetPopup();
    normalHeader_->SelectPreset(normalHeader_->FindRowOfPreset(preset));
    settings_->NotifySettingsChanged();
}

void PresetManagementSection::RefreshClearTextState() {
    normalHeader_->SetClearTextEnabled(normalFields_->HasText());
}

} // namespace IGD
