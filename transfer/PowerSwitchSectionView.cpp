#include "transfer/PowerSwitchSectionView.h"

#include "host/HostKind.h"
#include "shell/resources/IngestResources.h"

namespace wrangler::ui {

using fluxcore::geom::RectF;

namespace {

constexpr float kButtonSize = 16.0f;
// The decals of the switch's two states.
constexpr int kPowerOnDecal = 0;
constexpr int kPowerOffDecal = 1;
// From the section's right edge to the button's left: room for the fold arrow beside it.
constexpr float kButtonRightInset = 42.0f;

} // namespace

PowerSwitchSectionView::PowerSwitchSectionView(const Fnd::WString& title, std::string layoutName)
    : SectionViewEx(title, std::move(layoutName)), powerOnButton_(new fluxui::controls::UI_PictureButton),
      powerOffButton_(new fluxui::controls::UI_PictureButton) {
    powerOnButton_->UI_SetNodeID(kPowerOnName);
    powerOffButton_->UI_SetNodeID(kPowerOffName);
    ApplySwitchVisibility();
    if (IGD::IsKilnHosted())
        ShowPowerSwitch(false);
}

void PowerSwitchSectionView::SetPowerState(bool on) {
    powerOn_ = on;
    ApplySwitchVisibility();
}

void PowerSwitchSectionView::SetPowerEnabled(bool enabled) {
    powerOnButton_->UI_SetDisabled(!enabled);
    powerOffButton_->UI_SetDisabled(!enabled);
}

void PowerSwitchSectionView::ShowPowerSwitch(bool show) {
    switchVisible_ = show && !IGD::IsKilnHosted();
    ApplySwitchVisibility();
}

void PowerSwitchSectionView::SetPowerTooltips(const Fnd::WString& onButtonText,
                                              const Fnd::WString& offButtonText) {
    // The toolkit has one tooltip delay for every node; these take it.
    powerOnButton_->UI_SetToolTip(onButtonText);
    powerOffButton_->UI_SetToolTip(offButtonText);
}

void PowerSwitchSectionView::SetPowerOnImageSupply(fluxui::controls::ImageSupplyFunctionPtr supply) {
    powerOnButton_->SetImageSupplyFunction(std::move(supply));
}

void PowerSwitchSectionView::SetPowerOffImageSupply(fluxui::controls::ImageSupplyFunctionPtr supply) {
    powerOffButton_->SetImageSupplyFunction(std::move(supply));
}

void PowerSwitchSectionView::AddPowerCallback(PowerCallbackPtr callback) {
    powerCallbacks_.push_back(std::move(callback));
}

void PowerSwitchSectionView::BindControls() {
    SectionViewEx::BindControls();
    fluxui::ui::UI_SubView& label = GetCustomLabelView();
    label.ChildPushBack(powerOnButton_);
    label.ChildPushBack(powerOffButton_);
    powerOnButton_->SetImageSupplyFunction(IGD::IngestResources::ImageSupplyFunction(kPowerOnDecal));
    powerOffButton_->SetImageSupplyFunction(IGD::IngestResources::ImageSupplyFunction(kPowerOffDecal));
    // Every section starts with its function on until its settings say otherwise.
    powerOn_ = true;
    ApplySwitchVisibility();
    SetShowCustomLabelView(true);
    PlacePowerButtons();
}

void PowerSwitchSectionView::WireControls() {
    SectionViewEx::WireControls();
    powerOnButton_->NotifyWhenChanged(
        [this](const fluxui::controls::UI_ControlMessage&) { ClickedTo(true); });
    powerOffButton_->NotifyWhenChanged(
        [this](const fluxui::controls::UI_ControlMessage&) { ClickedTo(false); });
}

void PowerSwitchSectionView::ClickedTo(bool on) {
    powerOn_ = on;
    ApplySwitchVisibility();
    // Copied: a callback may add another.
    const std::vector<PowerCallbackPtr> callbacks = powerCallbacks_;
    for (const PowerCallbackPtr& callback : callbacks)
        if (callback && *callback)
            (*callback)(on);
}

void PowerSwitchSectionView::ApplySwitchVisibility() {
    powerOffButton_->UI_Show(switchVisible_ && powerOn_);
    powerOnButton_->UI_Show(switchVisible_ && !powerOn_);
}

void PowerSwitchSectionView::UI_SizeChanged(const RectF& localRect) {
    SectionViewEx::UI_SizeChanged(localRect);
    PlacePowerButtons();
}

void PowerSwitchSectionView::PlacePowerButtons() {
    // Measured from the section's right edge; the buttons live in the label view, which the
    // toolkit places somewhere in the header.
    const fluxui::ui::UI_SubView& label = GetCustomLabelView();
    const float left = UI_GetLocalRectF().width - kButtonRightInset - label.UI_GetLocalRectF(true).left;
    const RectF place{left, 0.0f, kButtonSize, kButtonSize};
    powerOnButton_->UI_SetLocalRectF(place);
    powerOffButton_->UI_SetLocalRectF(place);
}

} // namespace wrangler::ui
