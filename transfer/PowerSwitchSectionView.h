#pragma once
// A section whose header carries an on/off switch for the function it sets up.
#include <functional>
#include <memory>
#include <vector>

#include "fluxui/controls/UI_PictureButton.h"
#include "transfer/SectionViewEx.h"

namespace wrangler::ui {

using PowerCallback = std::function<void(bool powerOn)>;
using PowerCallbackPtr = std::shared_ptr<PowerCallback>;

// Node ids of the two buttons, for whoever presents or drives them.
inline constexpr const char* kPowerOnName = "PowerOn";
inline constexpr const char* kPowerOffName = "PowerOff";

// The switch is two picture buttons of which at most one shows: "off" while the power is on, "on"
// while it is off. In a hosted application the host decides, and neither ever shows.
class PowerSwitchSectionView : public SectionViewEx {
public:
    PowerSwitchSectionView(const Fnd::WString& title, std::string layoutName);
    const char* UI_GetClassName() const override { return "PowerSwitchSectionView"; }

    bool GetPowerState() const { return powerOn_; }
    bool IsPowerSwitchVisible() const { return switchVisible_; }
    // For the program: the power callbacks hear only of the user's clicks.
    void SetPowerState(bool on);
    void SetPowerEnabled(bool enabled);
    // Always hidden when hosted.
    void ShowPowerSwitch(bool show);
    void SetPowerTooltips(const Fnd::WString& onButtonText, const Fnd::WString& offButtonText);
    void SetPowerOnImageSupply(fluxui::controls::ImageSupplyFunctionPtr supply);
    void SetPowerOffImageSupply(fluxui::controls::ImageSupplyFunctionPtr supply);
    // Called in the order added; an empty entry is passed over.
    void AddPowerCallback(PowerCallbackPtr callback);
    void AddPowerCallback(PowerCallback callback) {
        AddPowerCallback(std::make_shared<PowerCallback>(std::move(callback)));
    }

    // Shown while the power is off; a click turns it on.
    fluxui::controls::UI_PictureButton& GetPowerOnButton() const { return *powerOnButton_; }
    // Shown while the power is on; a click turns it off.
    fluxui::controls::UI_PictureButton& GetPowerOffButton() const { return *powerOffButton_; }

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

protected:
    // A subclass that overrides these calls them first.
    void BindControls() override;
    void WireControls() override;

private:
    void ApplySwitchVisibility();
    void ClickedTo(bool on);
    void PlacePowerButtons();

    bool powerOn_ = true;
    bool switchVisible_ = true;
    std::vector<PowerCallbackPtr> powerCallbacks_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> powerOnButton_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> powerOffButton_;
};

} // namespace wrangler::ui
