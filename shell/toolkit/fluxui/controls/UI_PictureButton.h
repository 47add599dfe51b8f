#pragma once
#include "fluxui/controls/UI_Button.h"
#include "fluxui/controls/UI_PictureSupplyMessage.h"

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
    // The whole answer, with the file to draw, for a screen of the given scale.
    UI_PictureSupplyMessage GetPictureMessage(PictureState state, float displayScale) const {
        return SupplyPictureMessage(supply_, state, displayScale);
    }
    // The image resource named by the layout, for a button that no supply function serves.
    void SetImageName(std::string name) {
        imageName_ = std::move(name);
        NotifyObserver(ui::NodeChange::Appearance);
    }
    const std::string& GetImageName() const { return imageName_; }

private:
    ImageSupplyFunctionPtr supply_;
    std::string imageName_;
};

} // namespace fluxui::controls
