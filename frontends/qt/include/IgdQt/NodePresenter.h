#pragma once
// Presents a toolkit tree with Qt widgets: one widget per node, placed where the node says,
// kept in step with the model through the node observer. The person's input reaches the model
// through the same calls a test makes; the model's answer comes back as a change and is shown.
#include <QPointer>
#include <functional>
#include <unordered_map>
#include <vector>

#include "IgdQt/BuilderRegistry.h"
#include "IgdQt/PictureSource.h"
#include "fluxui/ui/UI_NodeObserver.h"

class QObject;
class QKeyEvent;
class QWidget;

namespace igd::qt {

class NodePresenter : public fluxui::ui::UI_NodeObserver {
public:
    // Presents root in a new widget, a child of host, or a window of its own without one. The
    // presenter observes root until it is destroyed; root must have no other observer.
    explicit NodePresenter(fluxui::ui::UI_NodeRef root, QWidget* host = nullptr, PictureSource pictures = {},
                           const BuilderRegistry& registry = BuilderRegistry::Standard());
    ~NodePresenter() override;
    NodePresenter(const NodePresenter&) = delete;
    NodePresenter& operator=(const NodePresenter&) = delete;

    // The widget that holds the tree, sized as the root node.
    QWidget* RootWidget() const { return rootWidget_; }
    fluxui::ui::UI_Node& RootNode() const { return *root_; }
    // The widget showing node, or null when the node is not presented.
    QWidget* WidgetFor(const fluxui::ui::UI_Node& node) const;
    fluxui::ui::UI_Node* NodeFor(const QObject* widget) const;
    const PictureSource& Pictures() const { return pictures_; }

    // Called when a window of the tree asks to close (a dialog's PostClose).
    void SetCloseHandler(std::function<void()> handler) { closeHandler_ = std::move(handler); }

    // A key that no widget handled: Return and Escape go to the toolkit, from the focused node up
    // to the window. True when the toolkit consumed it.
    bool DispatchKey(const QKeyEvent& event);

    void UI_NodeChanged(fluxui::ui::UI_Node& node, fluxui::ui::NodeChange change) override;

private:
    struct Entry {
        fluxui::ui::UI_NodeRef node;
        QWidget* widget = nullptr;
        const ControlBuilder* builder = nullptr;
        std::vector<fluxui::ui::UI_Node*> children;
    };
    class FocusRelay;

    QWidget* Present(fluxui::ui::UI_Node& node, QWidget* parent);
    // Brings a widget kept from before up to the node's present state, descendants included.
    void Refresh(Entry& entry);
    // A node taken out of its parent keeps its widget, hidden, until the present handler has
    // ended: a node moved to another place comes back at once and is shown where it now stands.
    void Detach(fluxui::ui::UI_Node& node);
    void Reattach(Entry& entry, QWidget* parent);
    void ForgetDetached();
    // Forgets node and its presented descendants; the widgets go with the top one.
    void Forget(fluxui::ui::UI_Node& node);
    void ForgetEntries(fluxui::ui::UI_Node& node);
    void SyncGeometry(const Entry& entry);
    void SyncEnabled(fluxui::ui::UI_Node& node);
    void SyncChildren(Entry& entry);
    void SyncFocus(const Entry& entry);

    fluxui::ui::UI_NodeRef root_;
    const BuilderRegistry& registry_;
    PictureSource pictures_;
    QPointer<QWidget> rootWidget_;
    FocusRelay* focusRelay_ = nullptr; // owned by the root widget
    std::unordered_map<const fluxui::ui::UI_Node*, Entry> entries_;
    std::unordered_map<const QObject*, fluxui::ui::UI_Node*> nodesByWidget_;
    struct Detached {
        fluxui::ui::UI_NodeRef node;
        // The widget inside that had the keyboard focus when the node left, if one had.
        QPointer<QWidget> focus;
    };
    std::unordered_map<const fluxui::ui::UI_Node*, Detached> detached_;
    bool forgetQueued_ = false;
    std::function<void()> closeHandler_;
};

} // namespace igd::qt
