#include <QPainter>
#include <QWidget>

#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_Divider.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_Divider;

// A one-pixel rule along the longer side, centred across the node; a divider in the down state
// is drawn sunken, a dark line over a light one.
class DividerWidget : public QWidget {
public:
    using QWidget::QWidget;
    bool sunken = false;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QColor dark =
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Mid);
        const QColor light = palette().color(QPalette::Midlight);
        const bool horizontal = width() >= height();
        const int middle = (horizontal ? height() : width()) / 2;
        const auto line = [&](int at, const QColor& color) {
            painter.setPen(color);
            if (horizontal)
                painter.drawLine(0, at, width() - 1, at);
            else
                painter.drawLine(at, 0, at, height() - 1);
        };
        line(middle, dark);
        if (sunken)
            line(middle + 1, light);
    }
};

class DividerBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new DividerWidget(parent);
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        auto& divider = static_cast<DividerWidget&>(widget);
        divider.sunken = NodeAs<UI_Divider>(node).IsDownState();
        divider.update();
    }
};

} // namespace

BuilderPtr MakeDividerBuilder() {
    return std::make_shared<DividerBuilder>();
}

} // namespace igd::qt
