#include "SettingsWindow.h"

#include <QApplication>
#include <QImage>
#include <QWidget>
#include <iostream>

#include "HostSession.h"
#include "IGD/SettingsPanePreview.h"
#include "WindowSupport.h"

namespace igd::dialog {
namespace {

// The size of the right pane in a dialog of its remembered default size.
constexpr float kOpeningWidth = 360.0f;
constexpr float kOpeningHeight = 640.0f;

} // namespace

int RunSettingsWindow(float width, float height, const QString& screenshotFile, const std::vector<ReplayStep>& replay,
                      const ReplayOptions& options) {
    const IGD::SettingsPanePreview preview = IGD::BuildSettingsPanePreview(kOpeningWidth, kOpeningHeight);
    PaneWindow paneWindow(preview.pane, QStringLiteral("Ingest: options"));
    QWidget* window = paneWindow.Widget();
    ProcessEventsFor(300);
    window->resize(static_cast<int>(width), static_cast<int>(height));

    if (!replay.empty()) {
        ReplayHost host;
        host.tree = [&preview] { return preview.pane.get(); };
        host.widget = [window] { return window; };
        return RunReplay(replay, std::move(host), options);
    }
    if (screenshotFile.isEmpty())
        return QApplication::exec();
    ProcessEventsFor(700);
    const QImage image = window->grab().toImage();
    if (image.isNull() || !image.save(screenshotFile, "PNG")) {
        std::cerr << "igd-dialog: cannot write " << screenshotFile.toStdString() << "\n";
        return 1;
    }
    return 0;
}

} // namespace igd::dialog
