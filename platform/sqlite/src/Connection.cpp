#include "Sqlite/Connection.h"

#include <sqlite3.h>

#include "Sqlite/Schema.h"

namespace Sqlite {
namespace {

[[noreturn]] void RaiseError(const std::string& path, std::string_view what, std::string_view reason) {
    throw Error(std::string(what) + ": " + path + ": " + std::string(reason));
}

} // namespace

void Connection::Close::operator()(sqlite3* db) const {
    sqlite3_close_v2(db);
}

Connection::Connection(const std::string& path, const Options& options, const Schema& schema)
    : path_(path), raise_(options.raise ? options.raise : RaiseError) {
    sqlite3* db = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (options.create ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
    const int opened = sqlite3_open_v2(path.c_str(), &db, flags, nullptr);
    db_.reset(db);
    if (opened != SQLITE_OK)
        raise_(path_, "cannot open", db ? sqlite3_errmsg(db) : "out of memory");
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, options.busyTimeoutMilliseconds);
    PrepareSchema(*this, schema);
    if (options.writeAheadLog)
        Execute("PRAGMA journal_mode=WAL");
    if (!options.synchronous.empty())
        Execute("PRAGMA synchronous=" + std::string(options.synchronous));
}

Connection::~Connection() = default;

void Connection::Execute(std::string_view sql) {
    const std::string text(sql);
    if (sqlite3_exec(db_.get(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail("cannot update");
}

std::int64_t Connection::LastInsertRowId() const {
    return sqlite3_last_insert_rowid(db_.get());
}

int Connection::Changes() const {
    return sqlite3_changes(db_.get());
}

void Connection::Fail(std::string_view what) const {
    raise_(path_, what, sqlite3_errmsg(db_.get()));
    // A raise that returns is a programming fault of the store.
    throw Error(std::string(what) + ": " + path_);
}

} // namespace Sqlite
