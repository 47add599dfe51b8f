#include "SqliteConnection.h"

#include "Proj/Project.h"

namespace Proj {

SqliteStatement::SqliteStatement(SqliteConnection& connection, std::string_view sql)
    : connection_(connection) {
    if (sqlite3_prepare_v3(connection.Handle(), sql.data(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement_, nullptr) != SQLITE_OK)
        connection.Fail("cannot prepare a statement of the project");
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(statement_);
}

SqliteStatement& SqliteStatement::Bind(int index, std::int64_t value) {
    if (sqlite3_bind_int64(statement_, index, value) != SQLITE_OK)
        connection_.Fail("cannot bind a value");
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, std::string_view utf8) {
    if (sqlite3_bind_text64(statement_, index, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8) !=
        SQLITE_OK)
        connection_.Fail("cannot bind a value");
    return *this;
}

SqliteStatement& SqliteStatement::BindNull(int index) {
    if (sqlite3_bind_null(statement_, index) != SQLITE_OK)
        connection_.Fail("cannot bind a value");
    return *this;
}

bool SqliteStatement::Step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    connection_.Fail("cannot run a statement of the project");
}

void SqliteStatement::Run() {
    while (Step()) {
    }
}

void SqliteStatement::Reset() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

std::int64_t SqliteStatement::Int(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::string SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return text == nullptr
               ? std::string()
               : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
}

bool SqliteStatement::IsNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

SqliteConnection::SqliteConnection(const std::string& utf8Path) : path_(utf8Path) {
    // One object is used by one thread at a time, so SQLite's own locking of the connection is
    // not needed; other connections and processes are kept apart by the file's locks.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(utf8Path.c_str(), &db_, flags, nullptr) != SQLITE_OK) {
        const std::string message = db_ != nullptr ? sqlite3_errmsg(db_) : "out of memory";
        sqlite3_close(db_);
        db_ = nullptr;
        throw ProjectError("cannot open the project: " + utf8Path + ": " + message);
    }
    sqlite3_extended_result_codes(db_, 1);
}

SqliteConnection::~SqliteConnection() {
    sqlite3_close_v2(db_);
}

void SqliteConnection::Execute(std::string_view sql) {
    const std::string text(sql);
    if (sqlite3_exec(db_, text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail("cannot update the project");
}

std::int64_t SqliteConnection::LastInsertRowId() const {
    return sqlite3_last_insert_rowid(db_);
}

int SqliteConnection::Changes() const {
    return sqlite3_changes(db_);
}

void SqliteConnection::Fail(std::string_view what) const {
    throw ProjectError(std::string(what) + ": " + path_ + ": " + sqlite3_errmsg(db_));
}

SqliteTransaction::SqliteTransaction(SqliteConnection& connection, Kind kind) : connection_(connection) {
    // A writer takes the write lock at once: a deferred transaction that later needs it could
    // only fail, since SQLite does not wait for a lock a reader wants to upgrade.
    connection_.Execute(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

SqliteTransaction::~SqliteTransaction() {
    if (open_)
        sqlite3_exec(connection_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteTransaction::Commit() {
    connection_.Execute("COMMIT");
    open_ = false;
}

} // namespace Proj
