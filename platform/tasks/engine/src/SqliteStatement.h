#pragma once
#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "QL/Engine/Journal.h"

namespace QL::Engine {

// A prepared statement that finalises itself; every failure throws JournalError naming the file.
class SqliteStatement {
public:
    SqliteStatement(sqlite3* db, const char* sql, const std::string& file);
    ~SqliteStatement() { sqlite3_finalize(statement_); }
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    SqliteStatement& Bind(int index, std::int64_t value);
    SqliteStatement& Bind(int index, std::string_view text);
    SqliteStatement& BindBlob(int index, std::string_view bytes);

    // True while a row is there to read.
    bool Step();
    // Runs to completion and makes the statement ready for new bindings.
    void Run();
    void Reset();

    std::int64_t Int(int column) const { return sqlite3_column_int64(statement_, column); }
    std::string Text(int column) const;
    bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }

private:
    [[noreturn]] void Fail() const;

    sqlite3* db_;
    sqlite3_stmt* statement_ = nullptr;
    const std::string& file_;
};

} // namespace QL::Engine
