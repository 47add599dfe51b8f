#pragma once
#include <cstdint>

#include "fluxui/ui/UI_Node.h"

namespace fluxui::ui {

// Sides of its parent a subview keeps its distance to. Left and right together stretch it.
// Layout archives store these bits, unchanged, as a node's Constraints.
enum LayoutBinding : std::uint32_t {
    kBindNone = 0,
    kBindLeft = 1,
    kBindTop = 2,
    kBindRight = 4,
    kBindBottom = 8,
    kBindAll = kBindLeft | kBindTop | kBindRight | kBindBottom,
};

// A node that can lay out its children by their bindings when its size changes.
class UI_SubView : public UI_Node {
public:
    UI_SubView() = default;
    const char* UI_GetClassName() const override { return "UI_SubView"; }

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    void UI_SetLayoutsChildren(bool layouts) { layoutsChildren_ = layouts; }
    bool UI_GetLayoutsChildren() const { return layoutsChildren_; }
    void UI_SetLayoutBinding(std::uint32_t flags) { binding_ = flags; }
    std::uint32_t UI_GetLayoutBinding() const { return binding_; }

private:
    // Moves or stretches this view after its parent changed size by delta.
    void FollowParent(fluxcore::geom::PointF delta);

    bool layoutsChildren_ = true;
    std::uint32_t binding_ = kBindLeft | kBindTop;
    fluxcore::geom::PointF lastSize_;
};

} // namespace fluxui::ui
