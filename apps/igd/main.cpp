// igd: the command-line host of the ingest library.
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "AppFrame/DocumentManager.h"
#include "Fnd/InteractionDriver.h"
#include "Fnd/PathUtils.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "Mid/Utilities.h"
#include "QL/CopySetting.h"
#include "QL/IngestMessages.h"
#include "SubmissionPrinter.h"
#include "TerminalInteractionDriver.h"

namespace {

struct PlanOptions {
    std::vector<std::string> sources;
    std::string destination;
    bool verify = false;
    std::string verifyMethod = "md5";
    std::string onConflict = "ask";
};

struct HostOptions {
    int hostKind = 0;
    bool vault = false;
};

Fnd::WString AbsolutePath(const std::string& path) {
    Fnd::WString wide = Fnd::FromUTF8(path);
    if (!wide.empty() && wide.front() != u'/') {
        std::string cwd(4096, '\0');
        if (getcwd(cwd.data(), cwd.size()) != nullptr)
            wide = Fnd::PathUtils::CombinePaths(Fnd::FromUTF8(cwd.c_str()), wide);
    }
    return Mid::Utilities::NormalizePathWithoutUNC(wide);
}

std::optional<int> ConflictAction(const std::string& policy) {
    static const std::map<std::string, int> actions{{"skip", QL::kCopyActionSkip},
                                                    {"keep-both", QL::kCopyActionKeepBoth},
                                                    {"replace", QL::kCopyActionReplace},
                                                    {"cancel", 0}};
    const auto found = actions.find(policy);
    return found == actions.end() ? std::nullopt : std::optional<int>(found->second);
}

void ApplyHostOptions(const HostOptions& host) {
    HostApp::SetApplicationType(host.hostKind);
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(host.vault));
}

int RunPlan(const PlanOptions& options) {
    const Fnd::WString first = AbsolutePath(options.sources.front());
    if (!Fnd::PathUtils::ExistsOnDisk(first, false) || Fnd::PathUtils::IsDirectory(first)) {
        std::cerr << "igd: not a file: " << Fnd::ToUTF8(first) << "\n";
        return 2;
    }

    auto printer = std::make_shared<igd::SubmissionPrinter>(std::cout);
    QL::IngestTask::SetTaskService(printer);
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, printer.get());
    Fnd::SetInteractionDriver(std::make_shared<igd::TerminalInteractionDriver>(
        std::cin, std::cerr, isatty(STDIN_FILENO) != 0, ConflictAction(options.onConflict)));

    QL::IngestMediaGroup group;
    group.paths.push_back(first);
    for (std::size_t i = 1; i < options.sources.size(); ++i)
        group.paths.push_back(Fnd::FromUTF8(options.sources[i]));
    if (!options.destination.empty()) {
        group.transferMode = u"Copy";
        group.destinationPath = AbsolutePath(options.destination);
    }
    if (options.verify) {
        group.verify = u"Verify";
        group.verifyMethod = options.verifyMethod == "size"    ? u"FileSize"
                             : options.verifyMethod == "bytes" ? u"BitByBit"
                                                               : u"MD5";
    }

    IGD::DoIngestMedia(group, /*useGivenBatch=*/true, /*primary=*/true, /*viaProvider=*/true,
                       fluxcore::utility::Guid::CreateUnique());
    Fnd::GetDefaultQueue().Drain();

    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, printer.get());
    QL::IngestTask::SetTaskService(nullptr);
    if (printer->TaskCount() == 0) {
        std::cerr << "igd: nothing was submitted\n";
        return 1;
    }
    return 0;
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

    PlanOptions plan;
    CLI::App* planCommand =
        app.add_subcommand("plan", "show the tasks an ingest of the file would submit, without running them");
    planCommand
        ->add_option("sources", plan.sources, "the file to ingest, then further paths relative to its folder")
        ->required();
    planCommand->add_option("--to", plan.destination, "copy to this folder (without it: import in place)");
    planCommand->add_flag("--verify", plan.verify, "verify each copy");
    planCommand->add_option("--verify-method", plan.verifyMethod, "md5, size or bytes")
        ->check(CLI::IsMember({"md5", "size", "bytes"}));
    planCommand->add_option("--on-conflict", plan.onConflict, "what to do with existing targets")
        ->check(CLI::IsMember({"ask", "skip", "keep-both", "replace", "cancel"}));

    CLI11_PARSE(app, argc, argv);
    ApplyHostOptions(host);
    if (planCommand->parsed())
        return RunPlan(plan);
    return EXIT_FAILURE;
}
