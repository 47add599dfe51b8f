#pragma once
#include <functional>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "Fnd/Listener.h"
#include "QL/Engine/TaskRecord.h"
#include "QL/Engine/TaskServiceOptions.h"
#include "QL/TaskFactory.h"

namespace QL::Engine {

class Journal;
class PathIndex;
struct BatchRun;

// The task service a host installs with QL::IngestTask::SetTaskService. Submitted tasks are
// journalled and wait under their batch until QL::StartIngestMessage names it; the batch then
// runs on a worker thread: each source is read once and written to every destination that copies
// it, then items are imported into the project and metadata written. Pause, resume and cancel
// messages act on every running batch between chunks. Progress and outcomes are posted to
// kStation_TaskService. Create, use and destroy it on the UI thread.
class TaskService : public IngestTask::ITaskService, public Fnd::Listener {
public:
    // Opens the journal (throws JournalError) and listens on QL::kStation_IngestMedia.
    explicit TaskService(TaskServiceOptions options = {});
    // Cancels what runs, waits for the workers, and marks batches that never started abandoned.
    ~TaskService() override;
    TaskService(const TaskService&) = delete;
    TaskService& operator=(const TaskService&) = delete;

    void SubmitCopyTask(const IngestTask::CopySetting& setting, const fluxcore::utility::Guid& batch,
                        const IngestCustomData& data) override;
    void SubmitTranscodeTask(const IngestTask::TranscodeSetting& setting,
                             const fluxcore::utility::Guid& batch, const IngestCustomData& data) override;
    void SubmitConcatenateTask(const IngestTask::TranscodeSetting& setting,
                               const fluxcore::utility::Guid& batch, const IngestCustomData& data) override;
    void SubmitImportTask(const IngestTask::ImportSetting& setting, const fluxcore::utility::Guid& batch,
                          const IngestCustomData& data) override;
    void SubmitUpdateMetadataTask(const IngestTask::UpdateMetadataSetting& setting,
                                  const fluxcore::utility::Guid& batch,
                                  const IngestCustomData& data) override;
    bool IsPathInCopyList(const Fnd::WString& path) const override;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    enum class ResumeResult { Queued, Unknown, NotResumable, Busy };
    // Runs an unfinished batch of the journal again, as a crash left it: temporaries removed,
    // files verified under their final names kept, the rest copied, imports not yet done done.
    // Busy: another process is running it. Throws JournalError when the batch's records cannot be
    // read; nothing on disk is touched then. The folders the batch writes to are taken first
    // (DestinationLocks): while another igd writes to one, the call waits, after telling waiting
    // which.
    ResumeResult Resume(const fluxcore::utility::Guid& batch,
                        const std::function<void(const std::string& busyFolder)>& waiting = {});

    // Nothing started is waiting or running. Outcomes of finished batches may still be on their
    // way to the UI thread.
    bool IsIdle() const;

    Journal& GetJournal() const { return *journal_; }
    // Empty, or what became of an unreadable journal that was set aside.
    const std::string& JournalNotice() const { return journalNotice_; }

private:
    struct WaitingBatch;

    void Submit(const fluxcore::utility::Guid& batch, TaskRecord record);
    void Start(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin);
    void Enqueue(std::shared_ptr<BatchRun> run);
    void SetPaused(bool paused);
    void CancelStarted();
    void WorkerLoop();

    TaskServiceOptions options_;
    std::shared_ptr<Journal> journal_;
    std::string journalNotice_;
    std::shared_ptr<CopyBackend> backend_;
    std::unique_ptr<PathIndex> pathIndex_;

    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::map<fluxcore::utility::Guid, std::unique_ptr<WaitingBatch>> waiting_;
    std::deque<std::shared_ptr<BatchRun>> ready_;
    std::vector<std::shared_ptr<BatchRun>> running_;
    std::set<fluxcore::utility::Guid> startedBatches_; // every batch this service has started
    bool paused_ = false;
    bool stopping_ = false;
    std::vector<std::thread> workers_;
};

} // namespace QL::Engine
