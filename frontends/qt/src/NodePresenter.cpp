#include "IgdQt/NodePresenter.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>
#include <cmath>
#include <stdexcept>
#include <unordered_set>

#include "IgdQt/QtStrings.h"
#include "fluxui/ui/OS_Window.h"

namespace igd::qt {

using fluxui::ui::NodeChange;
using fluxui::ui::UI_Node;

namespace {

// Holds the presented tree; keys the widgets inside leave unhandled end up here.
class TreeHost : public QWidget {
public:
    TreeHost(QWidget* host, NodePresenter& presenter) : QWidget(host), presenter_(presenter) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (presenter_.DispatchKey(*event))
            event->accept();
        else
            QWidget::keyPressEvent(event);
    }

private:
    NodePresenter& presenter_;
};

// Edges rounded on their own, so that neighbours that touch in the model touch on screen.
QRect ToPixels(const fluxcore::geom::RectF& rect) {
    const int left = static_cast<int>(std::lround(rect.left));
    const int top = static_cast<int>(std::lround(rect.top));
    const int right = static_cast<int>(std::lround(rect.left + rect.width));
    const int bottom = static_cast<int>(std::lround(rect.top + rect.height));
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

fluxui::ui::KeyboardEvent ToKeyboardEvent(const QKeyEvent& event) {
    fluxui::ui::KeyboardEvent key;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.key = fluxui::ui::Key::Return;
        break;
    case Qt::Key_Escape:
        key.key = fluxui::ui::Key::Escape;
        break;
    case Qt::Key_Tab:
        key.key = fluxui::ui::Key::Tab;
        break;
    default:
        key.key = fluxui::ui::Key::Other;
        break;
    }
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (modifiers & Qt::ShiftModifier)
        key.modifiers |= fluxui::ui::kModifierShift;
    if (modifiers & Qt::ControlModifier)
        key.modifiers |= fluxui::ui::kModifierControl;
    if (modifiers & Qt::AltModifier)
        key.modifiers |= fluxui::ui::kModifierAlt;
    if (modifiers & Qt::MetaModifier)
        key.modifiers |= fluxui::ui::kModifierCommand;
    return key;
}

} // namespace

// Gives the keyboard focus of the model to the node whose widget the person focused, and takes it
// back when the person moves on, which commits an edit in progress as a form does.
class NodePresenter::FocusRelay : public QObject {
public:
    FocusRelay(NodePresenter& presenter, QObject* parent) : QObject(parent), presenter_(presenter) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
            return false;
        UI_Node* node = presenter_.NodeFor(watched);
        if (!node)
            return false;
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (event->type() == QEvent::FocusIn)
            node->UI_GainKeyboardFocus();
        // A menu or another window taking the keyboard for a moment is no move to another field.
        else if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            node->UI_LoseKeyboardFocus();
        return false;
    }

private:
    NodePresenter& presenter_;
};

NodePresenter::NodePresenter(fluxui::ui::UI_NodeRef root, QWidget* host, PictureSource pictures,
                             const BuilderRegistry& registry)
    : root_(std::move(root)), registry_(registry), pictures_(pictures) {
    if (!root_)
        throw std::invalid_argument("NodePresenter: no node to present");
    rootWidget_ = new TreeHost(host, *this);
    focusRelay_ = new FocusRelay(*this, rootWidget_);
    Present(*root_, rootWidget_);
    root_->UI_SetObserver(this);
    if (UI_Node* focused = root_->UI_GetFocusedNode())
        SyncFocus(entries_.at(focused));
}

NodePresenter::~NodePresenter() {
    root_->UI_SetObserver(nullptr);
    detached_.clear();
    entries_.clear();
    nodesByWidget_.clear();
    delete rootWidget_.data();
}

QWidget* NodePresenter::WidgetFor(const UI_Node& node) const {
    if (detached_.count(&node))
        return nullptr;
    const auto found = entries_.find(&node);
    return found == entries_.end() ? nullptr : found->second.widget;
}

UI_Node* NodePresenter::NodeFor(const QObject* widget) const {
    const auto found = nodesByWidget_.find(widget);
    return found == nodesByWidget_.end() ? nullptr : found->second;
}

QWidget* NodePresenter::Present(UI_Node& node, QWidget* parent) {
    const ControlBuilder& builder = registry_.Find(node);
    QWidget* widget = builder.Build(node, parent, *this);
    Entry& entry = entries_[&node];
    entry.node = &node;
    entry.widget = widget;
    entry.builder = &builder;
    nodesByWidget_[widget] = &node;
    if (node.UI_WantsKeyboardFocus())
        widget->installEventFilter(focusRelay_);

    SyncGeometry(entry);
    widget->setToolTip(ToQString(node.UI_GetToolTip()));
    widget->setEnabled(node.UI_IsEnabled());
    builder.Sync(node, *widget, *this);
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child) {
        Present(**child, widget);
        entry.children.push_back(child->get());
    }
    widget->setVisible(node.UI_IsShown());
    return widget;
}

void NodePresenter::Forget(UI_Node& node) {
    QWidget* widget = WidgetFor(node);
    if (!widget)
        return;
    ForgetEntries(node);
    // The children's widgets go with this one. Later, not now: the removal may come from a signal
    // of this very widget, as when a field's remove button removes the field.
    widget->hide();
    widget->deleteLater();
}

void NodePresenter::ForgetEntries(UI_Node& node) {
    const auto found = entries_.find(&node);
    if (found == entries_.end())
        return;
    // Kept to the end: erasing the entry may release the last reference to the node.
    const fluxui::ui::UI_NodeRef keep = found->second.node;
    for (UI_Node* child : found->second.children)
        ForgetEntries(*child);
    nodesByWidget_.erase(found->second.widget);
    entries_.erase(found);
}

void NodePresenter::SyncGeometry(const Entry& entry) {
    const UI_Node& node = *entry.node;
    if (&node == root_.get()) {
        // The root's own place is where its window sits on screen, not a place inside the host.
        const fluxcore::geom::RectF rect = node.UI_GetLocalRectF();
        const QRect pixels = ToPixels(rect);
        entry.widget->setGeometry(0, 0, pixels.width(), pixels.height());
        rootWidget_->resize(pixels.size());
        return;
    }
    entry.widget->setGeometry(ToPixels(node.UI_GetLocalRectF(true)));
}

void NodePresenter::SyncEnabled(UI_Node& node) {
    // Each widget takes the node's effective state, so that enabling an ancestor again brings
    // back exactly the descendants the model enables.
    const auto found = entries_.find(&node);
    if (found == entries_.end())
        return;
    found->second.widget->setEnabled(node.UI_IsEnabled());
    for (UI_Node* child : found->second.children)
        SyncEnabled(*child);
}

void NodePresenter::SyncChildren(Entry& entry) {
    UI_Node& node = *entry.node;
    std::unordered_set<const UI_Node*> now;
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        now.insert(child->get());
    for (UI_Node* old : entry.children)
        if (!now.count(old))
            Detach(*old);
    entry.children.clear();
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child) {
        UI_Node& childNode = **child;
        QWidget* widget = nullptr;
        if (const auto known = entries_.find(&childNode); known == entries_.end())
            widget = Present(childNode, entry.widget);
        else {
            widget = known->second.widget;
            if (detached_.count(&childNode))
                Reattach(known->second, entry.widget);
        }
        // The model's child order is the stacking order: later children lie on top.
        widget->raise();
        entry.children.push_back(&childNode);
    }
}

void NodePresenter::Refresh(Entry& entry) {
    UI_Node& node = *entry.node;
    SyncGeometry(entry);
    entry.widget->setToolTip(ToQString(node.UI_GetToolTip()));
    entry.widget->setEnabled(node.UI_IsEnabled());
    entry.builder->Sync(node, *entry.widget, *this);
    SyncChildren(entry);
    for (UI_Node* child : entry.children)
        Refresh(entries_.at(child));
    entry.widget->setVisible(node.UI_IsShown());
}

void NodePresenter::Detach(UI_Node& node) {
    const auto found = entries_.find(&node);
    if (found == entries_.end())
        return;
    QWidget* widget = found->second.widget;
    Detached& detached = detached_[&node];
    detached.node = &node;
    QWidget* focus = QApplication::focusWidget();
    if (focus && (focus == widget || widget->isAncestorOf(focus)))
        detached.focus = focus;
    widget->hide();
    if (!forgetQueued_) {
        forgetQueued_ = true;
        // Bound to the root widget, so that a presenter gone by then is not called.
        QMetaObject::invokeMethod(
            rootWidget_, [this] { ForgetDetached(); }, Qt::QueuedConnection);
    }
}

void NodePresenter::Reattach(Entry& entry, QWidget* parent) {
    const auto found = detached_.find(entry.node.get());
    const QPointer<QWidget> focus = found->second.focus;
    detached_.erase(found);
    if (entry.widget->parentWidget() != parent)
        entry.widget->setParent(parent);
    // The model went on without the widget: whatever changed meanwhile is shown now.
    Refresh(entry);
    // A row moved by its own button keeps the keyboard there, so that the next press moves it on.
    if (focus && focus->isVisible())
        focus->setFocus(Qt::OtherFocusReason);
}

void NodePresenter::ForgetDetached() {
    forgetQueued_ = false;
    const auto gone = std::move(detached_);
    detached_.clear();
    for (const auto& [node, detached] : gone)
        Forget(*detached.node);
}

void NodePresenter::SyncFocus(const Entry& entry) {
    if (entry.node->UI_HasKeyboardFocus() && !entry.widget->hasFocus())
        entry.widget->setFocus(Qt::OtherFocusReason);
}

bool NodePresenter::DispatchKey(const QKeyEvent& event) {
    const fluxui::ui::KeyboardEvent key = ToKeyboardEvent(event);
    if (key.key != fluxui::ui::Key::Return && key.key != fluxui::ui::Key::Escape)
        return false;
    if (auto* window = dynamic_cast<fluxui::ui::OS_Window*>(root_.get()))
        return window->DispatchKeyboardEvent(key);
    UI_Node* target = root_->UI_GetFocusedNode();
    if (!target)
        target = root_.get();
    for (UI_Node* node = target; node; node = node->UI_GetParentNode())
        if (node->UI_DoKeyboardEvent(target, key))
            return true;
    return false;
}

void NodePresenter::UI_NodeChanged(UI_Node& node, NodeChange change) {
    if (!rootWidget_)
        return; // the host took the widgets down first
    if (change == NodeChange::Closed) {
        if (closeHandler_)
            closeHandler_();
        return;
    }
    // A window's caption belongs to the Qt window that shows it, which may be put up around the
    // root widget after the tree was presented.
    if (change == NodeChange::Appearance && &node == root_.get())
        if (const auto* window = dynamic_cast<const fluxui::ui::OS_Window*>(&node))
            rootWidget_->window()->setWindowTitle(ToQString(window->GetTitle()));
    const auto found = entries_.find(&node);
    if (found == entries_.end())
        return; // not presented (yet): its parent's Children change will build it whole
    Entry& entry = found->second;
    switch (change) {
    case NodeChange::Geometry:
        SyncGeometry(entry);
        break;
    case NodeChange::Visibility:
        entry.widget->setVisible(node.UI_IsShown());
        break;
    case NodeChange::Enabled:
        SyncEnabled(node);
        break;
    case NodeChange::ToolTip:
        entry.widget->setToolTip(ToQString(node.UI_GetToolTip()));
        break;
    case NodeChange::Children:
        SyncChildren(entry);
        break;
    case NodeChange::Focus:
        SyncFocus(entry);
        break;
    case NodeChange::Value:
    case NodeChange::Appearance:
        entry.builder->Sync(node, *entry.widget, *this);
        break;
    case NodeChange::Closed:
        break;
    }
}

} // namespace igd::qt
