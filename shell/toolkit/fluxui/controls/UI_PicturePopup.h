#pragma once
#include "fluxui/controls/UI_PictureSupplyMessage.h"
#include "fluxui/controls/UI_Popup.h"

namespace fluxui::controls {

// A popup shown as a picture instead of the chosen item's text.
class UI_PicturePopup : public UI_Popup {
public:
    UI_PicturePopup() : UI_Popup(PopupType::Picture) {}
    const char* UI_GetClassName() const override { return "UI_PicturePopup"; }

    void SetImageSupplyFunction(ImageSupplyFunctionPtr function) {
        supply_ = std::move(function);
        NotifyObserver(ui::NodeChange::Appearance);
    }
    std::string GetPicture(PictureState state) const { return SupplyPicture(supply_, state); }
    // The whole answer, with the file to draw, for a screen of the given scale.
    UI_PictureSupplyMessage GetPictureMessage(PictureState state, float displayScale) const {
        return SupplyPictureMessage(supply_, state, displayScale);
    }

private:
    ImageSupplyFunctionPtr supply_;
};

} // namespace fluxui::controls
