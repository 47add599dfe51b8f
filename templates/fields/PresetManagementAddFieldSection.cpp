#include "templates/fields/PresetManagementAddFieldSection.h"

#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "templates/section/OwningPresetSection.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {
namespace {

constexpr int kSaveDecal = 2;
constexpr int kSaveAsDecal = 3;
constexpr int kCancelDecal = 4;

} // namespace

PresetManagementAddFieldSection::PresetManagementAddFieldSection(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

PresetManagementSection* PresetManagementAddFieldSection::OwnerSection() const {
    return OwningPresetSection(*this);
}

void PresetManagementAddFieldSection::BindControls() {
    SectionViewEx::BindControls();
    using fluxcore::Localize;
    using fluxui::controls::UI_PictureButton;
    saveButton_ = BindControl<UI_PictureButton>("SaveButton");
    saveAsButton_ = BindControl<UI_PictureButton>("SaveAsButton");
    cancelButton_ = BindControl<UI_PictureButton>("CancelButton");
    saveButton_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kSaveDecal));
    saveAsButton_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kSaveAsDecal));
    cancelButton_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kCancelDecal));
    saveButton_->UI_SetToolTip(Localize("$$$/Quillon/Libraries/IngestDialog/SavePresetTooltip=Save"));
    saveAsButton_->UI_SetToolTip(Localize("$$$/Quillon/Libraries/IngestDialog/SaveAsPresetTooltip=Save As..."));
    cancelButton_->UI_SetToolTip(
        Localize("$$$/Quillon/Libraries/IngestDialog/CancelPresetEditingTooltip=Cancel"));
}

void PresetManagementAddFieldSection::WireControls() {
    SectionViewEx::WireControls();
    using fluxui::controls::UI_ControlMessage;
    saveButton_->NotifyWhenChanged([this](const UI_ControlMessage&) {
        PresetManagementSection* section = OwnerSection();
        if (!section)
            return;
        // A new preset has no name yet: Save asks for one.
        if (isNew_)
            section->SavePresetAs();
        else
            section->SaveEditedPreset(presetName_);
    });
    saveAsButton_->NotifyWhenChanged([this](const UI_ControlMessage&) {
        if (PresetManagementSection* section = OwnerSection())
            section->SavePresetAs();
    });
    cancelButton_->NotifyWhenChanged([this](const UI_ControlMessage&) {
        if (PresetManagementSection* section = OwnerSection())
            section->CancelEditing();
    });
}

void PresetManagementAddFieldSection::SetPresetName(const Fnd::WString& name, bool isNew) {
    presetName_ = name;
    isNew_ = isNew;
    saveAsButton_->SetDisabled(isNew);
}

} // namespace IGD
