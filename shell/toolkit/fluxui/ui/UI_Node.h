#pragma once
// A node of the retained tree: a rectangle in its parent's space, visibility, enabled state,
// an id, a tooltip, keyboard focus and children. A node describes itself; a presenter shows it.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Fnd/WString.h"
#include "fluxcore/RefCountedObject.h"
#include "fluxcore/geom/Geometry.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/KeyboardEvent.h"
#include "fluxui/ui/UI_Container.h"
#include "fluxui/ui/UI_NodeObserver.h"

namespace fluxui::ui {

enum class FocusReason { Gained, Lost };

using SizeChangedFunction = std::function<void(const fluxcore::geom::RectF& localRect)>;

class UI_Node : public fluxcore::utility::RefCountedObject, public UI_Container {
public:
    UI_Node();
    ~UI_Node() override;
    UI_Node(const UI_Node&) = delete;
    UI_Node& operator=(const UI_Node&) = delete;

    // The toolkit class a presenter builds a widget for.
    virtual const char* UI_GetClassName() const { return "UI_Node"; }

    // In the node's own space (origin 0, 0) or, with inParentSpace, where it sits in its parent.
    virtual fluxcore::geom::RectF UI_GetLocalRectF(bool inParentSpace = false) const;
    // rect is in the parent's space.
    virtual void UI_SetLocalRectF(const fluxcore::geom::RectF& rect);
    // A hidden node keeps its place.
    virtual void UI_Show(bool show);
    virtual bool UI_IsShown() const { return shown_; }
    // Draws the shown children; overrides draw themselves and then call this.
    virtual void UI_Draw(sketcher::Sketcher& sketcher);
    // True if consumed. The base consumes nothing.
    virtual bool UI_DoKeyboardEvent(UI_Node* target, const KeyboardEvent& event);
    virtual bool UI_WantsKeyboardFocus() const { return false; }
    virtual sketcher::SupplierInterface* UI_GetDrawSupplier() const;
    virtual void UI_SizeChanged(const fluxcore::geom::RectF& localRect);
    virtual void UI_FocusChanged(FocusReason reason);

    // Moves the keyboard focus of this node's tree to the node; false if it takes no focus or is
    // disabled or not visible.
    bool UI_GainKeyboardFocus();
    void UI_LoseKeyboardFocus();
    bool UI_HasKeyboardFocus() const;
    UI_Node* UI_GetFocusedNode() const;

    void UI_SetToolTip(const Fnd::WString& text);
    const Fnd::WString& UI_GetToolTip() const { return toolTip_; }

    void UI_SetDisabled(bool disabled);
    // False if the node or any ancestor is disabled.
    bool UI_IsEnabled() const;
    void UI_Hide(bool hide) { UI_Show(!hide); }
    bool UI_IsHidden() const { return !UI_IsShown(); }
    // Shown, and every ancestor shown.
    bool UI_IsVisible() const;

    UI_Node* UI_GetParentNode() const { return parent_; }
    UI_Node* UI_GetRootNode();
    const UI_Node* UI_GetRootNode() const;
    fluxcore::geom::PointF UI_LocalToGlobal(fluxcore::geom::PointF point) const;

    void UI_SetNodeID(std::string id);
    const std::string& UI_GetNodeID() const { return id_; }
    // This node or the first descendant, depth first, with the id.
    UI_Node* UI_FindNodeByID(const std::string& id);

    void UI_InstallSizeChangedNotifyFunction(SizeChangedFunction function);

    // Hears changes of this node and of its descendants that have no observer of their own.
    void UI_SetObserver(UI_NodeObserver* observer) { observer_ = observer; }

    // UI_Container
    void ChildPushBack(const UI_NodeRef& node) override;
    void ChildInsert(std::size_t position, const UI_NodeRef& node) override;
    ChildIterator ChildFind(const UI_Node* node) const override;
    bool ChildRemove(const UI_Node* node) override;
    ChildIterator ChildBegin() const override { return children_.begin(); }
    ChildIterator ChildEnd() const override { return children_.end(); }
    std::size_t ChildCount() const override { return children_.size(); }

protected:
    // Tells the nearest observer, this node's or an ancestor's.
    void NotifyObserver(NodeChange change);
    // Root-only state: which node of the tree has the keyboard focus.
    void SetFocusedNode(UI_Node* node);

private:
    void Adopt(const UI_NodeRef& node);
    void ForgetFocusWithin(UI_Node& subtree);

    UI_Node* parent_ = nullptr;
    std::vector<UI_NodeRef> children_;
    fluxcore::geom::RectF rect_;
    bool shown_ = true;
    bool disabled_ = false;
    std::string id_;
    Fnd::WString toolTip_;
    std::vector<SizeChangedFunction> sizeChangedFunctions_;
    UI_NodeObserver* observer_ = nullptr;
    UI_Node* focused_ = nullptr; // meaningful at the root only
};

} // namespace fluxui::ui
