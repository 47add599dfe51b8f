#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_FrameView.h"

namespace igd::qt {
namespace {

using fluxui::controls::FramePicture;
using fluxui::controls::UI_FrameView;

// Paints the picture straight from the model's bytes: a player hands over many pictures a second,
// and a QImage over shared bytes costs no copy until it is drawn.
class FrameWidget : public QWidget {
public:
    FrameWidget(QWidget* parent, fluxui::ui::UI_NodeRef node) : QWidget(parent), node_(std::move(node)) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    void Show(const FramePicture& picture, const QString& text) {
        picture_ = picture;
        image_ = picture.IsEmpty() ? QImage()
                                   : QImage(picture.bytes->data(), picture.width, picture.height,
                                            picture.width * 4, QImage::Format_RGBA8888);
        text_ = text;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        if (!image_.isNull()) {
            QSize size = image_.size().scaled(this->size(), Qt::KeepAspectRatio);
            const QRect target(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, size != image_.size());
            painter.drawImage(target, image_);
        } else if (!text_.isEmpty()) {
            painter.setPen(QColor(200, 200, 200));
            painter.drawText(rect().adjusted(4, 4, -4, -4), Qt::AlignCenter | Qt::TextWordWrap, text_);
        }
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton)
            NodeAs<UI_FrameView>(*node_).Click();
    }

private:
    fluxui::ui::UI_NodeRef node_;
    FramePicture picture_; // keeps the bytes under image_ alive
    QImage image_;
    QString text_;
};

class FrameViewBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new FrameWidget(parent, fluxui::ui::UI_NodeRef(&node));
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_FrameView& model = NodeAs<UI_FrameView>(node);
        static_cast<FrameWidget&>(widget).Show(model.GetPicture(), ToQString(model.GetText()));
    }
};

} // namespace

BuilderPtr MakeFrameViewBuilder() {
    return std::make_shared<FrameViewBuilder>();
}

} // namespace igd::qt
