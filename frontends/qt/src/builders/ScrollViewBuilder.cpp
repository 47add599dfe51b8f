#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <QWidget>

#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_ScrollView.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_ScrollBar;
using fluxui::controls::UI_ScrollView;

// Three lines of a form for one notch of the wheel, as desktop scroll areas move.
constexpr float kUnitsPerNotch = 60.0f;

// Clips the content to the view; the wheel scrolls the model, which places the content.
class ScrollViewWidget : public QWidget {
public:
    ScrollViewWidget(QWidget* parent, UI_ScrollView& model)
        : QWidget(parent), model_(&model), keep_(&model) {}

protected:
    void wheelEvent(QWheelEvent* event) override {
        const float delta = !event->pixelDelta().isNull()
                                ? static_cast<float>(event->pixelDelta().y())
                                : static_cast<float>(event->angleDelta().y()) / 120.0f * kUnitsPerNotch;
        const float before = model_->GetScrollY();
        model_->ScrollTo(before - delta);
        // At either end the wheel belongs to whatever scrolls around this view.
        if (model_->GetScrollY() == before)
            event->ignore();
        else
            event->accept();
    }

private:
    UI_ScrollView* model_;
    fluxui::ui::UI_NodeRef keep_; // the view outlives its widget, which may be deleted later
};

class ScrollViewBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new ScrollViewWidget(parent, NodeAs<UI_ScrollView>(node));
    }
};

// The bar of a scroll view: its range and position are the view's; dragging it scrolls the view.
class ScrollBarBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* bar = new QScrollBar(Qt::Vertical, parent);
        bar->setFocusPolicy(Qt::NoFocus);
        QObject::connect(bar, &QScrollBar::valueChanged, bar,
                         [ref = fluxui::ui::UI_NodeRef(&node)](int value) {
                             if (auto* view = dynamic_cast<UI_ScrollView*>(ref->UI_GetParentNode()))
                                 view->ScrollTo(static_cast<float>(value));
                         });
        return bar;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_ScrollBar& model = NodeAs<UI_ScrollBar>(node);
        auto& bar = static_cast<QScrollBar&>(widget);
        const QSignalBlocker blocker(bar);
        bar.setRange(0, static_cast<int>(model.GetMaximum() + 0.5f));
        bar.setValue(static_cast<int>(model.GetValue() + 0.5f));
        if (auto* view = dynamic_cast<UI_ScrollView*>(node.UI_GetParentNode())) {
            const int page = static_cast<int>(view->UI_GetLocalRectF().height);
            bar.setPageStep(std::max(1, page));
            bar.setSingleStep(static_cast<int>(kUnitsPerNotch / 3));
        }
    }
};

} // namespace

BuilderPtr MakeScrollViewBuilder() {
    return std::make_shared<ScrollViewBuilder>();
}

BuilderPtr MakeScrollBarBuilder() {
    return std::make_shared<ScrollBarBuilder>();
}

} // namespace igd::qt
