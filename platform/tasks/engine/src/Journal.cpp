#include "QL/Engine/Journal.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <system_error>
#include <utility>

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "PlannedFiles.h"
#include "Sqlite/Schema.h"
#include "Sqlite/Statement.h"
#include "Sqlite/Transaction.h"
#include "TaskRecordCodec.h"

namespace QL::Engine {
namespace {

// A digest is kept as "algorithm:hex" in one column; journals written before the xxHash family
// hold a bare MD5.
std::string StoredChecksum(const FileRecord& file) {
    if (file.checksum.empty() || file.checksumAlgorithm.empty())
        return file.checksum;
    return file.checksumAlgorithm + ":" + file.checksum;
}

void LoadChecksum(const std::string& stored, FileRecord& file) {
    const auto colon = stored.find(':');
    if (colon == std::string::npos) {
        file.checksum = stored;
        file.checksumAlgorithm = stored.empty() ? "" : "md5";
        return;
    }
    file.checksumAlgorithm = stored.substr(0, colon);
    file.checksum = stored.substr(colon + 1);
}

constexpr std::array<std::string_view, 6> kFileStateNames{"pending", "copying", "verified",
                                                          "skipped", "failed",  "cancelled"};
constexpr std::array<std::string_view, 5> kBatchStateNames{"waiting", "running", "finished", "cancelled",
                                                           "abandoned"};

template <class State, std::size_t N>
State ParseState(const std::array<std::string_view, N>& names, std::string_view name,
                 const std::string& file) {
    for (std::size_t i = 0; i < N; ++i)
        if (names[i] == name)
            return static_cast<State>(i);
    throw JournalError("the task journal " + file + " holds an unknown state \"" + std::string(name) + "\"");
}

const char* const kCreateSchema = R"sql(
CREATE TABLE IF NOT EXISTS meta(key TEXT PRIMARY KEY, value TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS batches(
    id INTEGER PRIMARY KEY,
    guid TEXT NOT NULL UNIQUE,
    state TEXT NOT NULL,
    target_bin TEXT NOT NULL DEFAULT '',
    project TEXT NOT NULL DEFAULT '',
    submitted_at INTEGER NOT NULL,
    started_at INTEGER,
    finished_at INTEGER);
CREATE INDEX IF NOT EXISTS batches_by_state ON batches(state);
CREATE TABLE IF NOT EXISTS tasks(
    id INTEGER PRIMARY KEY,
    batch_id INTEGER NOT NULL REFERENCES batches(id),
    kind TEXT NOT NULL,
    record BLOB NOT NULL,
    outcome TEXT NOT NULL DEFAULT '',
    reason TEXT NOT NULL DEFAULT '');
CREATE INDEX IF NOT EXISTS tasks_by_batch ON tasks(batch_id);
CREATE TABLE IF NOT EXISTS files(
    id INTEGER PRIMARY KEY,
    task_id INTEGER NOT NULL REFERENCES tasks(id),
    unit INTEGER NOT NULL,
    entry INTEGER NOT NULL,
    source TEXT NOT NULL,
    target TEXT NOT NULL,
    action INTEGER NOT NULL,
    state TEXT NOT NULL,
    temporary TEXT NOT NULL DEFAULT '',
    final_path TEXT NOT NULL DEFAULT '',
    checksum TEXT NOT NULL DEFAULT '',
    reason TEXT NOT NULL DEFAULT '',
    size INTEGER NOT NULL DEFAULT 0);
CREATE INDEX IF NOT EXISTS files_by_task ON files(task_id);
)sql";

std::int64_t Now() {
    return static_cast<std::int64_t>(std::time(nullptr));
}

void CreateSchema(Sqlite::Connection& connection) {
    connection.Execute(kCreateSchema);
}

// Upgrades of older journals go here, one step per version; version 1 is the first.
void UpgradeFrom(Sqlite::Connection&, int version) {
    throw std::logic_error("no upgrade of the task journal from version " + std::to_string(version));
}

const Sqlite::Schema kJournalSchema{
    .name = "igd.journal", .version = 1, .create = CreateSchema, .upgrade = UpgradeFrom};

[[noreturn]] void RaiseJournalError(const std::string& path, std::string_view what, std::string_view reason) {
    throw JournalError("the task journal " + path + " cannot be used (" + std::string(what) +
                       "): " + std::string(reason));
}

// The path, once its folder exists.
const std::string& WithFolder(const std::string& path) {
    try {
        Fnd::EnsureDirectory(Fnd::PathUtils::FolderOf(path));
    } catch (const std::system_error& error) {
        throw JournalError("the task journal " + path + " cannot be created: " + error.what());
    }
    return path;
}

} // namespace

std::string_view FileStateName(FileState state) {
    return kFileStateNames[static_cast<std::size_t>(state)];
}

std::string_view BatchStateName(BatchState state) {
    return kBatchStateNames[static_cast<std::size_t>(state)];
}

std::string Journal::DefaultPath() {
    return Fnd::IgdHomeDirectory() + "/journal.sqlite";
}

// Another process may be writing its own batches: wait for it rather than fail. A process crash
// loses no commit in WAL mode with NORMAL; what a power cut may lose, resume rebuilds from the
// disk (see the resume of files under their final names).
Journal::Journal(const std::string& path) try
    : path_(path), db_(WithFolder(path),
                       {.busyTimeoutMilliseconds = 10000,
                        .writeAheadLog = true,
                        .synchronous = "NORMAL",
                        .raise = RaiseJournalError},
                       kJournalSchema) {
} catch (const Sqlite::SchemaError& refusal) {
    if (refusal.reason == Sqlite::SchemaError::Reason::Newer)
        throw JournalError("the task journal " + path + " was written by a newer version of igd (" +
                           std::to_string(refusal.storedVersion) + ")");
    throw JournalError("the task journal " + path + " is not a journal of igd", /*unreadable=*/true);
}

std::string Journal::SetAside(const std::string& path) {
    char stamp[32];
    const std::time_t now = std::time(nullptr);
    std::tm local {};
    ::localtime_r(&now, &local);
    std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &local);
    std::string aside = path + ".unreadable-" + stamp;
    for (unsigned n = 1; ::access(aside.c_str(), F_OK) == 0; ++n)
        aside = path + ".unreadable-" + stamp + "-" + std::to_string(n);
    if (::rename(path.c_str(), aside.c_str()) != 0)
        throw JournalError("the task journal " + path + " cannot be set aside: " + std::strerror(errno));
    // The write-ahead log belongs to the old file; left in place it would be played into the new.
    for (const char* side : {"-wal", "-shm"})
        ::rename((path + side).c_str(), (aside + side).c_str());
    return aside;
}

Journal::~Journal() = default;

std::int64_t Journal::BatchId(const fluxcore::utility::Guid& batch, bool create) {
    Sqlite::Statement find(db_, "SELECT id FROM batches WHERE guid = ?");
    find.Bind(1, batch.ToString());
    if (find.Step())
        return find.Int(0);
    if (!create)
        return 0;
    Sqlite::Statement insert(db_, "INSERT INTO batches(guid, state, submitted_at) VALUES (?, ?, ?)");
    insert.Bind(1, batch.ToString()).Bind(2, BatchStateName(BatchState::Waiting)).Bind(3, Now()).Run();
    return db_.LastInsertRowId();
}

std::int64_t Journal::AddTask(const fluxcore::utility::Guid& batch, const TaskRecord& record,
                              std::vector<FileRecord>& files) {
    files.clear();
    std::lock_guard lock(mutex_);
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    const std::int64_t batchId = BatchId(batch, true);
    Sqlite::Statement insertTask(db_, "INSERT INTO tasks(batch_id, kind, record) VALUES (?, ?, ?)");
    insertTask.Bind(1, batchId)
        .Bind(2, TaskKindName(record.kind))
        .BindBlob(3, EncodeTaskRecord(record))
        .Run();
    const std::int64_t taskId = db_.LastInsertRowId();

    files = PlannedFiles(record, taskId);
    Sqlite::Statement insertFile(db_,
                                 "INSERT INTO files(task_id, unit, entry, source, target, action, state) "
                                 "VALUES (?, ?, ?, ?, ?, ?, ?)");
    for (FileRecord& file : files) {
        insertFile.Bind(1, taskId)
            .Bind(2, file.unit)
            .Bind(3, file.entry)
            .Bind(4, Fnd::ToUTF8(file.source))
            .Bind(5, Fnd::ToUTF8(file.target))
            .Bind(6, file.action)
            .Bind(7, FileStateName(FileState::Pending))
            .Run();
        file.id = db_.LastInsertRowId();
    }
    transaction.Commit();
    return taskId;
}

void Journal::MarkBatchRunning(const fluxcore::utility::Guid& batch, const Fnd::WString& targetBin,
                               const std::string& projectPath) {
    std::lock_guard lock(mutex_);
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    BatchId(batch, true);
    Sqlite::Statement update(db_, "UPDATE batches SET state = ?, target_bin = ?, project = ?, started_at = ? "
                                  "WHERE guid = ?");
    update.Bind(1, BatchStateName(BatchState::Running))
        .Bind(2, Fnd::ToUTF8(targetBin))
        .Bind(3, projectPath)
        .Bind(4, Now())
        .Bind(5, batch.ToString())
        .Run();
    transaction.Commit();
}

void Journal::SetBatchState(const fluxcore::utility::Guid& batch, BatchState state) {
    std::lock_guard lock(mutex_);
    const bool over = state == BatchState::Finished || state == BatchState::Cancelled;
    Sqlite::Statement update(db_, over ? "UPDATE batches SET state = ?, finished_at = ? WHERE guid = ?"
                                       : "UPDATE batches SET state = ? WHERE guid = ?");
    update.Bind(1, BatchStateName(state));
    if (over)
        update.Bind(2, Now()).Bind(3, batch.ToString());
    else
        update.Bind(2, batch.ToString());
    update.Run();
}

void Journal::UpdateFiles(const std::vector<const FileRecord*>& files) {
    if (files.empty())
        return;
    std::lock_guard lock(mutex_);
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    Sqlite::Statement update(db_, "UPDATE files SET state = ?, temporary = ?, final_path = ?, checksum = ?, "
                                  "reason = ?, size = ? WHERE id = ?");
    for (const FileRecord* file : files)
        update.Bind(1, FileStateName(file->state))
            .Bind(2, file->temporary)
            .Bind(3, file->finalPath)
            .Bind(4, StoredChecksum(*file))
            .Bind(5, file->reason)
            .Bind(6, static_cast<std::int64_t>(file->size))
            .Bind(7, file->id)
            .Run();
    transaction.Commit();
}

void Journal::MarkTaskFinished(std::int64_t task, std::string_view outcome, std::string_view reason) {
    std::lock_guard lock(mutex_);
    Sqlite::Statement update(db_, "UPDATE tasks SET outcome = ?, reason = ? WHERE id = ?");
    update.Bind(1, outcome).Bind(2, reason).Bind(3, task).Run();
}

std::optional<JournalBatch> Journal::LoadBatch(const fluxcore::utility::Guid& batch) const {
    std::lock_guard lock(mutex_);
    // One read transaction, so that another process's writes never show half.
    Sqlite::Transaction read(db_, Sqlite::Transaction::Kind::Read);

    Sqlite::Statement findBatch(db_, "SELECT id, state, target_bin, project FROM batches WHERE guid = ?");
    findBatch.Bind(1, batch.ToString());
    if (!findBatch.Step())
        return std::nullopt;
    JournalBatch loaded;
    loaded.batch = batch;
    const std::int64_t batchId = findBatch.Int(0);
    loaded.state = ParseState<BatchState>(kBatchStateNames, findBatch.Text(1), path_);
    loaded.targetBin = Fnd::FromUTF8(findBatch.Text(2));
    loaded.projectPath = findBatch.Text(3);

    Sqlite::Statement tasks(db_, "SELECT id, record, outcome FROM tasks WHERE batch_id = ? ORDER BY id");
    tasks.Bind(1, batchId);
    while (tasks.Step())
        loaded.tasks.push_back(
            JournalTask{tasks.Int(0), DecodeTaskRecord(tasks.Text(1)), !tasks.Text(2).empty()});

    Sqlite::Statement files(db_,
                            "SELECT f.id, f.task_id, f.unit, f.entry, f.source, f.target, f.action, f.state, "
                            "f.temporary, f.final_path, f.checksum, f.reason, f.size FROM files f "
                            "JOIN tasks t ON t.id = f.task_id WHERE t.batch_id = ? ORDER BY f.id");
    files.Bind(1, batchId);
    while (files.Step()) {
        FileRecord file;
        file.id = files.Int(0);
        file.task = files.Int(1);
        file.unit = static_cast<std::uint32_t>(files.Int(2));
        file.entry = static_cast<std::uint32_t>(files.Int(3));
        file.source = Fnd::FromUTF8(files.Text(4));
        file.target = Fnd::FromUTF8(files.Text(5));
        file.action = static_cast<std::int32_t>(files.Int(6));
        file.state = ParseState<FileState>(kFileStateNames, files.Text(7), path_);
        file.temporary = files.Text(8);
        file.finalPath = files.Text(9);
        LoadChecksum(files.Text(10), file);
        file.reason = files.Text(11);
        file.size = static_cast<std::uint64_t>(files.Int(12));
        loaded.files.push_back(std::move(file));
    }
    return loaded;
}

std::vector<BatchSummary> Journal::Batches(BatchState state) const {
    std::lock_guard lock(mutex_);
    Sqlite::Statement select(
        db_, "SELECT b.guid, b.submitted_at, "
             "(SELECT COUNT(*) FROM files f JOIN tasks t ON t.id = f.task_id WHERE t.batch_id = b.id), "
             "(SELECT COUNT(*) FROM files f JOIN tasks t ON t.id = f.task_id "
             " WHERE t.batch_id = b.id AND f.state = 'verified') "
             "FROM batches b WHERE b.state = ? ORDER BY b.id");
    select.Bind(1, BatchStateName(state));
    std::vector<BatchSummary> batches;
    while (select.Step()) {
        const auto guid = fluxcore::utility::Guid::FromString(select.Text(0));
        if (!guid)
            continue;
        batches.push_back(BatchSummary{*guid, state, select.Int(1), static_cast<std::uint64_t>(select.Int(2)),
                                       static_cast<std::uint64_t>(select.Int(3))});
    }
    return batches;
}

} // namespace QL::Engine
