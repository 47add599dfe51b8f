#pragma once
#include "shell/toolkit/fluxui/controls/UI_Button.h"
#include "shell/toolkit/fluxui/controls/UI_PictureSupplyMessage.h"

namespace fluxui::controls {

class UI_PictureButton : public UI_Button {
public:
    const char* UI_GetClassName() const override { return "UI_PictureButton"; }

    void SetImageSupplyFunction(ImageSupplyFunctionPtr function) {
        supply_ = std::move(function);
        NotifyObserver(ui::NodeChange::Appearance);
    }
    // The picture to show now, asked of the supply function.
    std::string GetPicture(PictureState state) const { return SupplyPicture(supply_, state); }

private:
    ImageSupplyFunctionPtr supply_;
};

} // namespace fluxui::controls
