#pragma once
#include <cstdint>

#include "fluxcore/geom/Matrix.h"
#include "fluxui/ui/UI_Node.h"

namespace fluxui::ui {

// A top-level window: the root of a tree. Its structure rect is its place on screen, title bar
// included; its node rect is the client area.
class OS_Window : public UI_Node {
public:
    using PlatformWindow = std::uintptr_t;

    explicit OS_Window(sketcher::SupplierInterface* supplier = nullptr, Fnd::WString title = {});
    ~OS_Window() override;
    const char* UI_GetClassName() const override { return "OS_Window"; }

    void UI_SetGlobalStructureRect(const fluxcore::geom::RectI& rect);
    const fluxcore::geom::RectI& UI_GetGlobalStructureRect() const { return structure_; }
    // Set by the presenter from the real frame: the height of the title bar above the client area.
    void SetTitleBarHeight(int height);
    fluxcore::geom::RectI UI_GetLocalRect() const;

    // A handle that names this window to a presenter or a driver, never zero.
    PlatformWindow GetPlatformWindow() const { return handle_; }
    // The window with the handle, null if it is gone.
    static OS_Window* UI_GetWindow(PlatformWindow handle);
    float GetViewScaleFactor() const { return scale_; }
    // Maps the content's units into the client area; identity unless the host zooms a window's
    // content. Views sized from the client area map back through its inverse.
    const fluxcore::geom::MatrixF& UI_GetContentMatrix() const { return contentMatrix_; }
    void UI_SetContentMatrix(const fluxcore::geom::MatrixF& matrix) { contentMatrix_ = matrix; }
    void SetViewScaleFactor(float scale) { scale_ = scale; }

    void SetTitle(const Fnd::WString& title);
    const Fnd::WString& GetTitle() const { return title_; }

    sketcher::SupplierInterface* UI_GetDrawSupplier() const override { return supplier_; }

    // A key the person pressed: offered to the focused node, then to each of its ancestors up
    // to this window, until one consumes it.
    bool DispatchKeyboardEvent(const KeyboardEvent& event);

private:
    void PlaceClientArea();

    sketcher::SupplierInterface* supplier_;
    Fnd::WString title_;
    fluxcore::geom::RectI structure_;
    int titleBarHeight_ = 0;
    float scale_ = 1.0f;
    fluxcore::geom::MatrixF contentMatrix_;
    PlatformWindow handle_;
};

} // namespace fluxui::ui
