#include "Sqlite/Statement.h"

#include <sqlite3.h>

#include "Sqlite/Connection.h"

namespace Sqlite {

Statement::Statement(Connection& connection, std::string_view sql, bool persistent)
    : connection_(connection) {
    if (sqlite3_prepare_v3(connection.Handle(), sql.data(), static_cast<int>(sql.size()),
                           persistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement_, nullptr) != SQLITE_OK)
        connection.Fail("cannot query");
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

Statement& Statement::Bind(int index, std::int64_t value) {
    if (sqlite3_bind_int64(statement_, index, value) != SQLITE_OK)
        connection_.Fail("cannot bind a value for");
    return *this;
}

Statement& Statement::Bind(int index, std::string_view utf8) {
    if (sqlite3_bind_text64(statement_, index, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8) !=
        SQLITE_OK)
        connection_.Fail("cannot bind a value for");
    return *this;
}

Statement& Statement::BindDouble(int index, double value) {
    if (sqlite3_bind_double(statement_, index, value) != SQLITE_OK)
        connection_.Fail("cannot bind a value for");
    return *this;
}

Statement& Statement::BindBlob(int index, std::string_view bytes) {
    if (sqlite3_bind_blob64(statement_, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT) != SQLITE_OK)
        connection_.Fail("cannot bind a value for");
    return *this;
}

Statement& Statement::BindNull(int index) {
    if (sqlite3_bind_null(statement_, index) != SQLITE_OK)
        connection_.Fail("cannot bind a value for");
    return *this;
}

bool Statement::Step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        connection_.Fail("cannot query");
    return false;
}

void Statement::Run() {
    StatementUse use(*this);
    while (Step()) {
    }
}

void Statement::Reset() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

std::int64_t Statement::Int(int column) const {
    return sqlite3_column_int64(statement_, column);
}

double Statement::Double(int column) const {
    return sqlite3_column_double(statement_, column);
}

std::string Statement::Text(int column) const {
    // The pointer first, then the size: that is the order SQLite documents for conversions.
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return bytes ? std::string(bytes, static_cast<std::size_t>(size)) : std::string();
}

int Statement::Type(int column) const {
    return sqlite3_column_type(statement_, column);
}

bool Statement::IsNull(int column) const {
    return Type(column) == SQLITE_NULL;
}

} // namespace Sqlite
