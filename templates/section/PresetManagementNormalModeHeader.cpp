#include "templates/section/PresetManagementNormalModeHeader.h"

#include "fluxcore/ZString.h"
#include "templates/section/OwningPresetSection.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {
namespace {

using fluxcore::Localize;
using fluxui::controls::UI_ControlMessage;

constexpr float kMenuGap = 3.0f;
constexpr float kMenuSize = 19.0f;

const char* const kMenuRows[] = {
    "$$$/Quillon/Libraries/IngestDialog/NewPreset=New Preset",
    "$$$/Quillon/Libraries/IngestDialog/EditPreset=Edit",
    "",
    "$$$/Quillon/Libraries/IngestDialog/SaveAsPreset=Save As...",
    "$$$/Quillon/Libraries/IngestDialog/DeletePreset=Delete",
    "$$$/Quillon/Libraries/IngestDialog/ClearPreset=Clear Text Fields",
    "",
    "$$$/Quillon/Libraries/IngestDialog/InstallPresetEntry=Install Preset...",
    "$$$/Quillon/Libraries/IngestDialog/ShowPresetWin=Show in Explorer",
};

} // namespace

PresetManagementNormalModeHeader::PresetManagementNormalModeHeader(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

PresetManagementNormalModeHeader::~PresetManagementNormalModeHeader() {
    if (listenedTo_)
        listenedTo_->RemoveTransferListener(transferListenerID_);
}

PresetManagementSection& PresetManagementNormalModeHeader::Section() const {
    PresetManagementSection* section = OwningPresetSection(*this);
    if (!section)
        throw std::logic_error("PresetManagementNormalModeHeader: not inside a preset section");
    return *section;
}

void PresetManagementNormalModeHeader::BindControls() {
    SectionViewEx::BindControls();
    const IngestSettingsController& settings = Section().Settings();
    presetPopup_ = BindControl<fluxui::controls::UI_Popup>("PresetPopup");
    if (!settings.IsKilnHosted()) {
        scopePopup_ = BindControl<fluxui::controls::UI_Popup>("ApplyScopePopup");
        // A remote project has one destination: there is no choice to make.
        if (settings.IsVaultMode())
            scopePopup_->SetDisabled(true);
    }
    menuPopup_ = new fluxui::controls::UI_Popup;
    menuPopup_->UI_SetNodeID(kMenuPopupName);
    for (const char* row : kMenuRows)
        menuPopup_->AddItem(*row ? Localize(row) : Fnd::WString());
    menuPopup_->SetWantsKeyboardFocus(true);
    menuPopup_->SetAllowMouseScroll(false);
    menuPopup_->SetValueUnknown();
    if (fluxui::ui::UI_Node* parent = presetPopup_->UI_GetParentNode())
        parent->ChildPushBack(menuPopup_);
    PlaceMenu();
}

void PresetManagementNormalModeHeader::WireControls() {
    SectionViewEx::WireControls();
    presetPopup_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) { PresetPicked(); });
    menuPopup_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) { MenuPicked(); });
    if (!scopePopup_)
        return;
    scopePopup_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        if (scopePopup_->GetValue() >= 0)
            StoreApplyScope(static_cast<std::uint32_t>(scopePopup_->GetValue()));
    });
    // Without transfer there is only the project's copy, so the scope means nothing.
    // A remote project's popup stays disabled whatever transfer does.
    transferListener_ = std::make_shared<IngestSettingsController::TransferListener>([this](bool transferOn) {
        scopePopup_->SetDisabled(!transferOn || Section().Settings().IsVaultMode());
    });
    listenedTo_ = Section().SettingsRef();
    transferListenerID_ = listenedTo_->AddTransferListener(
        [listener = transferListener_](bool transferOn) { (*listener)(transferOn); });
}

void PresetManagementNormalModeHeader::RebuildPresetPopup() {
    presetPopup_->DeleteAllItems();
    itemsByIndex_.clear();
    const auto add = [this](const Fnd::WString& text, const PresetRef& preset) {
        const int row = presetPopup_->AddItem(text);
        itemsByIndex_[row] = new PresetManagementPresetRefItem(preset);
    };
    add(Localize("$$$/Quillon/Libraries/IngestDialog/EmptyPreset=<None>"), nullptr);
    const PresetStore& store = Section().GetStore();
    for (const QL::PresetList* list : {&store.systemPresets, &store.userPresets}) {
        if (list->empty())
            continue;
        presetPopup_->AddItem(Fnd::WString());
        for (const PresetRef& preset : *list)
            add(preset->GetName(true), preset);
    }
}

PresetRef PresetManagementNormalModeHeader::GetPresetAtRow(int row) const {
    const auto found = itemsByIndex_.find(row);
    return found == itemsByIndex_.end() ? PresetRef() : found->second->GetPreset();
}

int PresetManagementNormalModeHeader::FindRowOfPreset(const PresetRef& preset) const {
    if (!preset)
        return 0;
    for (const auto& [row, item] : itemsByIndex_)
        if (item->GetPreset() && item->GetPreset()->GetPresetID() == preset->GetPresetID())
            return row;
    return 0;
}

void PresetManagementNormalModeHeader::LoadSelection(const Fnd::WString& storedPath, std::uint32_t storedScope) {
    RebuildPresetPopup();
    if (scopePopup_)
        scopePopup_->SetValue(static_cast<int>(storedScope));
    int row = 0;
    if (!storedPath.empty()) {
        for (const auto& [index, item] : itemsByIndex_) {
            if (item->GetPreset() && item->GetPreset()->GetPath() == storedPath) {
                row = index;
                break;
            }
        }
    }
    SelectPreset(row);
}

void PresetManagementNormalModeHeader::SelectPreset(int row) {
    selectedIndex_ = row;
    presetPopup_->SetValue(row);
    const PresetRef preset = row == 0 ? PresetRef() : GetPresetAtRow(row);
    PresetManagementSection& section = Section();
    section.GetStore().current = preset;
    StoreCurrentPreset(preset);
    section.RefreshFields(row != 0, false);
    RefreshMenuState();
}

void PresetManagementNormalModeHeader::PresetPicked() {
    const int row = presetPopup_->GetValue();
    if (itemsByIndex_.count(row)) {
        SelectPreset(row);
        Section().Settings().NotifySettingsChanged();
    }
    // A separator is no choice: the selection that was there stays.
    presetPopup_->SetValue(selectedIndex_);
}

void PresetManagementNormalModeHeader::MenuPicked() {
    PresetManagementSection& section = Section();
    const int row = menuPopup_->GetValue();
    bool notify = true;
    switch (row) {
    case kMenuNewPreset:
        section.EnterEditMode(true);
        break;
    case kMenuEditPreset:
        section.EnterEditMode(false);
        break;
    case kMenuSaveAsPreset:
        section.SavePresetAs();
        break;
    case kMenuDeletePreset:
        section.DeleteCurrentPreset();
        break;
    case kMenuClearTextFields:
        section.ClearTextFields();
        break;
    case kMenuInstallPreset:
        section.InstallPresetFile();
        break;
    case kMenuRevealPreset:
        section.RevealCurrentPreset();
        notify = false;
        break;
    default:
        notify = false;
        break;
    }
    // A menu shows no choice of its own.
    menuPopup_->SetValueUnknown();
    if (notify)
        section.Settings().NotifySettingsChanged();
}

void PresetManagementNormalModeHeader::RefreshMenuState() {
    const PresetRef preset = GetPresetAtRow(selectedIndex_);
    const bool userPreset = preset && preset->IsUserPreset();
    menuPopup_->DisableItem(kMenuEditPreset, !userPreset);
    menuPopup_->DisableItem(kMenuSaveAsPreset, !preset);
    menuPopup_->DisableItem(kMenuDeletePreset, !userPreset);
    menuPopup_->DisableItem(kMenuRevealPreset, !preset);
    Section().RefreshClearTextState();
}

void PresetManagementNormalModeHeader::SetClearTextEnabled(bool enabled) {
    menuPopup_->DisableItem(kMenuClearTextFields, !enabled);
}

void PresetManagementNormalModeHeader::UI_SizeChanged(const fluxcore::geom::RectF& localRect) {
    SectionViewEx::UI_SizeChanged(localRect);
    PlaceMenu();
}

void PresetManagementNormalModeHeader::PlaceMenu() {
    if (!menuPopup_ || !presetPopup_)
        return;
    const fluxcore::geom::RectF popup = presetPopup_->UI_GetLocalRectF(true);
    menuPopup_->UI_SetLocalRectF({popup.Right() + kMenuGap, popup.top, kMenuSize, kMenuSize});
}

} // namespace IGD
