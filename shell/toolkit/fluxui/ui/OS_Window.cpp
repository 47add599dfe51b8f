#include "fluxui/ui/OS_Window.h"

#include <unordered_map>

namespace fluxui::ui {
namespace {

// All windows live on the UI thread, so the registry needs no lock.
struct WindowRegistry {
    std::unordered_map<OS_Window::PlatformWindow, OS_Window*> windows;
    OS_Window::PlatformWindow next = 1;
};

WindowRegistry& Registry() {
    static WindowRegistry* registry = new WindowRegistry;
    return *registry;
}

} // namespace

OS_Window::OS_Window(sketcher::SupplierInterface* supplier, Fnd::WString title)
    : supplier_(supplier), title_(std::move(title)), handle_(Registry().next++) {
    Registry().windows[handle_] = this;
}

OS_Window::~OS_Window() {
    Registry().windows.erase(handle_);
}

OS_Window* OS_Window::UI_GetWindow(PlatformWindow handle) {
    const auto found = Registry().windows.find(handle);
    return found == Registry().windows.end() ? nullptr : found->second;
}

void OS_Window::UI_SetGlobalStructureRect(const fluxcore::geom::RectI& rect) {
    structure_ = rect;
    PlaceClientArea();
}

void OS_Window::SetTitleBarHeight(int height) {
    titleBarHeight_ = height < 0 ? 0 : height;
    PlaceClientArea();
}

fluxcore::geom::RectI OS_Window::UI_GetLocalRect() const {
    const fluxcore::geom::RectF rect = UI_GetLocalRectF();
    return {0, 0, static_cast<int>(rect.width), static_cast<int>(rect.height)};
}

void OS_Window::PlaceClientArea() {
    const int clientHeight = structure_.height > titleBarHeight_ ? structure_.height - titleBarHeight_ : 0;
    UI_SetLocalRectF({static_cast<float>(structure_.left),
                      static_cast<float>(structure_.top + titleBarHeight_),
                      static_cast<float>(structure_.width), static_cast<float>(clientHeight)});
}

void OS_Window::SetTitle(const Fnd::WString& title) {
    if (title == title_)
        return;
    title_ = title;
    NotifyObserver(NodeChange::Appearance);
}

bool OS_Window::DispatchKeyboardEvent(const KeyboardEvent& event) {
    UI_Node* target = UI_GetFocusedNode();
    if (!target)
        target = this;
    for (UI_Node* node = target; node; node = node->UI_GetParentNode())
        if (node->UI_DoKeyboardEvent(target, event))
            return true;
    return false;
}

} // namespace fluxui::ui
