#include "IgdQt/ToolkitDialog.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QResizeEvent>

#include "IgdQt/QtStrings.h"

namespace igd::qt {

ToolkitDialog::ToolkitDialog(fluxui::ui::OS_Dialog& window, QWidget* parent, PictureSource pictures)
    : QDialog(parent), window_(window), keep_(&window) {
    setWindowTitle(ToQString(window.GetTitle()));
    setModal(true);
    presenter_ = std::make_unique<NodePresenter>(keep_, this, pictures);
    presenter_->RootWidget()->setAutoFillBackground(true);
    presenter_->SetCloseHandler([this] {
        if (loop_)
            loop_->quit();
    });
    const fluxcore::geom::PointI minimum = window.GetMinimumSize();
    setMinimumSize(minimum.x, minimum.y);
    const fluxcore::geom::RectF client = window.UI_GetLocalRectF();
    resize(static_cast<int>(client.width + 0.5f), static_cast<int>(client.height + 0.5f));
    const fluxcore::geom::RectI structure = window.UI_GetGlobalStructureRect();
    // A window the model placed stays there; any other opens centred over its parent.
    if (structure.width > 0 && structure.height > 0)
        move(structure.left, structure.top);
}

ToolkitDialog::~ToolkitDialog() = default;

void ToolkitDialog::RunUntilClosed() {
    if (window_.IsCloseRequested())
        return;
    ShowModal();
    QEventLoop loop;
    loop_ = &loop;
    if (!window_.IsCloseRequested())
        loop.exec(QEventLoop::DialogExec);
    loop_ = nullptr;
    End();
}

void ToolkitDialog::ShowModal() {
    show();
    raise();
    activateWindow();
}

void ToolkitDialog::End() {
    // Where the person left the window, title bar included, for the caller to remember.
    window_.SetTitleBarHeight(geometry().top() - frameGeometry().top());
    const QRect frame = frameGeometry();
    window_.UI_SetGlobalStructureRect({frame.left(), frame.top(), frame.width(), frame.height()});
    hide();
}

void ToolkitDialog::reject() {
    window_.CloseByUser();
}

void ToolkitDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    fluxcore::geom::RectF rect = window_.UI_GetLocalRectF(true);
    rect.width = static_cast<float>(event->size().width());
    rect.height = static_cast<float>(event->size().height());
    window_.UI_SetLocalRectF(rect);
}

void ToolkitDialog::closeEvent(QCloseEvent* event) {
    if (window_.IsCloseRequested()) {
        QDialog::closeEvent(event);
        return;
    }
    // The close box is a request: the toolkit presses the cancel button, which may decline.
    event->ignore();
    window_.CloseByUser();
}

} // namespace igd::qt
