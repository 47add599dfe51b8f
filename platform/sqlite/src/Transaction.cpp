#include "Sqlite/Transaction.h"

#include <sqlite3.h>

#include "Sqlite/Connection.h"

namespace Sqlite {

Transaction::Transaction(Connection& connection, Kind kind) : connection_(connection) {
    connection_.Execute(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
    // Nothing is left to report to once unwinding: the rollback restores the file, or SQLite has
    // already rolled back on the failure that brought us here.
    if (open_)
        sqlite3_exec(connection_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    connection_.Execute("COMMIT");
    open_ = false;
}

} // namespace Sqlite
