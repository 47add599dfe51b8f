#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_SectionView.h"

namespace igd::qt {
namespace {

using fluxui::controls::SectionDrawPolicy;
using fluxui::controls::UI_SectionView;

constexpr int kTitleIndent = 8;
constexpr int kArrowSize = 8;

// Draws the header (a disclosure arrow and the title) and the frame; a click on the header asks
// the model to open or close the section. The content is a child node, placed by the model.
class SectionWidget : public QWidget {
public:
    SectionWidget(QWidget* parent, UI_SectionView& model) : QWidget(parent), model_(&model), keep_(&model) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const SectionDrawPolicy policy = model_->GetDrawPolicy();
        const int header = static_cast<int>(model_->GetHeaderHeight() + 0.5f);
        const QRect headerRect(0, 0, width(), header);
        if (policy != SectionDrawPolicy::Nothing)
            painter.fillRect(headerRect, palette().color(QPalette::Button));
        if (policy == SectionDrawPolicy::HeaderAndBorder && model_->GetShowBorder()) {
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
            painter.drawLine(QPointF(0, header - 0.5), QPointF(width(), header - 0.5));
        }
        if (header <= 0)
            return;
        int x = kTitleIndent;
        painter.setPen(Qt::NoPen);
        painter.setBrush(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
        if (model_->GetUserOpenable()) {
            const qreal cy = header / 2.0;
            QPainterPath arrow;
            if (model_->GetOpened()) {
                arrow.moveTo(x, cy - kArrowSize / 4.0);
                arrow.lineTo(x + kArrowSize, cy - kArrowSize / 4.0);
                arrow.lineTo(x + kArrowSize / 2.0, cy + kArrowSize / 4.0 + 1);
            } else {
                arrow.moveTo(x + 1, cy - kArrowSize / 2.0);
                arrow.lineTo(x + 1 + kArrowSize / 2.0 + 1, cy);
                arrow.lineTo(x + 1, cy + kArrowSize / 2.0);
            }
            arrow.closeSubpath();
            painter.drawPath(arrow);
            x += kArrowSize + 6;
        }
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
        const QRect titleRect(x, 0, width() - x - kTitleIndent, header);
        painter.drawText(titleRect, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(ToQString(model_->GetTitle()), Qt::ElideRight,
                                                          titleRect.width()));
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && event->position().y() < model_->GetHeaderHeight()) {
            model_->ToggleByUser();
            event->accept();
            return;
        }
        QWidget::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        const bool overHeader =
            event->position().y() < model_->GetHeaderHeight() && model_->GetUserOpenable();
        setCursor(overHeader ? Qt::PointingHandCursor : Qt::ArrowCursor);
        QWidget::mouseMoveEvent(event);
    }

private:
    UI_SectionView* model_;
    fluxui::ui::UI_NodeRef keep_;
};

class SectionViewBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* section = new SectionWidget(parent, NodeAs<UI_SectionView>(node));
        section->setMouseTracking(true);
        return section;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        widget.update();
    }
};

} // namespace

BuilderPtr MakeSectionViewBuilder() {
    return std::make_shared<SectionViewBuilder>();
}

} // namespace igd::qt
