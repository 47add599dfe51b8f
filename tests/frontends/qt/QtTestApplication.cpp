#include "QtTestApplication.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "IgdQt/DialogStyle.h"

namespace igd::test {

void EnsureQtApplication() {
    if (QApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "igd_qt_tests";
    static char* argv[] = {name, nullptr};
    static QApplication* application = new QApplication(argc, argv);
    igd::qt::ApplyDialogStyle(*application);
}

void ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    (void)QTest::qWaitForWindowActive(&window);
}

} // namespace igd::test
