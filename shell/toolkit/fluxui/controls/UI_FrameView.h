#pragma once
// A picture that changes many times a second, as a player shows a clip: raw RGBA rows handed over
// without copying, or a line of text where there is no picture (a clip that cannot be played).
#include <cstdint>
#include <memory>
#include <vector>

#include "fluxui/controls/UI_InteractiveControlView.h"

namespace fluxui::controls {

// 8-bit RGBA rows without padding (width * 4 bytes each); empty when bytes is null.
struct FramePicture {
    std::shared_ptr<const std::vector<std::uint8_t>> bytes;
    int width = 0;
    int height = 0;

    bool IsEmpty() const { return !bytes || width <= 0 || height <= 0; }
};

// A click on the picture raises both notifications, so that its owner can take the commands.
class UI_FrameView : public UI_InteractiveControlView {
public:
    const char* UI_GetClassName() const override { return "UI_FrameView"; }

    // Shown centred, scaled to fit the view with its own aspect. Throws std::invalid_argument
    // when the bytes do not hold width * height pixels.
    void SetPicture(FramePicture picture);
    const FramePicture& GetPicture() const { return picture_; }
    // Shown centred when there is no picture.
    void SetText(const Fnd::WString& text);
    const Fnd::WString& GetText() const { return text_; }
    // Drops the picture and shows the text.
    void ClearPicture();

    // The person clicked the picture. Ignored while disabled.
    void Click();

private:
    FramePicture picture_;
    Fnd::WString text_;
};

} // namespace fluxui::controls
