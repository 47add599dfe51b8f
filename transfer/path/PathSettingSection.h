#pragma once
// Where one destination goes: a popup of recent folders (or a browse button until there is one)
// and, outside a hosted application, an Add Subfolder checkbox with the folder's name.
#include <cstdint>
#include <memory>
#include <string>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PathSettingSection : public wrangler::ui::SectionViewEx {
public:
    PathSettingSection(std::string layoutName, std::uint32_t destinationIndex,
                       std::shared_ptr<IngestSettingsController> settings);
    const char* UI_GetClassName() const override { return "PathSettingSection"; }

    std::uint32_t GetDestinationIndex() const { return destinationIndex_; }
    // A backup above this one went away: this section now edits the destination at index.
    void SetDestinationIndex(std::uint32_t index) { destinationIndex_ = index; }

    // Asks for a folder, starting at the newest path; true when one was taken.
    bool Browse();

    fluxui::controls::UI_Popup& GetDestinationPopup() const { return *destinationPopup_; }
    fluxui::controls::UI_TextButton& GetBrowseButton() const { return *browseButton_; }
    // Null in a hosted application.
    fluxui::controls::UI_Checkbox* GetAddSubfolderCheckbox() const { return addSubfolderCheckbox_.get(); }
    fluxui::controls::UI_TextEdit* GetAddSubfolderEdit() const { return addSubfolderEdit_.get(); }

protected:
    void BindControls() override;
    void WireControls() override;
    void LoadFromSettings() override;

private:
    void RebuildPopup();
    void PopupChanged();
    void SetPath(const Fnd::WString& path);
    void StoreSubfolder(bool on, const Fnd::WString& text);

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> destinationPopup_;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> browseButton_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> addSubfolderCheckbox_;
    boost::intrusive_ptr<fluxui::controls::UI_TextEdit> addSubfolderEdit_;
    std::uint32_t destinationIndex_;
};

} // namespace IGD
