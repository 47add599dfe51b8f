#pragma once
// A thin owner of one SQLite connection and its statements, throwing Proj::ProjectError with
// the file's name and SQLite's own words on any failure.
#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Proj {

class SqliteConnection;

// A prepared statement, compiled once and reset after each use.
class SqliteStatement {
public:
    SqliteStatement(SqliteConnection& connection, std::string_view sql);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    // Parameters count from 1, as in SQL.
    SqliteStatement& Bind(int index, std::int64_t value);
    SqliteStatement& Bind(int index, std::string_view utf8);
    SqliteStatement& BindNull(int index);

    // True while a row is available.
    bool Step();
    // Runs a statement that yields no rows.
    void Run();
    // Clears bindings and rewinds, ready for the next use.
    void Reset();

    std::int64_t Int(int column) const;
    std::string Text(int column) const;
    bool IsNull(int column) const;

private:
    SqliteConnection& connection_;
    sqlite3_stmt* statement_ = nullptr;
};

// Rewinds the statement however the scope is left, so a failed call leaves it reusable.
class StatementUse {
public:
    explicit StatementUse(SqliteStatement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.Reset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    SqliteStatement* operator->() const { return &statement_; }
    SqliteStatement& operator*() const { return statement_; }

private:
    SqliteStatement& statement_;
};

class SqliteConnection {
public:
    // Opens (creating when absent) the database file.
    explicit SqliteConnection(const std::string& utf8Path);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    // Runs one or more statements that yield no rows.
    void Execute(std::string_view sql);
    std::int64_t LastInsertRowId() const;
    int Changes() const;

    sqlite3* Handle() const { return db_; }
    const std::string& Path() const { return path_; }
    // Throws ProjectError: "<what>: <path>: <SQLite's message>".
    [[noreturn]] void Fail(std::string_view what) const;

private:
    std::string path_;
    sqlite3* db_ = nullptr;
};

// One transaction; rolled back unless committed, so a call that throws leaves the file as it was.
class SqliteTransaction {
public:
    enum class Kind { Read, Write };
    SqliteTransaction(SqliteConnection& connection, Kind kind);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;
    void Commit();

private:
    SqliteConnection& connection_;
    bool open_ = true;
};

} // namespace Proj
