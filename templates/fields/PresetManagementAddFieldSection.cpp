#include "templates/fields/PresetManagementAddFieldSection.h"

#include "templates/fields/FieldRowControls.h"
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
    saveButton_ = BindPictureButton(*this, "SaveButton", kSaveDecal,
                                    "$$$/Quillon/Libraries/IngestDialog/SavePresetTooltip=Save");
    saveAsButton_ = BindPictureButton(*this, "SaveAsButton", kSaveAsDecal,
                                      "$$$/Quillon/Libraries/IngestDialog/SaveAsPresetTooltip=Save As...");
    cancelButton_ = BindPictureButton(*this, "CancelButton", kCancelDecal,
                                      "$$$/Quillon/Libraries/IngestDialog/CancelPresetEditingTooltip=Cancel");
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
