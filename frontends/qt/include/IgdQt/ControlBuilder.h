#pragma once
// Makes and updates the widget of one toolkit class. The presenter keeps what every node shares
// (geometry, visibility, enabled state, tooltip, children); a builder adds what is particular to
// its class: the widget, its value and look, and the person's input turned into model calls.
#include "fluxui/ui/UI_Node.h"

class QWidget;

namespace igd::qt {

class NodePresenter;

class ControlBuilder {
public:
    virtual ~ControlBuilder() = default;
    // A new widget for node, a child of parent. Connections the builder makes belong to the
    // widget, so they end with it.
    virtual QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const = 0;
    // Shows the node's value and appearance on the widget, without raising the widget's signals.
    virtual void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const {}
};

} // namespace igd::qt
