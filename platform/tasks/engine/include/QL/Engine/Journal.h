#pragma once
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"
#include "QL/Engine/TaskRecord.h"
#include "Sqlite/Connection.h"
#include "fluxcore/Guid.h"

namespace QL::Engine {

// A journal that cannot be opened, read or written; the message names the file.
class JournalError : public Sqlite::Error {
public:
    using Sqlite::Error::Error;
    JournalError(const std::string& what, bool unreadable) : Sqlite::Error(what), unreadable_(unreadable) {}

    // The file is no journal at all (garbage, another kind of database): nothing in it can be
    // resumed, and only setting it aside lets a new one begin.
    bool Unreadable() const { return unreadable_; }

private:
    bool unreadable_ = false;
};

enum class FileState : std::uint8_t {
    Pending,   // nothing written yet
    Copying,   // being written to its temporary
    Verified,  // complete (and verified when asked) under its final path
    Skipped,   // an existing target kept as it stands
    Failed,    // nothing under a final name; reason says why
    Cancelled, // given up by the user; temporary removed
};

enum class BatchState : std::uint8_t {
    Waiting,   // submitted, not started
    Running,   // started; unfinished after a crash, so resumable
    Finished,  // over, with or without failures
    Cancelled, // stopped by the user
    Abandoned, // never started before its service ended
};

std::string_view FileStateName(FileState state);
std::string_view BatchStateName(BatchState state);

// One copy entry of a task and how far it got.
struct FileRecord {
    std::int64_t id = 0;
    std::int64_t task = 0; // journal id of its task
    std::uint32_t unit = 0;
    std::uint32_t entry = 0;
    Fnd::WString source;
    Fnd::WString target; // as planned
    std::int32_t action = 0;
    FileState state = FileState::Pending;
    std::string temporary; // while copying
    std::string finalPath; // once verified or skipped
    std::string checksum;          // hex digest of the source, once copied
    std::string checksumAlgorithm; // its algorithm's name: "md5", "xxh128", ...
    std::string reason;
    std::uint64_t size = 0; // of the final file
};

struct JournalTask {
    std::int64_t id = 0;
    TaskRecord record;
    bool finished = false; // its imports are done, or it failed for good
};

struct JournalBatch {
    fluxcore::utility::Guid batch;
    BatchState state = BatchState::Waiting;
    Fnd::WString targetBin;
    std::string projectPath;
    std::vector<JournalTask> tasks; // in submission order
    std::vector<FileRecord> files;  // by task, unit and entry
};

struct BatchSummary {
    fluxcore::utility::Guid batch;
    BatchState state = BatchState::Waiting;
    std::int64_t submittedAt = 0; // seconds since 1970
    std::uint64_t files = 0;
    std::uint64_t filesVerified = 0;
};

// The service's record of every batch, written before the work it describes, so that a crash
// at any moment leaves enough to finish the batch: batches, each task's full record, and the
// state of every file. One SQLite file in WAL mode; safe from several threads and processes.
class Journal {
public:
    // $IGD_HOME/journal.sqlite
    static std::string DefaultPath();

    // Opens the journal, creating it and its folder when absent. Throws JournalError, also for a
    // journal written by a newer version.
    explicit Journal(const std::string& path);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    const std::string& Path() const { return path_; }

    // Renames a journal that cannot be read, with its side files, to a name beside it that says
    // so, and answers that name; it is kept, never deleted, for whoever wants to look into it.
    // Throws JournalError when the rename fails.
    static std::string SetAside(const std::string& path);

    // Records a task under its batch (created waiting when new) and a pending row for each of its
    // copy entries, in one transaction. Answers the task's id; files receives the rows with ids.
    std::int64_t AddTask(const fluxcore::utility::Guid& batch, const TaskRecord& record,
                         std::vector<FileRecord>& files);
    void MarkBatchRunning(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin,
                          const std::string& projectPath);
    void SetBatchState(const fluxcore::utility::Guid& batch, BatchState state);
    // Writes the state, temporary, final path, checksum, reason and size of each row, in one
    // transaction.
    void UpdateFiles(const std::vector<const FileRecord*>& files);
    void MarkTaskFinished(std::int64_t task, std::string_view outcome, std::string_view reason);

    std::optional<JournalBatch> LoadBatch(const fluxcore::utility::Guid& batch) const;
    // Batches in that state, oldest first.
    std::vector<BatchSummary> Batches(BatchState state) const;

private:
    std::int64_t BatchId(const fluxcore::utility::Guid& batch, bool create);

    std::string path_;
    mutable Sqlite::Connection db_;
    mutable std::mutex mutex_;
};

} // namespace QL::Engine
