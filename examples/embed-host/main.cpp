// igd-embed-example: a Qt program of its own that shows the library's Ingest options beside its
// own widgets, and ingests one file with them when its own button is pressed.
//
//     igd-embed-example FILE --destination DIR [--press-ingest] [--screenshot PNG]
//
// --press-ingest presses the button at start and exits once the batch has ended: 0 when the file
// was copied to DIR and the copy verified, 1 otherwise. --screenshot writes the window once it
// has settled (after the batch with --press-ingest) and exits.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QThread>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "EmbedWindow.h"
#include "HostServices.h"
#include "IGD/IngestSettingsApi.h"
#include "IgdQt/DialogStyle.h"

namespace {

constexpr int kSettleMilliseconds = 1000;
constexpr int kBatchLimitMilliseconds = 180000;

// Layouts, pictures and the first progress messages arrive through the event loop.
void Settle() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kSettleMilliseconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

bool WriteScreenshot(QWidget& window, const QString& file) {
    Settle();
    const QImage image = window.grab().toImage();
    if (image.isNull() || !image.save(file, "PNG")) {
        std::cerr << "igd-embed-example: cannot write " << file.toStdString() << "\n";
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("igd-embed-example"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A host that embeds the Ingest view and ingests FILE with it"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The file the Ingest button ingests"));
    const QCommandLineOption destinationOption(QStringLiteral("destination"),
                                               QStringLiteral("The folder the file is copied to"),
                                               QStringLiteral("DIR"));
    const QCommandLineOption pressOption(QStringLiteral("press-ingest"),
                                         QStringLiteral("Press Ingest at start and exit when the batch has ended"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              QStringLiteral("Write the window to PNG once settled, and exit"),
                                              QStringLiteral("PNG"));
    parser.addOptions({destinationOption, pressOption, screenshotOption});
    parser.process(application);
    if (parser.positionalArguments().size() != 1 || !parser.isSet(destinationOption)) {
        std::cerr << "usage: igd-embed-example FILE --destination DIR [--press-ingest] [--screenshot PNG]\n";
        return 2;
    }
    const QString file = QFileInfo(parser.positionalArguments().front()).absoluteFilePath();
    const QString destination = QDir::cleanPath(QFileInfo(parser.value(destinationOption)).absoluteFilePath());
    if (!QFileInfo(file).isFile() || !QFileInfo(destination).isDir()) {
        std::cerr << "igd-embed-example: FILE must be a file and DIR a folder\n";
        return 2;
    }
    const bool press = parser.isSet(pressOption);
    const QString screenshot = parser.value(screenshotOption);

    igd::qt::ApplyDialogStyle(application);
    std::optional<embed::HostServices> services;
    try {
        services.emplace();
    } catch (const std::exception& error) {
        std::cerr << "igd-embed-example: " << error.what() << "\n";
        return EXIT_FAILURE;
    }

    int status = EXIT_SUCCESS;
    {
        embed::EmbedWindow window(file, destination);
        window.show();
        if (press) {
            // Told from inside the service's report: the picture and the exit wait for the loop.
            window.SetIngestEndedHandler([&](bool succeeded) {
                QTimer::singleShot(0, &window, [&, succeeded] {
                    int code = succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
                    if (!screenshot.isEmpty() && !WriteScreenshot(window, screenshot))
                        code = EXIT_FAILURE;
                    QApplication::exit(code);
                });
            });
            QTimer::singleShot(0, &window, [&window] { window.IngestFile(); });
            QTimer::singleShot(kBatchLimitMilliseconds, &window, [] {
                std::cerr << "igd-embed-example: the batch had not ended after three minutes\n";
                QApplication::exit(EXIT_FAILURE);
            });
            status = QApplication::exec();
        } else if (!screenshot.isEmpty()) {
            status = WriteScreenshot(window, screenshot) ? EXIT_SUCCESS : EXIT_FAILURE;
        } else {
            status = QApplication::exec();
        }
    }
    // The destinations and their recent paths, for the next start.
    IGD::SavePersistedData();
    return status;
}
