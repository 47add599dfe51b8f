#include "QL/Engine/TaskService.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <map>
#include <system_error>

#include "BatchExecution.h"
#include "BatchRun.h"
#include "Fnd/StationUtils.h"
#include "Mid/Utilities.h"
#include "PathIndex.h"
#include "PlannedFiles.h"
#include "Proj/Project.h"
#include "QL/Engine/Journal.h"
#include "QL/Engine/TaskServiceMessages.h"
#include "QL/IngestMessages.h"

namespace QL::Engine {

struct TaskService::WaitingBatch {
    std::vector<RunTask> tasks;
    std::vector<FileRecord> files;
    std::vector<Fnd::WString> targets;
    std::string journalProblem;
};

namespace {

// The folder each task writes to: the one that holds all of its targets.
std::vector<std::string> FoldersOfTasks(const std::vector<FileRecord>& files) {
    std::map<std::int64_t, std::vector<std::string>> targetsOfTask;
    for (const FileRecord& file : files)
        targetsOfTask[file.task].push_back(Fnd::ToUTF8(file.target));
    std::vector<std::string> folders;
    for (const auto& [task, targets] : targetsOfTask)
        folders.push_back(DestinationLocks::CommonFolder(targets));
    return folders;
}

std::vector<Fnd::WString> NormalizedTargets(const std::vector<FileRecord>& files, bool unfinishedOnly) {
    std::vector<Fnd::WString> targets;
    targets.reserve(files.size());
    for (const FileRecord& file : files)
        if (!unfinishedOnly || (file.state != FileState::Verified && file.state != FileState::Skipped))
            targets.push_back(Mid::Utilities::NormalizePathWithoutUNC(file.target));
    return targets;
}

void PostEmptyOutcome(const fluxcore::utility::Guid& batch) {
    BatchOutcomeMessage outcome;
    outcome.batch = batch;
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, outcome, false);
}

} // namespace

TaskService::TaskService(TaskServiceOptions options) : options_(std::move(options)) {
    if (options_.journalPath.empty())
        options_.journalPath = Journal::DefaultPath();
    if (options_.projectPath.empty())
        options_.projectPath = Proj::DefaultProjectPath();
    try {
        journal_ = std::make_shared<Journal>(options_.journalPath);
    } catch (const JournalError& error) {
        if (!options_.setAsideUnreadableJournal || !error.Unreadable())
            throw;
        const std::string aside = Journal::SetAside(options_.journalPath);
        journal_ = std::make_shared<Journal>(options_.journalPath);
        journalNotice_ = std::string(error.what()) + "; it was moved to " + aside +
                         ", and the batches it held cannot be resumed";
    }
    backend_ = options_.copyBackend ? options_.copyBackend : MakeFileCopierBackend();
    pathIndex_ = std::make_unique<PathIndex>();
    const unsigned workers = std::max(1u, options_.workerThreads);
    for (unsigned i = 0; i < workers; ++i)
        workers_.emplace_back([this] { WorkerLoop(); });
    Fnd::StationUtils::AddListener(kStation_IngestMedia, this);
}

TaskService::~TaskService() {
    Fnd::StationUtils::RemoveListener(kStation_IngestMedia, this);
    std::vector<fluxcore::utility::Guid> neverStarted;
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        // What runs stops between chunks and stays resumable; what waits for a worker is left
        // as the journal has it, resumable too.
        for (const auto& run : running_) {
            run->interrupted = true;
            run->control->Cancel();
        }
        // Tasks added to a batch after it started leave the batch's own state alone.
        for (const auto& [batch, waiting] : waiting_)
            if (startedBatches_.count(batch) == 0)
                neverStarted.push_back(batch);
    }
    wake_.notify_all();
    for (std::thread& worker : workers_)
        worker.join();
    for (const fluxcore::utility::Guid& batch : neverStarted) {
        try {
            journal_->SetBatchState(batch, BatchState::Abandoned);
        } catch (const JournalError&) {
            // The batch never ran; a journal that cannot say so loses nothing.
        }
    }
}

void TaskService::SubmitCopyTask(const IngestTask::CopySetting& setting, const fluxcore::utility::Guid& batch,
                                 const IngestCustomData& data) {
    Submit(batch, MakeCopyRecord(setting, data));
}

void TaskService::SubmitTranscodeTask(const IngestTask::TranscodeSetting& setting,
                                      const fluxcore::utility::Guid& batch, const IngestCustomData& data) {
    Submit(batch, MakeTranscodeRecord(TaskKind::Transcode, setting, data));
}

void TaskService::SubmitConcatenateTask(const IngestTask::TranscodeSetting& setting,
                                        const fluxcore::utility::Guid& batch, const IngestCustomData& data) {
    Submit(batch, MakeTranscodeRecord(TaskKind::Concatenate, setting, data));
}

void TaskService::SubmitImportTask(const IngestTask::ImportSetting& setting,
                                   const fluxcore::utility::Guid& batch, const IngestCustomData& data) {
    Submit(batch, MakeImportRecord(setting, data));
}

void TaskService::SubmitUpdateMetadataTask(const IngestTask::UpdateMetadataSetting& setting,
                                           const fluxcore::utility::Guid& batch,
                                           const IngestCustomData& data) {
    Submit(batch, MakeUpdateMetadataRecord(setting, data));
}

bool TaskService::IsPathInCopyList(const Fnd::WString& path) const {
    return pathIndex_->Contains(Mid::Utilities::NormalizePathWithoutUNC(path));
}

void TaskService::Submit(const fluxcore::utility::Guid& batch, TaskRecord record) {
    RunTask task;
    std::vector<FileRecord> files;
    std::string journalProblem;
    try {
        task.id = journal_->AddTask(batch, record, files);
    } catch (const JournalError& error) {
        // The batch still starts and reports, but copies nothing: a crash could not be resumed.
        // Ids below zero keep such tasks apart without touching the journal.
        static std::atomic<std::int64_t> unrecorded{0};
        task.id = --unrecorded;
        files = PlannedFiles(record, task.id);
        journalProblem = error.what();
    }
    task.record = std::move(record);
    std::vector<Fnd::WString> targets = NormalizedTargets(files, false);
    pathIndex_->Add(targets);

    std::lock_guard lock(mutex_);
    std::unique_ptr<WaitingBatch>& waiting = waiting_[batch];
    if (!waiting)
        waiting = std::make_unique<WaitingBatch>();
    waiting->tasks.push_back(std::move(task));
    waiting->files.insert(waiting->files.end(), std::make_move_iterator(files.begin()),
                          std::make_move_iterator(files.end()));
    waiting->targets.insert(waiting->targets.end(), std::make_move_iterator(targets.begin()),
                            std::make_move_iterator(targets.end()));
    if (waiting->journalProblem.empty())
        waiting->journalProblem = std::move(journalProblem);
}

void TaskService::ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) {
    if (const auto* start = Fnd::MessageCast<StartIngestMessage>(message))
        Start(start->batch, start->target);
    else if (Fnd::MessageCast<PauseIngestMessage>(message))
        SetPaused(true);
    else if (Fnd::MessageCast<ResumeIngestMessage>(message))
        SetPaused(false);
    else if (Fnd::MessageCast<CancelIngestMessage>(message))
        CancelStarted();
}

void TaskService::Start(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin) {
    std::unique_ptr<WaitingBatch> waiting;
    bool startedBefore = false;
    {
        std::lock_guard lock(mutex_);
        const auto found = waiting_.find(batch);
        if (found != waiting_.end()) {
            waiting = std::move(found->second);
            waiting_.erase(found);
        }
        startedBefore = !startedBatches_.insert(batch).second;
    }
    if (!waiting) {
        // A host waits for the outcome of what it started, even when nothing was submitted. A
        // batch started again with nothing new has had its outcome.
        if (!startedBefore)
            PostEmptyOutcome(batch);
        return;
    }

    auto run = std::make_shared<BatchRun>();
    run->batch = batch;
    run->targetBin = targetBin.empty() ? options_.defaultBin : targetBin;
    run->projectPath = options_.projectPath;
    run->tasks = std::move(waiting->tasks);
    run->files = std::move(waiting->files);
    run->indexedTargets = std::move(waiting->targets);
    run->journalProblem = std::move(waiting->journalProblem);
    try {
        journal_->MarkBatchRunning(batch, run->targetBin, run->projectPath);
        run->lock = BatchLock::TryAcquire(options_.journalPath, batch);
    } catch (const JournalError& error) {
        if (run->journalProblem.empty())
            run->journalProblem = error.what();
    } catch (const std::system_error& error) {
        if (run->journalProblem.empty())
            run->journalProblem = error.what();
    }
    Enqueue(std::move(run));
}

TaskService::ResumeResult TaskService::Resume(const fluxcore::utility::Guid& batch,
                                              const std::function<void(const std::string&)>& waiting) {
    std::optional<JournalBatch> loaded = journal_->LoadBatch(batch);
    if (!loaded)
        return ResumeResult::Unknown;
    if (loaded->state != BatchState::Running)
        return ResumeResult::NotResumable;
    {
        std::lock_guard lock(mutex_);
        const auto isIt = [&](const std::shared_ptr<BatchRun>& run) { return run->batch == batch; };
        if (std::any_of(ready_.begin(), ready_.end(), isIt) ||
            std::any_of(running_.begin(), running_.end(), isIt))
            return ResumeResult::Busy;
    }
    BatchLock lock = BatchLock::TryAcquire(options_.journalPath, batch);
    if (!lock.Held())
        return ResumeResult::Busy;
    // Read again under the lock: the process that held it may have finished the batch meanwhile.
    loaded = journal_->LoadBatch(batch);
    if (!loaded || loaded->state != BatchState::Running)
        return ResumeResult::NotResumable;

    auto run = std::make_shared<BatchRun>();
    run->batch = batch;
    run->targetBin = loaded->targetBin;
    run->projectPath = loaded->projectPath.empty() ? options_.projectPath : loaded->projectPath;
    for (JournalTask& task : loaded->tasks)
        run->tasks.push_back(RunTask{task.id, std::move(task.record), task.finished});
    run->files = std::move(loaded->files);
    run->resumed = true;
    run->lock = std::move(lock);
    run->destinationLocks = DestinationLocks::Take(FoldersOfTasks(run->files), waiting);
    run->indexedTargets = NormalizedTargets(run->files, true);
    pathIndex_->Add(run->indexedTargets);
    {
        std::lock_guard guard(mutex_);
        startedBatches_.insert(batch);
    }
    Enqueue(std::move(run));
    return ResumeResult::Queued;
}

void TaskService::Enqueue(std::shared_ptr<BatchRun> run) {
    run->progress = std::make_shared<BatchProgress>(run->batch, *run->control, options_.progressInterval);
    {
        std::lock_guard lock(mutex_);
        if (paused_)
            run->control->Pause();
        ready_.push_back(std::move(run));
    }
    wake_.notify_one();
}

void TaskService::SetPaused(bool paused) {
    std::vector<std::shared_ptr<BatchRun>> runs;
    std::vector<std::shared_ptr<BatchRun>> running;
    {
        std::lock_guard lock(mutex_);
        paused_ = paused;
        runs.assign(ready_.begin(), ready_.end());
        runs.insert(runs.end(), running_.begin(), running_.end());
        running = running_;
    }
    for (const auto& run : runs) {
        if (paused)
            run->control->Pause();
        else
            run->control->Resume();
    }
    for (const auto& run : running)
        run->progress->Paused(paused);
}

void TaskService::CancelStarted() {
    std::lock_guard lock(mutex_);
    for (const auto& run : ready_)
        run->control->Cancel();
    for (const auto& run : running_)
        run->control->Cancel();
}

bool TaskService::IsIdle() const {
    std::lock_guard lock(mutex_);
    return ready_.empty() && running_.empty();
}

void TaskService::WorkerLoop() {
    for (;;) {
        std::shared_ptr<BatchRun> run;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return stopping_ || !ready_.empty(); });
            if (stopping_)
                return;
            run = ready_.front();
            ready_.pop_front();
            running_.push_back(run);
        }
        bool indexCleared = false;
        const auto clearIndex = [&] {
            pathIndex_->Remove(run->indexedTargets);
            indexCleared = true;
        };
        try {
            ExecuteBatch(*run, *journal_, *backend_, clearIndex);
        } catch (const std::exception& error) {
            // Nothing below should throw; if it does, the host still hears that the batch ended.
            if (!indexCleared)
                clearIndex();
            BatchOutcomeMessage outcome;
            outcome.batch = run->batch;
            outcome.status = OutcomeStatus::Failed;
            outcome.journalProblem = Fnd::FromUTF8(error.what());
            Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, outcome, false);
        }
        std::lock_guard lock(mutex_);
        running_.erase(std::find(running_.begin(), running_.end(), run));
    }
}

} // namespace QL::Engine
