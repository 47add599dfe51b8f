#include "PlanCommand.h"

#include <unistd.h>

#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CommandLinePaths.h"
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
    bool verify = false;
    std::string verifyMethod = "md5";
    std::string onConflict = "ask";
};

std::optional<int> ConflictAction(const std::string& policy) {
    static const std::map<std::string, int> actions{{"skip", QL::kCopyActionSkip},
                                                    {"keep-both", QL::kCopyActionKeepBoth},
                                                    {"replace", QL::kCopyActionReplace},
                                                    {"cancel", 0}};
    const auto found = actions.find(policy);
    return found == actions.end() ? std::nullopt : std::optional<int>(found->second);
}

int RunPlan(const PlanOptions& options) {
    const Fnd::WString first = AbsolutePath(options.sources.front());
    if (!Fnd::PathUtils::ExistsOnDisk(first, false) || Fnd::PathUtils::IsDirectory(first)) {
        std::cerr << "igd: not a file: " << Fnd::ToUTF8(first) << "\n";
        return 2;
    }

    auto printer = std::make_shared<SubmissionPrinter>(std::cout);
    QL::IngestTask::SetTaskService(printer);
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, printer.get());
    Fnd::SetInteractionDriver(std::make_shared<TerminalInteractionDriver>(
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

void RegisterPlanCommand(CLI::App& app, CommandTable& table) {
    auto plan = std::make_shared<PlanOptions>();
    CLI::App* command =
        app.add_subcommand("plan", "show the tasks an ingest of the file would submit, without running them");
    command
        ->add_option("sources", plan->sources,
                     "the file to ingest, then further paths relative to its folder")
        ->required();
    command->add_option("--to", plan->destination, "copy to this folder (without it: import in place)");
    command->add_flag("--verify", plan->verify, "verify each copy");
    command->add_option("--verify-method", plan->verifyMethod, "md5, size or bytes")
        ->check(CLI::IsMember({"md5", "size", "bytes"}));
    command->add_option("--on-conflict", plan->onConflict, "what to do with existing targets")
        ->check(CLI::IsMember({"ask", "skip", "keep-both", "replace", "cancel"}));
    table.Add(command, [plan] { return RunPlan(*plan); });
}

} // namespace igd
