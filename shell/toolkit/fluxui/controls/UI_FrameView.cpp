#include "fluxui/controls/UI_FrameView.h"

#include <stdexcept>

namespace fluxui::controls {

void UI_FrameView::SetPicture(FramePicture picture) {
    if (!picture.IsEmpty() && picture.bytes->size() != std::size_t(picture.width) * std::size_t(picture.height) * 4)
        throw std::invalid_argument("UI_FrameView: the picture's bytes do not match its size");
    picture_ = std::move(picture);
    NotifyObserver(ui::NodeChange::Value);
}

void UI_FrameView::SetText(const Fnd::WString& text) {
    if (text == text_)
        return;
    text_ = text;
    NotifyObserver(ui::NodeChange::Value);
}

void UI_FrameView::ClearPicture() {
    if (picture_.IsEmpty())
        return;
    picture_ = {};
    NotifyObserver(ui::NodeChange::Value);
}

void UI_FrameView::Click() {
    if (UI_IsEnabled())
        Changed(true);
}

} // namespace fluxui::controls
