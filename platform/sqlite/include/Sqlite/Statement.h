#pragma once
#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace Sqlite {

class Connection;

// A prepared statement that finalises itself. Parameters and columns count as SQL counts them:
// parameters from 1, columns from 0.
class Statement {
public:
    // A persistent statement is kept for the connection's life and reused.
    Statement(Connection& connection, std::string_view sql, bool persistent = false);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(int index, std::int64_t value);
    Statement& Bind(int index, std::string_view utf8);
    Statement& BindDouble(int index, double value);
    Statement& BindBlob(int index, std::string_view bytes);
    Statement& BindNull(int index);

    // True while a row is there to read.
    bool Step();
    // Runs to the end and makes the statement ready for new bindings.
    void Run();
    // Clears bindings and rewinds.
    void Reset();

    std::int64_t Int(int column) const;
    double Double(int column) const;
    // The bytes of a text or blob; empty for NULL.
    std::string Text(int column) const;
    // SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
    int Type(int column) const;
    bool IsNull(int column) const;

private:
    Connection& connection_;
    sqlite3_stmt* statement_ = nullptr;
};

// Rewinds a reused statement however the scope is left, so a failed call leaves it usable.
class StatementUse {
public:
    explicit StatementUse(Statement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.Reset(); }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    Statement* operator->() const { return &statement_; }
    Statement& operator*() const { return statement_; }

private:
    Statement& statement_;
};

} // namespace Sqlite
