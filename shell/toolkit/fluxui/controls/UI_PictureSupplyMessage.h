#pragma once
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace fluxui::controls {

enum class PictureState { Normal, Pressed, Disabled };

// A request for the picture of a picture control. The asker sets the state and the scale of the
// screen; the supply function names the image and, through an image provider, hands over the
// file to draw.
struct UI_PictureSupplyMessage {
    PictureState state = PictureState::Normal;
    float displayScale = 1.0f; // device pixels per layout unit where the picture will appear
    std::string imageName;     // filled by the supply function

    // The file chosen for the display scale; resourceType is empty when there is none. The bytes
    // are PNG or SVG as resourceType says and live as long as the resource manager.
    std::string resourceType;
    std::string resourceName;
    std::span<const std::byte> bytes;
    float imageScale = 1.0f; // device pixels per layout unit of the file
    int pixelWidth = 0;
    int pixelHeight = 0;

    bool HasImage() const { return !resourceType.empty(); }
};

using ImageSupplyFunction = std::function<void(UI_PictureSupplyMessage&)>;
using ImageSupplyFunctionPtr = std::shared_ptr<ImageSupplyFunction>;

// The whole answer of a supply function for a state and a screen scale; empty without a function.
inline UI_PictureSupplyMessage SupplyPictureMessage(const ImageSupplyFunctionPtr& function,
                                                    PictureState state, float displayScale = 1.0f) {
    UI_PictureSupplyMessage message;
    message.state = state;
    message.displayScale = displayScale;
    if (function && *function)
        (*function)(message);
    return message;
}

// The image name a supply function gives for a state; empty without a function.
inline std::string SupplyPicture(const ImageSupplyFunctionPtr& function, PictureState state) {
    return SupplyPictureMessage(function, state).imageName;
}

} // namespace fluxui::controls
