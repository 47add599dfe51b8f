#include "PlanCommand.h"

#include <unistd.h>

#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CommandChoices.h"
#include "CommandLinePaths.h"
#include "ExitCodes.h"
#include "Fnd/InteractionDriver.h"
#include "Fnd/PathUtils.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "QL/CopySetting.h"
#include "QL/IngestMessages.h"
#include "SubmissionPrinter.h"
#include "TerminalInteractionDriver.h"

namespace igd {
namespace {

struct PlanOptions {
    std::vector<std::string> sources;
    std::string destination;
    std::string verify = "none";
    std::string onConflict = "ask";
};

int RunPlan(const PlanOptions& options) {
    const Fnd::WString first = AbsolutePath(options.sources.front());
    if (!Fnd::PathUtils::ExistsOnDisk(first, false) || Fnd::PathUtils::IsDirectory(first)) {
        std::cerr << "igd: not a file: " << Fnd::ToDisplayUTF8(first) << "\n";
        return kExitBadInput;
    }

    // A host's request to copy into a folder that is not there imports in place instead; a plan
    // asked to show a copy must not quietly show something else, nor make the folder to avoid it.
    const Fnd::WString destination = options.destination.empty() ? Fnd::WString() : AbsolutePath(options.destination);
    if (!destination.empty() && !Fnd::PathUtils::IsDirectory(destination)) {
        std::cerr << "igd: the destination is not a folder: " << Fnd::ToDisplayUTF8(destination)
                  << " (igd plan makes nothing: make the folder first)\n";
        return kExitBadInput;
    }

    auto printer = std::make_shared<SubmissionPrinter>(std::cout);
    QL::IngestTask::SetTaskService(printer);
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, printer.get());
    Fnd::SetInteractionDriver(std::make_shared<TerminalInteractionDriver>(
        std::cin, std::cerr, isatty(STDIN_FILENO) != 0, ConflictActionOf(options.onConflict)));

    QL::IngestMediaGroup group;
    group.paths.push_back(first);
    // Every path is named as the shell gives it; the group takes the later ones as they are when
    // absolute.
    for (std::size_t i = 1; i < options.sources.size(); ++i)
        group.paths.push_back(AbsolutePath(options.sources[i]));
    if (!destination.empty()) {
        group.transferMode = u"Copy";
        group.destinationPath = destination;
    }
    if (options.verify != "none") {
        group.verify = u"Verify";
        group.verifyMethod = VerifyMethodOf(options.verify);
    }

    IGD::DoIngestMedia(group, /*useGivenBatch=*/true, /*primary=*/true, /*viaProvider=*/true,
                       fluxcore::utility::Guid::CreateUnique());
    Fnd::GetDefaultQueue().Drain();

    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, printer.get());
    QL::IngestTask::SetTaskService(nullptr);
    if (printer->TaskCount() == 0) {
        std::cerr << "igd: nothing was submitted\n";
        return kExitFailure;
    }
    return kExitSuccess;
}

} // namespace

void RegisterPlanCommand(CLI::App& app, CommandTable& table) {
    auto plan = std::make_shared<PlanOptions>();
    CLI::App* command =
        app.add_subcommand("plan", "show the tasks an ingest of the file would submit, without running them");
    command
        ->add_option("sources", plan->sources,
                     "the file to ingest, then further files or folders of the same request")
        ->required();
    command->add_option("--to", plan->destination, "copy to this folder (without it: import in place)");
    command
        ->add_option("--verify", plan->verify, "how each copy is checked: md5, xxh128, xxh3, xxh64, size, bit or none (default)")
        ->check(CLI::IsMember(VerifyWords()));
    command->add_option("--on-conflict", plan->onConflict, "what to do with existing targets")
        ->check(CLI::IsMember(ConflictWords()));
    table.Add(command, [plan] { return RunPlan(*plan); });
}

} // namespace igd
