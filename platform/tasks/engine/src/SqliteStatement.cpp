#include "SqliteStatement.h"

namespace QL::Engine {

SqliteStatement::SqliteStatement(sqlite3* db, const char* sql, const std::string& file)
    : db_(db), file_(file) {
    if (sqlite3_prepare_v2(db_, sql, -1, &statement_, nullptr) != SQLITE_OK)
        Fail();
}

SqliteStatement& SqliteStatement::Bind(int index, std::int64_t value) {
    if (sqlite3_bind_int64(statement_, index, value) != SQLITE_OK)
        Fail();
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, std::string_view text) {
    if (sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT) !=
        SQLITE_OK)
        Fail();
    return *this;
}

SqliteStatement& SqliteStatement::BindBlob(int index, std::string_view bytes) {
    if (sqlite3_bind_blob(statement_, index, bytes.data(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT) != SQLITE_OK)
        Fail();
    return *this;
}

bool SqliteStatement::Step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        Fail();
    return false;
}

void SqliteStatement::Run() {
    while (Step()) {
    }
    Reset();
}

void SqliteStatement::Reset() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

std::string SqliteStatement::Text(int column) const {
    const auto* text = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return text ? std::string(text, static_cast<std::size_t>(size)) : std::string();
}

void SqliteStatement::Fail() const {
    throw JournalError("the task journal " + file_ + " cannot be used: " + sqlite3_errmsg(db_));
}

} // namespace QL::Engine
