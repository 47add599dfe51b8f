// igd: the command-line host of the ingest library.
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <system_error>

#include <CLI/CLI.hpp>

#include "AppFrame/DocumentManager.h"
#include "Av/CachingFrameService.h"
#include "Av/EncoderList.h"
#include "CardsCommand.h"
#include "CommandTable.h"
#include "EncodersCommand.h"
#include "ExitCodes.h"
#include "HostApp/ApplicationType.h"
#include "IngestCommand.h"
#include "Mid/Project.h"
#include "NameCommand.h"
#include "NumberOption.h"
#include "PlanCommand.h"
#include "PrefsCommand.h"
#include "PresetsCommand.h"
#include "ProbeCommand.h"
#include "Proj/PreferenceStore.h"
#include "Proj/Project.h"
#include "ProjectCommand.h"
#include "VerifyCommand.h"
#include "VaultClient/IVaultCDataServer.h"
#include "QL/FilePresetService.h"
#include "fluxcore/ApplicationName.h"
#include "fluxcore/UsageLogFile.h"

namespace {

struct HostOptions {
    int hostKind = 0;
    bool vault = false;
    std::string vaultServer;
    std::string usageLog;
};

// False when the usage log was asked for and cannot be written: a report the user asked for is
// not silently dropped.
bool ApplyHostOptions(const HostOptions& host) {
    HostApp::SetApplicationType(host.hostKind);
    fluxcore::config::SetApplicationName(u"igd");
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(host.vault));
    if (!host.vaultServer.empty())
        VaultClient::IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(Fnd::FromUTF8(host.vaultServer)));
    // The ingest command opens the project it is given instead.
    Mid::SetProject(Proj::MakeProjectOfFile(Proj::DefaultProjectPath()));
    if (host.usageLog.empty())
        return true;
    try {
        fluxcore::config::UsageLogger::Set(fluxcore::config::UsageLogFile::Open(host.usageLog));
    } catch (const std::system_error& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return false;
    }
    return true;
}

// The services every command may reach through the library. A preference file that cannot be
// opened must not stop an ingest: the library then runs on its defaults, and the user is told.
void InstallServices() {
    QL::InstallFilePresetService();
    Av::InstallFrameService();
    // Every command may meet a transcode: an ingest submits it, resume redoes it.
    Av::SetEncoderPresetWarningHandler([](const Av::EncoderPresetWarning& warning) {
        std::cerr << "igd: encoder preset file \"" << warning.path << "\" " << warning.reason << "\n";
    });
    Av::InstallEncoderList();
    try {
        Proj::InstallPreferenceStore();
    } catch (const Proj::PreferenceStoreError& error) {
        std::cerr << "igd: " << error.what() << "; using default settings\n";
    }
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app{"igd: bring camera media into a project"};
    app.require_subcommand(1);

    HostOptions host;
    app.add_option("--host-kind", host.hostKind, "kind of host application (5 and 8: hosted)")
        ->envname("IGD_HOST_KIND")
        ->check(igd::WholeNumberIn(0, std::numeric_limits<int>::max()));
    app.add_flag("--vault", host.vault, "the project lives on a collaboration server")
        ->envname("IGD_VAULT_MODE");
    app.add_option("--vault-server", host.vaultServer, "the collaboration server logged in to (default: none)")
        ->option_text("NAME")
        ->envname("IGD_VAULT_SERVER");
    app.add_option("--usage-log", host.usageLog, "append anonymous usage events to FILE, one JSON line each")
        ->option_text("FILE")
        ->envname("IGD_USAGE_LOG");

    igd::CommandTable commands;
    igd::RegisterPlanCommand(app, commands);
    igd::RegisterIngestCommands(app, commands);
    igd::RegisterNameCommand(app, commands);
    igd::RegisterPrefsCommand(app, commands);
    igd::RegisterPresetsCommand(app, commands);
    igd::RegisterProjectCommands(app, commands);
    igd::RegisterCardsCommand(app, commands);
    igd::RegisterEncodersCommand(app, commands);
    igd::RegisterVerifyCommand(app, commands);
    igd::RegisterProbeCommand(app, commands);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // CLI11 numbers its errors; a script only needs to know the command itself was wrong.
        // --help and --version arrive here too, and succeed.
        return app.exit(error) == 0 ? igd::kExitSuccess : igd::kExitBadInput;
    }
    if (!ApplyHostOptions(host))
        return EXIT_FAILURE;
    InstallServices();
    return commands.RunParsed();
}
