#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_SplitterView.h"

namespace igd::qt {
namespace {

using fluxui::controls::SplitDirection;
using fluxui::controls::UI_SplitterView;

// The gap between the two views is the divider: it shows a grip, and dragging it asks the model
// for a new split, which the model may correct through its validation function.
class SplitterWidget : public QWidget {
public:
    SplitterWidget(QWidget* parent, UI_SplitterView& model) : QWidget(parent), model_(&model), keep_(&model) {
        setMouseTracking(true);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRect divider = DividerRect();
        painter.fillRect(divider, palette().color(QPalette::Window).darker(108));
        painter.setPen(palette().color(QPalette::Mid));
        const QPoint centre = divider.center();
        for (int i = -1; i <= 1; ++i) {
            const QPoint dot = Horizontal() ? QPoint(centre.x(), centre.y() + i * 4)
                                            : QPoint(centre.x() + i * 4, centre.y());
            painter.drawPoint(dot);
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && DividerRect().contains(event->position().toPoint())) {
            grab_ = Along(event->position()) - model_->GetDividerPosition();
            dragging_ = true;
            event->accept();
            return;
        }
        QWidget::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (dragging_) {
            model_->DragDividerTo(Along(event->position()) - grab_);
            return;
        }
        const bool over = DividerRect().contains(event->position().toPoint());
        setCursor(over ? (Horizontal() ? Qt::SplitHCursor : Qt::SplitVCursor) : Qt::ArrowCursor);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        dragging_ = false;
        QWidget::mouseReleaseEvent(event);
    }

private:
    bool Horizontal() const { return model_->GetDirection() == SplitDirection::Horizontal; }
    float Along(const QPointF& point) const {
        return static_cast<float>(Horizontal() ? point.x() : point.y());
    }
    QRect DividerRect() const {
        const int at = static_cast<int>(model_->GetDividerPosition() + 0.5f);
        const int size = std::max(1, static_cast<int>(model_->GetDividerWidth() + 0.5f));
        return Horizontal() ? QRect(at, 0, size, height()) : QRect(0, at, width(), size);
    }

    UI_SplitterView* model_;
    fluxui::ui::UI_NodeRef keep_;
    float grab_ = 0.0f;
    bool dragging_ = false;
};

class SplitterBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new SplitterWidget(parent, NodeAs<UI_SplitterView>(node));
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        widget.update();
    }
};

} // namespace

BuilderPtr MakeSplitterBuilder() {
    return std::make_shared<SplitterBuilder>();
}

} // namespace igd::qt
