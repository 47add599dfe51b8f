#include "ResumeCommand.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "ExitCodes.h"
#include "QL/Engine/Journal.h"
#include "ServiceRunner.h"

namespace igd {
namespace {

using QL::Engine::TaskService;

struct ResumeOptions {
    std::string batch;
    bool json = false;
};

int RunResume(const ResumeOptions& options) {
    std::optional<fluxcore::utility::Guid> named;
    if (!options.batch.empty()) {
        named = fluxcore::utility::Guid::FromString(options.batch);
        if (!named) {
            std::cerr << "igd: not a batch identity: " << options.batch << "\n";
            return kExitBadInput;
        }
    }
    ServiceRunOptions run;
    run.json = options.json;
    bool nothingToDo = false;
    const int exitCode = RunTaskService(run, [&](TaskService& service) {
        std::vector<fluxcore::utility::Guid> batches;
        if (named) {
            batches.push_back(*named);
        } else {
            for (const QL::Engine::BatchSummary& summary :
                 service.GetJournal().Batches(QL::Engine::BatchState::Running))
                batches.push_back(summary.batch);
        }
        int queued = 0;
        bool unreadable = false;
        for (const fluxcore::utility::Guid& batch : batches) {
            TaskService::ResumeResult result = TaskService::ResumeResult::NotResumable;
            try {
                result = service.Resume(batch, [](const std::string& busy) {
                    std::cerr << "igd: another igd is writing to " << busy << "; waiting for it to finish\n";
                });
            } catch (const QL::Engine::JournalError& error) {
                // One unreadable batch leaves the others resumable and touches no copy.
                std::cerr << "igd: batch " << batch.ToString() << " cannot be resumed, its copies are left as they are: "
                          << error.what() << "\n";
                unreadable = true;
                continue;
            }
            switch (result) {
            case TaskService::ResumeResult::Queued:
                ++queued;
                break;
            case TaskService::ResumeResult::Busy:
                std::cerr << "igd: batch " << batch.ToString() << " is being run by another process\n";
                break;
            case TaskService::ResumeResult::Unknown:
                std::cerr << "igd: no batch " << batch.ToString() << " in the journal\n";
                return kExitBadInput;
            case TaskService::ResumeResult::NotResumable:
                // A batch listed as running may be another live igd's, finished while this one
                // waited for its destinations: nothing is left of it to do.
                if (!named)
                    break;
                std::cerr << "igd: batch " << batch.ToString() << " is not unfinished\n";
                return kExitBadInput;
            }
        }
        if (queued == 0 && !named && !unreadable) {
            nothingToDo = true;
            return -1;
        }
        return queued == 0 ? kExitFailure : kExitSuccess;
    });
    if (nothingToDo) {
        std::cout << "Nothing to resume.\n";
        return kExitSuccess;
    }
    return exitCode;
}

} // namespace

void RegisterResumeCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<ResumeOptions>();
    CLI::App* command = app.add_subcommand(
        "resume", "finish the ingests a crash or a kill interrupted: all of them, or the one batch named");
    command->add_option("batch", options->batch, "the batch identity, as the journal and --json name it");
    command->add_flag("--json", options->json, "report as JSON lines");
    table.Add(command, [options] { return RunResume(*options); });
}

} // namespace igd
