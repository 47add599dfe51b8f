#include "templates/rename/RenameTemplateAddFieldSection.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "QL/PresetFieldFactory.h"
#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {
namespace {

using Kind = std::pair<std::string_view, QL::_QLPresetFieldType>;

// In the popup's order. A new date or time is of the creation kind; its row can turn it to ingest.
constexpr std::array<Kind, 6> kKinds{{
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_AutonInc=Auto Increment",
     QL::kQLFieldAutoIncrement},
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_UserDefAutoInc=Custom Auto Increment",
     QL::kQLFieldUserDefinedAutoIncrement},
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_CustomText=Custom Text", QL::kQLFieldCustomText},
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_Date=Date", QL::kQLFieldCreationDate},
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_Time=Time", QL::kQLFieldCreationTime},
    {"$$$/Quillon/Libraries/IngestDialog/RenameEditAddField_FileName=File Name", QL::kQLFieldFileName},
}};

constexpr int kAddFieldDecal = 6;

} // namespace

RenameTemplateAddFieldSection::RenameTemplateAddFieldSection()
    : PresetManagementAddFieldSection("igdRenameTemplateAddField") {}

int RenameTemplateAddFieldSection::FirstKindOffered() const {
    const PresetManagementSection* section = OwnerSection();
    return section && section->Settings().IsKilnHosted() ? 2 : 0;
}

void RenameTemplateAddFieldSection::BindControls() {
    PresetManagementAddFieldSection::BindControls();
    addPopup_ = BindControl<fluxui::controls::UI_PicturePopup>("UI_PicturePopup");
    addPopup_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kAddFieldDecal));
    addPopup_->UI_SetToolTip(
        fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/addPresetFieldTooltip=Add Preset Field"));
    addPopup_->SetDisplayBorderAlways(true);
    addPopup_->SetAllowMouseScroll(false);
    addPopup_->DeleteAllItems();
    for (auto kind = kKinds.begin() + FirstKindOffered(); kind != kKinds.end(); ++kind)
        addPopup_->AddItem(fluxcore::Localize(kind->first));
    addPopup_->SetValue(-1);
}

void RenameTemplateAddFieldSection::WireControls() {
    PresetManagementAddFieldSection::WireControls();
    addPopup_->NotifyWhenChanged([this](const fluxui::controls::UI_ControlMessage& message) {
        // Setting the popup back to no choice notifies too, and must not add a field.
        if (message.IsInteractive())
            KindPicked();
    });
}

void RenameTemplateAddFieldSection::KindPicked() {
    const int entry = addPopup_->GetValue();
    addPopup_->SetValue(-1);
    PresetManagementSection* section = OwnerSection();
    if (entry < 0 || !section)
        return;
    const auto kind = kKinds.at(static_cast<std::size_t>(entry + FirstKindOffered())).second;
    section->AddField(QL::CreatePresetField(kind));
}

} // namespace IGD
