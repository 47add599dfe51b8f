#include "BatchExecution.h"

#include <sys/stat.h>

#include <chrono>
#include <unordered_map>

#include "BatchCopier.h"
#include "CopyHistories.h"
#include "Fnd/PathUtils.h"
#include "Fnd/StationUtils.h"
#include "ResumePreparation.h"
#include "RunJournal.h"
#include "TaskFinisher.h"
#include "TranscodeRunner.h"

namespace QL::Engine {
namespace {

std::unordered_map<std::int64_t, std::uint32_t> VerifyModes(const BatchRun& run) {
    std::unordered_map<std::int64_t, std::uint32_t> modes;
    for (const RunTask& task : run.tasks)
        if (task.record.kind == TaskKind::Copy)
            modes.emplace(task.id, task.record.Copy().verifyMode);
    return modes;
}

void ReportResumed(const BatchRun& run, const ResumeFindings& findings,
                   const std::unordered_map<std::int64_t, std::uint32_t>& modes, BatchCounters& counters) {
    const auto modeOf = [&](const FileRecord& file) {
        const auto found = modes.find(file.task);
        return found == modes.end() ? IngestTask::kVerifyNone : found->second;
    };
    for (std::size_t index : findings.alreadyCopied) {
        // As when copied: a folder standing is no file.
        const FileRecord& file = run.files[index];
        struct stat status {};
        const std::string path = file.finalPath.empty() ? Fnd::ToUTF8(file.target) : file.finalPath;
        if (::stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
            ++counters.filesAlreadyCopied;
        BatchCopier::PostOutcome(run, run.files[index], FileStatus::AlreadyCopied, modeOf(run.files[index]));
    }
    for (std::size_t index : findings.changed) {
        ++counters.filesFailed;
        BatchCopier::PostOutcome(run, run.files[index], FileStatus::Failed, modeOf(run.files[index]));
    }
}

void PostTaskOutcome(const BatchRun& run, std::uint32_t position, const RunTask& task,
                     const TaskResult& result) {
    TaskOutcomeMessage message;
    message.batch = run.batch;
    message.task = position;
    message.kind = task.record.kind;
    message.status = result.status;
    message.reason = Fnd::FromUTF8(result.reason);
    message.filesFailed = result.filesFailed;
    message.itemsImported = result.itemsImported;
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, message, false);
}

BatchOutcomeMessage Outcome(const BatchRun& run, const BatchCounters& counters, bool cancelled) {
    BatchOutcomeMessage outcome;
    outcome.batch = run.batch;
    static_cast<BatchCounters&>(outcome) = counters;
    outcome.bytesRead = run.progress->BytesDone();
    outcome.status = cancelled                                                ? OutcomeStatus::Cancelled
                     : (counters.filesFailed > 0 || counters.tasksFailed > 0) ? OutcomeStatus::Failed
                                                                              : OutcomeStatus::Succeeded;
    return outcome;
}

} // namespace

void ExecuteBatch(BatchRun& run, Journal& journal, CopyBackend& backend,
                  const std::function<void()>& beforeOutcome) {
    const auto started = std::chrono::steady_clock::now();
    RunJournal runJournal(journal, run);
    BatchCounters counters;
    const auto modes = VerifyModes(run);

    auto folders = std::make_shared<DestinationFolders>();
    if (run.resumed) {
        // Where copies stood before the crash, a destination stands that must not be made again
        // should it be gone now (a drive not mounted again, a folder deleted).
        for (const FileRecord& file : run.files)
            if (file.state == FileState::Verified)
                folders->Require(Fnd::PathUtils::FolderOf(file.finalPath.empty() ? Fnd::ToUTF8(file.target)
                                                                                 : file.finalPath));
        ReportResumed(run, PrepareForResume(run.files, modes, runJournal), modes, counters);
    }

    CopyHistories histories(run);
    BatchCopier(run, runJournal, backend, counters, std::move(folders)).CopyAll(modes);
    // The card's copies are safe before the long work of transcoding starts.
    TranscodeRunner(run, runJournal, counters).RunAll();
    const bool cancelled = run.control->IsCancelled();

    std::unordered_map<std::int64_t, std::vector<const FileRecord*>> filesOfTask;
    for (const FileRecord& file : run.files)
        filesOfTask[file.task].push_back(&file);

    TaskFinisher finisher(run);
    for (std::uint32_t position = 0; position < run.tasks.size(); ++position) {
        RunTask& task = run.tasks[position];
        if (task.finished)
            continue;
        TaskResult result;
        if (cancelled) {
            result.status = OutcomeStatus::Cancelled;
        } else {
            result = finisher.Finish(task, filesOfTask[task.id]);
            if (!run.interrupted)
                histories.Record(run, task, result.written);
            histories.Amend(task, result);
            task.finished = true;
        }
        if (result.status == OutcomeStatus::Failed)
            ++counters.tasksFailed;
        counters.itemsImported += result.itemsImported;
        // An interrupted batch stays resumable: its tasks are not over.
        if (!run.interrupted)
            runJournal.MarkTaskFinished(task, OutcomeStatusName(result.status), result.reason);
        PostTaskOutcome(run, position, task, result);
    }

    BatchOutcomeMessage outcome = Outcome(run, counters, cancelled);
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    if (run.interrupted) {
        run.lock = BatchLock();
    } else {
        runJournal.SetBatchState(cancelled ? BatchState::Cancelled : BatchState::Finished);
        run.lock.ReleaseFinished();
    }
    run.destinationLocks = DestinationLocks();
    outcome.journalProblem = Fnd::FromUTF8(run.journalProblem);
    beforeOutcome();
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, outcome, false);
}

} // namespace QL::Engine
