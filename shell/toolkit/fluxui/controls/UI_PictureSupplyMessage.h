#pragma once
#include <functional>
#include <memory>
#include <string>

namespace fluxui::controls {

enum class PictureState { Normal, Pressed, Disabled };

// A request for the picture of a picture control: the supply function names the image.
struct UI_PictureSupplyMessage {
    PictureState state = PictureState::Normal;
    std::string imageName; // filled by the supply function
};

using ImageSupplyFunction = std::function<void(UI_PictureSupplyMessage&)>;
using ImageSupplyFunctionPtr = std::shared_ptr<ImageSupplyFunction>;

// The image name a supply function gives for a state; empty without a function.
inline std::string SupplyPicture(const ImageSupplyFunctionPtr& function, PictureState state) {
    UI_PictureSupplyMessage message;
    message.state = state;
    if (function && *function)
        (*function)(message);
    return message.imageName;
}

} // namespace fluxui::controls
