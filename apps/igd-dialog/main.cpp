// igd-dialog: the desktop host of the library's dialogs.
//
//     igd-dialog [--project FILE] [--bin NAME] [--replay FILE [--screenshot DIR]]
//                                               a host window over the project, with an Ingest
//                                               button; a replay drives it and its dialogs
//     igd-dialog --gallery                      a window showing every layout, live
//     igd-dialog --gallery --screenshot DIR     every layout rendered to DIR/<layout>.png
//     igd-dialog --gallery --show ENTRY         the window, opened on one entry
//     igd-dialog --browse [PATH] [--view list|icons] [--screenshot FILE]
//                                               the media pane alone on PATH (home when none)
//     igd-dialog --settings [--width W] [--height H] [--screenshot FILE]
//                                               the settings pane with its bar, every section open
//     --vault [--vault-server NAME]             the project lives on a collaboration server
//     --settings --replay FILE                  a replay of the settings window
#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "AppFrame/DocumentManager.h"
#include "Av/CachingFrameService.h"
#include "Av/ClipPlaybackInstall.h"
#include "Av/EncoderList.h"
#include "QL/FilePresetService.h"
#include "Fnd/InteractionDriver.h"
#include "IgdQt/DialogStyle.h"
#include "IgdQt/QtFileDialogFactory.h"
#include "IgdQt/QtInteractionDriver.h"
#include "IGD/IngestDialogApi.h"
#include "IgdQt/QtRunLoop.h"
#include "BrowseWindow.h"
#include "HostSession.h"
#include "LayoutGallery.h"
#include "SettingsWindow.h"
#include "Mid/Project.h"
#include "Proj/PreferenceStore.h"
#include "Proj/Project.h"
#include "VaultClient/IVaultCDataServer.h"

int main(int argc, char** argv) {
    CLI::App cli{"igd-dialog: the desktop host of the ingest dialogs"};
    bool gallery = false;
    std::string screenshotDirectory;
    bool browse = false;
    std::string browsePath;
    std::string browseView;
    float width = 360.0f;
    float height = 640.0f;
    bool settings = false;
    bool vault = false;
    std::string vaultServer;
    std::string projectPath;
    std::string replayPath;
    std::string bin;
    cli.add_flag("--gallery", gallery, "Open a window that shows each layout built from the archive");
    cli.add_option("--screenshot", screenshotDirectory,
                   "With --gallery: render each layout offscreen to DIR/<layout>.png and exit; with "
                   "--browse or --settings: write the window to FILE once it has settled, and exit; with "
                   "--replay: the folder of the replay's screenshots")
        ->type_name("DIR|FILE");
    auto* browseOption = cli.add_option("--browse", browsePath,
                                        "Open the media pane alone on PATH (your home folder when none)")
                             ->type_name("PATH")
                             ->expected(0, 1);
    cli.add_option("--view", browseView, "With --browse: start in this view (default: the one last chosen)")
        ->check(CLI::IsMember({"list", "icons"}));
    std::string firstEntry;
    cli.add_option("--show", firstEntry, "With --gallery: open on the entry of this title, e.g. \"Transfer\"")
        ->type_name("ENTRY");
    cli.add_flag("--settings", settings,
                 "Open the settings pane with its bar and every section open, over the stored settings");
    cli.add_option("--width", width,
                   "Width of the dialog the layouts are shown in, or of the settings window, in units")
        ->check(CLI::Range(120.0f, 2000.0f));
    cli.add_option("--height", height, "With --settings: height of the window, in units")
        ->check(CLI::Range(120.0f, 2000.0f));
    cli.add_flag("--vault", vault, "The project lives on a collaboration server")->envname("IGD_VAULT_MODE");
    cli.add_option("--vault-server", vaultServer, "The collaboration server logged in to (default: none)")
        ->type_name("NAME")
        ->envname("IGD_VAULT_SERVER");
    cli.add_option("--project", projectPath, "The project the host window shows and ingests into (default: "
                                             "$IGD_HOME/project.igdproj, created when absent)")
        ->type_name("FILE");
    cli.add_option("--bin", bin, "The bin the host window ingests into while none is chosen in its tree (default: "
                                 "the root bin)")
        ->type_name("NAME");
    cli.add_option("--replay", replayPath,
                   "Drive the host window, or the --settings window, and their dialogs by the steps of FILE")
        ->type_name("FILE");
    CLI11_PARSE(cli, argc, argv);
    browse = browseOption->count() > 0;
    if (int(gallery) + int(browse) + int(settings) > 1) {
        std::cerr << "igd-dialog: open at most one of --gallery, --browse or --settings\n" << cli.help();
        return 2;
    }
    const bool host = !gallery && !browse && !settings;
    if (!replayPath.empty() && !host && !settings) {
        std::cerr << "igd-dialog: --replay drives the host window or the --settings window\n";
        return 2;
    }
    std::vector<igd::dialog::ReplayStep> replay;
    if (!replayPath.empty()) {
        try {
            replay = igd::dialog::ReadReplayScript(replayPath);
        } catch (const igd::dialog::ReplayScriptError& error) {
            std::cerr << "igd-dialog: " << replayPath << ": " << error.what() << "\n";
            return 2;
        }
    }
    if (projectPath.empty())
        projectPath = Proj::DefaultProjectPath();
    igd::dialog::ReplayOptions replayOptions;
    if (!replay.empty())
        replayOptions.screenshotFolder = QString::fromStdString(screenshotDirectory);

    // Gallery screenshots need no display; offscreen, they come out the same on every machine. The
    // browse window's screenshot is taken on the display it runs on, a real X server under xvfb-run.
    if (gallery && !screenshotDirectory.empty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    AppFrame::DocumentManager::SetInstance(
        std::make_shared<AppFrame::FixedDocumentManager>(vault, Fnd::FromUTF8(projectPath)));
    if (!vaultServer.empty())
        VaultClient::IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(Fnd::FromUTF8(vaultServer)));
    Mid::SetProject(Proj::MakeProjectOfFile(projectPath));
    QApplication::setApplicationName(QStringLiteral("igd-dialog"));
    igd::qt::ApplyDialogStyle(application);
    // The format and preset menus of transcoding destinations list what this FFmpeg can write.
    // The template sections list and save the presets under $IGD_HOME/presets.
    QL::InstallFilePresetService();
    // The transfer sections of the gallery load the settings stored under $IGD_HOME.
    try {
        Proj::InstallPreferenceStore();
    } catch (const std::exception& error) {
        std::cerr << "igd-dialog: the preferences cannot be opened: " << error.what() << "\n";
        return EXIT_FAILURE;
    }
    Av::InstallEncoderList();
    Av::InstallFrameService();
    Av::InstallClipPlayback();
    const std::shared_ptr<igd::qt::QtRunLoop> runLoop = igd::qt::QtRunLoop::Install();
    Fnd::SetInteractionDriver(std::make_shared<igd::qt::QtInteractionDriver>(
        igd::qt::PictureSource(IGD::IngestResourceManager())));
    SetFileDialogFactory(std::make_shared<igd::qt::QtFileDialogFactory>());

    int status = 0;
    if (host) {
        status = igd::dialog::RunHost(projectPath, Fnd::FromUTF8(bin), replay, replayOptions);
    } else if (settings) {
        status = igd::dialog::RunSettingsWindow(width, height,
                                                replay.empty() ? QString::fromStdString(screenshotDirectory) : QString(),
                                                replay, replayOptions);
    } else if (browse) {
        const IGD::MediaPaneView view = browseView == "icons" ? IGD::MediaPaneView::Icons
                                        : browseView == "list" ? IGD::MediaPaneView::List
                                                               : IGD::MediaPaneView::Remembered;
        status = igd::dialog::RunBrowseWindow(QString::fromStdString(browsePath), view,
                                              QString::fromStdString(screenshotDirectory));
    } else if (!screenshotDirectory.empty()) {
        const int failures =
            igd::dialog::WriteLayoutScreenshots(QString::fromStdString(screenshotDirectory), width);
        status = failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } else {
        igd::dialog::LayoutGallery window(width, QString::fromStdString(firstEntry));
        window.show();
        status = application.exec();
    }
    SetFileDialogFactory(nullptr);
    Fnd::SetInteractionDriver(nullptr);
    Fnd::SetRunLoop(nullptr);
    IGD::ReleaseIngestResHandlers();
    return status;
}
