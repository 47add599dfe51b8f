#include "transfer/path/PathSettingSection.h"

#include <algorithm>
#include <stdexcept>

#include "IGD/FileDialogs.h"
#include "fluxcore/ZString.h"

namespace IGD {

using fluxui::controls::UI_ControlMessage;

PathSettingSection::PathSettingSection(std::string layoutName, std::uint32_t destinationIndex,
                                       std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)),
      destinationIndex_(destinationIndex) {
    if (!settings_)
        throw std::invalid_argument("PathSettingSection: no settings controller");
}

void PathSettingSection::BindControls() {
    destinationPopup_ = BindControl<fluxui::controls::UI_Popup>("DestinationPopup");
    browseButton_ = BindControl<fluxui::controls::UI_TextButton>("BrowseTextButton");
    // The host chooses where its files go under its own rules: no subfolder to offer.
    if (!settings_->IsKilnHosted()) {
        addSubfolderCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("AddSubfolderCheckbox");
        addSubfolderEdit_ = BindControl<fluxui::controls::UI_TextEdit>("AddSubfolderTextEdit");
    }
}

void PathSettingSection::WireControls() {
    // Only the person's changes: the section fills and selects the popup itself at every rebuild.
    destinationPopup_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) { PopupChanged(); });
    browseButton_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) { Browse(); });
    if (!addSubfolderCheckbox_ || !addSubfolderEdit_)
        return;
    addSubfolderCheckbox_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        const bool on = addSubfolderCheckbox_->IsChecked();
        StoreSubfolder(on, addSubfolderEdit_->GetValue());
        addSubfolderEdit_->SetDisabled(!on);
    });
    addSubfolderEdit_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        if (addSubfolderCheckbox_->IsChecked())
            StoreSubfolder(true, addSubfolderEdit_->GetValue());
    });
}

void PathSettingSection::LoadFromSettings() {
    const DestinationSetting& record = settings_->GetDestinationSetting(static_cast<std::int32_t>(destinationIndex_));
    RebuildPopup();
    if (!addSubfolderCheckbox_ || !addSubfolderEdit_)
        return;
    const bool on = record.needSubFolder;
    addSubfolderCheckbox_->SetChecked(on);
    addSubfolderEdit_->SetDisabled(!on);
    // A fresh name each time the dialog opens: yesterday's stamp would mix two ingests in one folder.
    addSubfolderEdit_->SetValue(settings_->GetDefaultSubfolderName(), false);
    StoreSubfolder(on, addSubfolderEdit_->GetValue());
}

void PathSettingSection::RebuildPopup() {
    const DestinationSetting& record = settings_->GetDestinationSetting(static_cast<std::int32_t>(destinationIndex_));
    if (!record.destination)
        return;
    destinationPopup_->DeleteAllItems();
    const bool hosted = settings_->IsKilnHosted();
    if (!record.pathsMRU.empty()) {
        // The newest folder is where this destination goes; a host gives its path itself.
        if (!hosted)
            record.destination->SetDestinationPath(record.pathsMRU.front());
        destinationPopup_->UI_Show(true);
        browseButton_->UI_Show(false);
    }
    for (const Fnd::WString& path : record.pathsMRU)
        destinationPopup_->AddItem(path);
    destinationPopup_->AddItem(Fnd::WString());
    destinationPopup_->AddItem(fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/BrowseForLocation=Browse for Location..."));
    if (hosted)
        destinationPopup_->SetValueString(record.destination->GetDestinationPath(), true, true);
    else
        destinationPopup_->SetValue(destinationPopup_->GetItems().size() > 1 ? 0 : -1);
}

void PathSettingSection::PopupChanged() {
    const int row = destinationPopup_->GetValue();
    if (row == static_cast<int>(destinationPopup_->GetItems().size()) - 1) {
        Browse();
        return;
    }
    if (row < 0)
        return;
    const Fnd::WString path = destinationPopup_->GetValueString();
    if (path.empty())
        return;
    SetPath(path);
    settings_->NotifySettingsChanged();
}

bool PathSettingSection::Browse() {
    Fnd::WString initial;
    if (destinationPopup_->GetItems().size() > 1)
        initial = destinationPopup_->GetItems().front().text;
    const Fnd::WString path = BrowseForDestination(initial, 0);
    const bool taken = !path.empty();
    if (taken) {
        SetPath(path);
        settings_->NotifySettingsChanged();
    } else {
        destinationPopup_->SetValue(0);
    }
    fluxui::controls::UI_Button& focus = destinationPopup_->UI_IsShown()
                                              ? static_cast<fluxui::controls::UI_Button&>(*destinationPopup_)
                                              : *browseButton_;
    focus.UI_LoseKeyboardFocus();
    focus.UI_GainKeyboardFocus();
    return taken;
}

void PathSettingSection::SetPath(const Fnd::WString& path) {
    if (path.empty())
        return;
    DestinationSetting& record = settings_->GetDestinationSetting(static_cast<std::int32_t>(destinationIndex_));
    if (!record.destination)
        return;
    record.AddPathToMRU(path);
    record.destination->SetDestinationPath(path);
    destinationPopup_->UI_Show(true);
    browseButton_->UI_Show(false);
    RebuildPopup();
}

void PathSettingSection::StoreSubfolder(bool on, const Fnd::WString& text) {
    DestinationSetting& record = settings_->GetDestinationSetting(static_cast<std::int32_t>(destinationIndex_));
    record.needSubFolder = on;
    // The name stays in the edit while the box is clear, ready for the next tick.
    if (record.destination)
        record.destination->SetSubFolder(on ? text : Fnd::WString());
}

} // namespace IGD
