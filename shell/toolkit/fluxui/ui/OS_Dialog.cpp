#include "fluxui/ui/OS_Dialog.h"

#include <algorithm>
#include <stdexcept>

namespace fluxui::ui {

int OS_Dialog::RunModal() {
    if (running_)
        throw std::logic_error("OS_Dialog::RunModal: the dialog is running already");
    running_ = true;
    closeRequested_ = false;
    try {
        Fnd::GetInteractionDriver().RunModal(*this);
    } catch (...) {
        running_ = false;
        throw;
    }
    running_ = false;
    return response_;
}

void OS_Dialog::BeginModal() {
    if (running_)
        throw std::logic_error("OS_Dialog::BeginModal: the dialog is running already");
    running_ = true;
    closeRequested_ = false;
    try {
        Fnd::GetInteractionDriver().BeginModal(*this);
    } catch (...) {
        running_ = false;
        throw;
    }
}

void OS_Dialog::ModalDuring() {
    if (running_ && !closeRequested_)
        Fnd::GetInteractionDriver().ModalDuring(*this);
}

void OS_Dialog::EndModal() {
    if (!running_)
        return;
    running_ = false;
    Fnd::GetInteractionDriver().EndModal(*this);
}

void OS_Dialog::PostClose() {
    if (closeRequested_)
        return;
    closeRequested_ = true;
    NotifyObserver(NodeChange::Closed);
}

void OS_Dialog::CloseByUser() {
    PostClose();
}

void OS_Dialog::SetMinimumSize(fluxcore::geom::PointI size) {
    minimumSize_ = size;
}

void OS_Dialog::SetContentSize(fluxcore::geom::PointI size) {
    fluxcore::geom::RectF rect = UI_GetLocalRectF(true);
    rect.width = static_cast<float>(std::max(size.x, minimumSize_.x));
    rect.height = static_cast<float>(std::max(size.y, minimumSize_.y));
    UI_SetLocalRectF(rect);
}

} // namespace fluxui::ui
