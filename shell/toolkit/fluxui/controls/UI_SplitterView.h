#pragma once
#include <functional>
#include <memory>

#include "fluxui/ui/UI_SubView.h"

namespace fluxui::controls {

enum class SplitDirection { Horizontal, Vertical }; // Horizontal: side by side

// Maps a wanted split percentage to the one allowed.
using SplitValidationFunction = std::function<float(float wanted)>;
using SplitValidationFunctionPtr = std::shared_ptr<SplitValidationFunction>;

// Two views and a divider between them. The split is the first view's share, in percent, of the
// room the divider leaves.
class UI_SplitterView : public ui::UI_SubView {
public:
    UI_SplitterView(SplitDirection direction, float defaultSplit, float dividerWidth);
    const char* UI_GetClassName() const override { return "UI_SplitterView"; }

    float GetSplitPercentage() const { return split_; }
    // Passed through the validation function, then kept within 0 to 100.
    void SetSplitPercentage(float percent);
    void SetSplitValidationFunction(SplitValidationFunctionPtr function);
    void SetSplitValidationFunction(SplitValidationFunction function) {
        SetSplitValidationFunction(std::make_shared<SplitValidationFunction>(std::move(function)));
    }
    // The person dragged the divider to this position along the split, in local units.
    void DragDividerTo(float position);

    void SetTopLeftView(const ui::UI_NodeRef& node);
    void SetBottomRightView(const ui::UI_NodeRef& node);
    ui::UI_Node* GetTopLeftView() const { return first_.get(); }
    ui::UI_Node* GetBottomRightView() const { return second_.get(); }
    SplitDirection GetDirection() const { return direction_; }
    float GetDividerWidth() const { return dividerWidth_; }
    // Where the divider starts, in local units along the split.
    float GetDividerPosition() const;

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

private:
    float Room() const;
    void Replace(ui::UI_NodeRef& slot, const ui::UI_NodeRef& node);
    void PlaceViews();

    SplitDirection direction_;
    float split_;
    float dividerWidth_;
    SplitValidationFunctionPtr validate_;
    ui::UI_NodeRef first_;
    ui::UI_NodeRef second_;
};

} // namespace fluxui::controls
