#include "BrowseWindow.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QThread>
#include <QWidget>
#include <iostream>

#include "IGD/MediaPanePreview.h"
#include "WindowSupport.h"
#include "fluxmediabrowser/FavoritesPref.h"

namespace igd::dialog {
namespace {

constexpr float kPaneWidth = 1100.0f;
constexpr float kPaneHeight = 720.0f;

bool WaitUntilSettled(const fluxmediabrowser::MediaBrowserModel& model, int limitMilliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (!BrowserSettled(model)) {
        if (timer.elapsed() > limitMilliseconds)
            return false;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

} // namespace

int RunBrowseWindow(const QString& directory, IGD::MediaPaneView view, const QString& screenshotFile) {
    const QString absolute = directory.isEmpty() ? directory : QDir::cleanPath(QDir::current().absoluteFilePath(directory));
    IGD::MediaPanePreview preview =
        IGD::BuildMediaPanePreview(Fnd::FromUTF8(absolute.toStdString()), kPaneWidth, kPaneHeight, view);
    PaneWindow paneWindow(preview.pane, QStringLiteral("Ingest: media"));
    QWidget* window = paneWindow.Widget();

    int status = 0;
    if (screenshotFile.isEmpty()) {
        status = QApplication::exec();
    } else {
        fluxmediabrowser::MediaBrowserModel& model = preview.browser->GetModel();
        if (!WaitUntilSettled(model, 120000))
            std::cerr << "igd-dialog: the browser had not settled after two minutes; writing what it shows\n";
        // The first clip goes to the player, as a person's click would put it there.
        for (std::size_t index : model.ShownEntries())
            if (!model.Entries()[index].folder) {
                model.SetSelection({index});
                break;
            }
        ProcessEventsFor(1500);
        const QImage image = window->grab().toImage();
        if (image.isNull() || !image.save(screenshotFile, "PNG")) {
            std::cerr << "igd-dialog: cannot write " << screenshotFile.toStdString() << "\n";
            status = 1;
        }
    }
    fluxmediabrowser::WriteFavoritesPref();
    return status;
}

} // namespace igd::dialog
