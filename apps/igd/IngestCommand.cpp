#include "IngestCommand.h"

#include <unistd.h>

#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CommandLinePaths.h"
#include "Fnd/InteractionDriver.h"
#include "IngestCheck.h"
#include "IngestSources.h"
#include "IngestSubmission.h"
#include "Proj/Project.h"
#include "QL/CopySetting.h"
#include "ResumeCommand.h"
#include "ServiceRunner.h"
#include "TerminalInteractionDriver.h"

namespace igd {
namespace {

struct IngestOptions {
    std::vector<std::string> sources;
    std::vector<std::string> destinations;
    std::string verify = "md5";
    std::string project;
    std::string bin;
    std::string onConflict = "ask";
    bool json = false;
};

std::uint32_t VerifyMode(const std::string& name) {
    static const std::map<std::string, std::uint32_t> modes{{"md5", QL::IngestTask::kVerifyMD5},
                                                            {"size", QL::IngestTask::kVerifyFileSize},
                                                            {"bit", QL::IngestTask::kVerifyBitByBit},
                                                            {"none", QL::IngestTask::kVerifyNone}};
    return modes.at(name);
}

std::optional<int> ConflictAction(const std::string& policy) {
    static const std::map<std::string, int> actions{{"skip", QL::kCopyActionSkip},
                                                    {"keep-both", QL::kCopyActionKeepBoth},
                                                    {"replace", QL::kCopyActionReplace}};
    const auto found = actions.find(policy);
    return found == actions.end() ? std::nullopt : std::optional<int>(found->second);
}

// Restores the default driver, which cancels every question, when the command ends.
struct TerminalQuestions {
    explicit TerminalQuestions(const std::string& onConflict) {
        Fnd::SetInteractionDriver(std::make_shared<TerminalInteractionDriver>(
            std::cin, std::cerr, isatty(STDIN_FILENO) != 0, ConflictAction(onConflict)));
    }
    ~TerminalQuestions() { Fnd::SetInteractionDriver(nullptr); }
};

int RunIngest(const IngestOptions& options) {
    std::vector<Fnd::WString> sources;
    for (const std::string& source : options.sources)
        sources.push_back(AbsolutePath(source));
    std::vector<Fnd::WString> destinations;
    for (const std::string& destination : options.destinations)
        destinations.push_back(AbsolutePath(destination));
    ServiceRunOptions run;
    run.projectPath =
        options.project.empty() ? Proj::DefaultProjectPath() : Fnd::ToUTF8(AbsolutePath(options.project));
    try {
        // A project that cannot take the items is better known before hours of copying.
        Proj::Project::Open(run.projectPath);
    } catch (const Proj::ProjectError& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return 2;
    }
    if (const std::string error = CheckIngestInput(sources, destinations); !error.empty()) {
        std::cerr << "igd: " << error << "\n";
        return 2;
    }
    sources = DistinctSources(sources);

    for (const Fnd::WString& destination : destinations)
        run.destinations.push_back(Fnd::ToUTF8(destination));
    run.bin = Fnd::FromUTF8(options.bin);
    run.json = options.json;
    const TerminalQuestions questions(options.onConflict);
    return RunTaskService(run, [&](QL::Engine::TaskService&) {
        const std::uint32_t verifyMode = VerifyMode(options.verify);
        const auto batch = fluxcore::utility::Guid::CreateUnique();
        if (AllFiles(sources) && destinations.size() <= 1)
            SubmitThroughDoIngestMedia(sources, destinations.empty() ? Fnd::WString() : destinations.front(),
                                       verifyMode, batch);
        else
            SubmitThroughSessions(sources, destinations, verifyMode, batch);
        return 0;
    });
}

} // namespace

void RegisterIngestCommands(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<IngestOptions>();
    CLI::App* command = app.add_subcommand(
        "ingest", "copy camera media to one or more destinations, verify it, and import it into the project");
    command
        ->add_option("sources", options->sources,
                     "files and folders to ingest (a folder brings its whole tree)")
        ->required();
    command
        ->add_option("--to", options->destinations,
                     "copy to this folder; repeat for backups (the first is the primary); "
                     "without it the media is imported where it lies")
        ->allow_extra_args(false);
    command
        ->add_option("--verify", options->verify,
                     "how each copy is checked: md5 (default), size, bit or none")
        ->check(CLI::IsMember({"md5", "size", "bit", "none"}));
    command->add_option("--project", options->project,
                        "the project to import into (default: " + Proj::DefaultProjectPath() + ")");
    command->add_option("--bin", options->bin, "the bin to import into (default: the root bin)");
    command
        ->add_option("--on-conflict", options->onConflict,
                     "what to do with a target that exists: ask (default), skip, keep-both or replace")
        ->check(CLI::IsMember({"ask", "skip", "keep-both", "replace"}));
    command->add_flag("--json", options->json, "report as JSON lines");
    table.Add(command, [options] { return RunIngest(*options); });

    RegisterResumeCommand(app, table);
}

} // namespace igd
