#include "IgdQt/TreeSnapshot.h"

#include <QCoreApplication>
#include <QWidget>

#include "IgdQt/NodePresenter.h"

namespace igd::qt {

QImage RenderTree(const fluxui::ui::UI_NodeRef& root, PictureSource pictures) {
    QWidget window;
    // Painted as if shown, without appearing on a real screen.
    window.setAttribute(Qt::WA_DontShowOnScreen);
    NodePresenter presenter(root, &window, pictures);
    presenter.RootWidget()->setAutoFillBackground(true);
    window.resize(presenter.RootWidget()->size());
    window.show();
    QCoreApplication::processEvents();
    return window.grab().toImage();
}

} // namespace igd::qt
