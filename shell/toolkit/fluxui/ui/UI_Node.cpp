#include "fluxui/ui/UI_Node.h"

#include <algorithm>
#include <stdexcept>

namespace fluxui::ui {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;

UI_Node::UI_Node() = default;

UI_Node::~UI_Node() {
    for (const UI_NodeRef& child : children_)
        child->parent_ = nullptr;
}

RectF UI_Node::UI_GetLocalRectF(bool inParentSpace) const {
    if (inParentSpace)
        return rect_;
    return {0.0f, 0.0f, rect_.width, rect_.height};
}

void UI_Node::UI_SetLocalRectF(const RectF& rect) {
    if (rect == rect_)
        return;
    const bool sizeChanged = rect.width != rect_.width || rect.height != rect_.height;
    rect_ = rect;
    NotifyObserver(NodeChange::Geometry);
    if (!sizeChanged)
        return;
    const RectF local = UI_GetLocalRectF();
    UI_SizeChanged(local);
    // Copied: a notify function may install another.
    const auto functions = sizeChangedFunctions_;
    for (const SizeChangedFunction& function : functions)
        function(local);
}

void UI_Node::UI_Show(bool show) {
    if (show == shown_)
        return;
    shown_ = show;
    if (!show) {
        UI_Node* focus = UI_GetFocusedNode();
        if (focus && !focus->UI_IsVisible())
            focus->UI_LoseKeyboardFocus();
    }
    NotifyObserver(NodeChange::Visibility);
}

void UI_Node::UI_Draw(sketcher::Sketcher& sketcher) {
    for (const UI_NodeRef& child : children_)
        if (child->UI_IsShown())
            child->UI_Draw(sketcher);
}

bool UI_Node::UI_DoKeyboardEvent(UI_Node* target, const KeyboardEvent& event) {
    return false;
}

sketcher::SupplierInterface* UI_Node::UI_GetDrawSupplier() const {
    return parent_ ? parent_->UI_GetDrawSupplier() : nullptr;
}

void UI_Node::UI_SizeChanged(const RectF& localRect) {}

void UI_Node::UI_FocusChanged(FocusReason reason) {}

bool UI_Node::UI_GainKeyboardFocus() {
    if (!UI_WantsKeyboardFocus() || !UI_IsEnabled() || !UI_IsVisible())
        return false;
    UI_GetRootNode()->SetFocusedNode(this);
    return true;
}

void UI_Node::UI_LoseKeyboardFocus() {
    if (UI_HasKeyboardFocus())
        UI_GetRootNode()->SetFocusedNode(nullptr);
}

bool UI_Node::UI_HasKeyboardFocus() const {
    return UI_GetFocusedNode() == this;
}

UI_Node* UI_Node::UI_GetFocusedNode() const {
    return UI_GetRootNode()->focused_;
}

void UI_Node::SetFocusedNode(UI_Node* node) {
    if (node == focused_)
        return;
    UI_Node* previous = focused_;
    focused_ = node;
    // The old holder hears of the loss before the new one of the gain, as a person sees it.
    if (previous) {
        previous->UI_FocusChanged(FocusReason::Lost);
        previous->NotifyObserver(NodeChange::Focus);
    }
    if (node) {
        node->UI_FocusChanged(FocusReason::Gained);
        node->NotifyObserver(NodeChange::Focus);
    }
}

void UI_Node::UI_SetToolTip(const Fnd::WString& text) {
    if (text == toolTip_)
        return;
    toolTip_ = text;
    NotifyObserver(NodeChange::ToolTip);
}

void UI_Node::UI_SetDisabled(bool disabled) {
    if (disabled == disabled_)
        return;
    disabled_ = disabled;
    if (disabled) {
        UI_Node* focus = UI_GetFocusedNode();
        if (focus && !focus->UI_IsEnabled())
            focus->UI_LoseKeyboardFocus();
    }
    NotifyObserver(NodeChange::Enabled);
}

bool UI_Node::UI_IsEnabled() const {
    for (const UI_Node* node = this; node; node = node->parent_)
        if (node->disabled_)
            return false;
    return true;
}

bool UI_Node::UI_IsVisible() const {
    for (const UI_Node* node = this; node; node = node->parent_)
        if (!node->UI_IsShown())
            return false;
    return true;
}

UI_Node* UI_Node::UI_GetRootNode() {
    UI_Node* node = this;
    while (node->parent_)
        node = node->parent_;
    return node;
}

const UI_Node* UI_Node::UI_GetRootNode() const {
    const UI_Node* node = this;
    while (node->parent_)
        node = node->parent_;
    return node;
}

PointF UI_Node::UI_LocalToGlobal(PointF point) const {
    // The root's own place is the window's place on screen, not part of its client space.
    for (const UI_Node* node = this; node->parent_; node = node->parent_)
        point = point + node->rect_.Origin();
    return point;
}

void UI_Node::UI_SetNodeID(std::string id) {
    id_ = std::move(id);
}

UI_Node* UI_Node::UI_FindNodeByID(const std::string& id) {
    if (id_ == id)
        return this;
    for (const UI_NodeRef& child : children_)
        if (UI_Node* found = child->UI_FindNodeByID(id))
            return found;
    return nullptr;
}

void UI_Node::UI_InstallSizeChangedNotifyFunction(SizeChangedFunction function) {
    sizeChangedFunctions_.push_back(std::move(function));
}

void UI_Node::Adopt(const UI_NodeRef& node) {
    if (!node)
        throw std::invalid_argument("UI_Container: a null child");
    if (node->parent_)
        throw std::logic_error("UI_Container: the node has a parent already");
    for (const UI_Node* ancestor = this; ancestor; ancestor = ancestor->parent_)
        if (ancestor == node.get())
            throw std::logic_error("UI_Container: a node cannot contain its own ancestor");
    // A tree joining another gives up its own focus; the new root keeps the only record.
    node->SetFocusedNode(nullptr);
    node->parent_ = this;
}

void UI_Node::ChildPushBack(const UI_NodeRef& node) {
    Adopt(node);
    children_.push_back(node);
    NotifyObserver(NodeChange::Children);
}

void UI_Node::ChildInsert(std::size_t position, const UI_NodeRef& node) {
    Adopt(node);
    position = std::min(position, children_.size());
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(position), node);
    NotifyObserver(NodeChange::Children);
}

UI_Container::ChildIterator UI_Node::ChildFind(const UI_Node* node) const {
    return std::find_if(children_.begin(), children_.end(),
                        [node](const UI_NodeRef& child) { return child.get() == node; });
}

bool UI_Node::ChildRemove(const UI_Node* node) {
    const auto found = ChildFind(node);
    if (found == children_.end())
        return false;
    const UI_NodeRef child = *found; // keeps it alive through the focus change
    ForgetFocusWithin(*child);
    children_.erase(found);
    child->parent_ = nullptr;
    NotifyObserver(NodeChange::Children);
    return true;
}

void UI_Node::ForgetFocusWithin(UI_Node& subtree) {
    UI_Node* focus = UI_GetFocusedNode();
    for (UI_Node* node = focus; node; node = node->parent_)
        if (node == &subtree) {
            focus->UI_LoseKeyboardFocus();
            return;
        }
}

void UI_Node::NotifyObserver(NodeChange change) {
    for (UI_Node* node = this; node; node = node->parent_)
        if (node->observer_) {
            node->observer_->UI_NodeChanged(*this, change);
            return;
        }
}

} // namespace fluxui::ui
