#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "Sqlite/Error.h"

struct sqlite3;

namespace Sqlite {

struct Schema;

// One open database file. Used by one thread at a time: the store that owns it serialises its
// callers, so SQLite's own locking of the connection is left off; other connections and
// processes are kept apart by the file's locks.
class Connection {
public:
    // Throws the store's error for a failure: path, what was being done, SQLite's reason.
    using Raise = void (*)(const std::string& path, std::string_view what, std::string_view reason);

    struct Options {
        bool create = true;
        // Another process may hold the file a moment: wait this long for it rather than fail.
        int busyTimeoutMilliseconds = 5000;
        // Write-ahead log, switched on only once the file is known to be ours.
        bool writeAheadLog = false;
        // "NORMAL" or "FULL"; empty keeps SQLite's default.
        std::string_view synchronous = {};
        // Throws Error when not given.
        Raise raise = nullptr;
    };

    // Opens the file (creating it when allowed), and checks, creates or upgrades its schema.
    Connection(const std::string& path, const Options& options, const Schema& schema);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Runs statements that yield no rows.
    void Execute(std::string_view sql);
    std::int64_t LastInsertRowId() const;
    int Changes() const;

    sqlite3* Handle() const { return db_.get(); }
    const std::string& Path() const { return path_; }
    [[noreturn]] void Fail(std::string_view what) const;

private:
    struct Close {
        void operator()(sqlite3* db) const;
    };
    std::string path_;
    Raise raise_;
    std::unique_ptr<sqlite3, Close> db_;
};

} // namespace Sqlite
