#pragma once
// The preset popup, the action menu beside it, and the apply-scope popup of normal mode.
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "fluxui/controls/UI_Popup.h"
#include "settings/IngestSettingsController.h"
#include "templates/section/PresetManagementPresetRefItem.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PresetManagementSection;

// Rows of the action menu, in their fixed order; 2 and 6 are separators.
enum PresetMenuRow : int {
    kMenuNewPreset = 0,
    kMenuEditPreset = 1,
    kMenuSaveAsPreset = 3,
    kMenuDeletePreset = 4,
    kMenuClearTextFields = 5,
    kMenuInstallPreset = 7,
    kMenuRevealPreset = 8,
};

class PresetManagementNormalModeHeader : public wrangler::ui::SectionViewEx {
public:
    // Node id of the action menu, which the header makes itself.
    static constexpr const char* kMenuPopupName = "PresetMenuPopup";

    explicit PresetManagementNormalModeHeader(std::string layoutName);
    ~PresetManagementNormalModeHeader() override;
    const char* UI_GetClassName() const override { return "PresetManagementNormalModeHeader"; }

    // "<None>" first, then the system presets and the user presets, each list after a separator.
    void RebuildPresetPopup();
    // Makes the row's preset current, stores it, shows its rows and refreshes the menu.
    void SelectPreset(int row);
    // The row of the preset with that identity, 0 when it is null or not listed.
    int FindRowOfPreset(const PresetRef& preset) const;
    void RefreshMenuState();
    void SetClearTextEnabled(bool enabled);

    std::int32_t GetSelectedIndex() const { return selectedIndex_; }
    // Null for "<None>", a separator or a row outside the popup.
    PresetRef GetPresetAtRow(int row) const;
    fluxui::controls::UI_Popup& GetPresetPopup() const { return *presetPopup_; }
    fluxui::controls::UI_Popup& GetMenuPopup() const { return *menuPopup_; }
    // Null when hosted: that layout has no scope popup.
    fluxui::controls::UI_Popup* GetScopePopup() const { return scopePopup_.get(); }

    virtual void StoreCurrentPreset(const PresetRef& preset) = 0;
    virtual void StoreApplyScope(std::uint32_t scope) = 0;

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

protected:
    void BindControls() override;
    void WireControls() override;
    // For the concrete LoadFromSettings: the popup, the stored scope, and the row of the stored path
    // ("<None>" when it is empty or no longer listed).
    void LoadSelection(const Fnd::WString& storedPath, std::uint32_t storedScope);

    PresetManagementSection& Section() const;

private:
    void PresetPicked();
    void MenuPicked();
    void PlaceMenu();

    boost::intrusive_ptr<fluxui::controls::UI_Popup> scopePopup_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> presetPopup_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> menuPopup_;
    std::int32_t selectedIndex_ = -1;
    std::map<std::int32_t, PresetManagementPresetRefItemRef> itemsByIndex_;
    std::shared_ptr<IngestSettingsController::TransferListener> transferListener_;
    // The controller the listener was given to, and its ticket there.
    std::shared_ptr<IngestSettingsController> listenedTo_;
    IngestSettingsController::TransferListenerID transferListenerID_ = 0;
};

} // namespace IGD
