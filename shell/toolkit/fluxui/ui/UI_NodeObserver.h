#pragma once
// How a presenter (the Qt front end, a test) learns that a node's state changed, so it can sync
// the widget it shows for that node. One observer set on a node hears its whole subtree.

namespace fluxui::ui {

class UI_Node;

enum class NodeChange {
    Geometry,
    Visibility,
    Enabled,
    Value,    // the value, the value-unknown state, or a text of a control
    Children, // a child was added or removed
    Focus,
    Appearance, // colours, borders, pictures, item lists, opened state
    ToolTip,
    Closed, // a window's close was requested
};

class UI_NodeObserver {
public:
    virtual ~UI_NodeObserver() = default;
    virtual void UI_NodeChanged(UI_Node& node, NodeChange change) = 0;
};

} // namespace fluxui::ui
