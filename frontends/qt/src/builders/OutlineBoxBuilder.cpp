#include <QPainter>
#include <QWidget>

#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_OutlineBox.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_OutlineBox;

// A thin frame around a group, in the palette's colour for frames.
class OutlineWidget : public QWidget {
public:
    using QWidget::QWidget;
    qreal radius = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Mid), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    }
};

class OutlineBoxBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new OutlineWidget(parent);
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        auto& outline = static_cast<OutlineWidget&>(widget);
        outline.radius = NodeAs<UI_OutlineBox>(node).GetCornerRadius();
        outline.update();
    }
};

} // namespace

BuilderPtr MakeOutlineBoxBuilder() {
    return std::make_shared<OutlineBoxBuilder>();
}

} // namespace igd::qt
