// igd: the command-line host of the ingest library.
#include <cstdlib>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "AppFrame/DocumentManager.h"
#include "CommandTable.h"
#include "HostApp/ApplicationType.h"
#include "IngestCommand.h"
#include "PlanCommand.h"
#include "PrefsCommand.h"
#include "PresetsCommand.h"
#include "Proj/PreferenceStore.h"
#include "QL/FilePresetService.h"
#include "ProjectCommand.h"

namespace {

struct HostOptions {
    int hostKind = 0;
    bool vault = false;
};

void ApplyHostOptions(const HostOptions& host) {
    HostApp::SetApplicationType(host.hostKind);
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(host.vault));
}

// The services every command may reach through the library. A preference file that cannot be
// opened must not stop an ingest: the library then runs on its defaults, and the user is told.
void InstallServices() {
    QL::InstallFilePresetService();
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
        ->envname("IGD_HOST_KIND");
    app.add_flag("--vault", host.vault, "the project lives on a collaboration server")
        ->envname("IGD_VAULT_MODE");

    igd::CommandTable commands;
    igd::RegisterPlanCommand(app, commands);
    igd::RegisterIngestCommands(app, commands);
    igd::RegisterPrefsCommand(app, commands);
    igd::RegisterPresetsCommand(app, commands);
    igd::RegisterProjectCommands(app, commands);

    CLI11_PARSE(app, argc, argv);
    ApplyHostOptions(host);
    InstallServices();
    return commands.RunParsed();
}
