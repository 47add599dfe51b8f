#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "Sqlite/Connection.h"
#include "Sqlite/Schema.h"
#include "Sqlite/Statement.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

void CreateNotes(Sqlite::Connection& db) {
    db.Execute(
        "CREATE TABLE meta (key TEXT PRIMARY KEY, value TEXT NOT NULL); CREATE TABLE notes (text TEXT)");
}

// Version 2 added a column, version 3 a default row: each step sees the one before it.
void UpgradeNotes(Sqlite::Connection& db, int from) {
    if (from == 1)
        db.Execute("ALTER TABLE notes ADD COLUMN author TEXT NOT NULL DEFAULT ''");
    else if (from == 2)
        db.Execute("INSERT INTO notes (text, author) VALUES ('upgraded', 'igd')");
    else
        throw std::logic_error("no upgrade");
}

Sqlite::Schema Notes(int version) {
    return {.name = "igd.notes", .version = version, .create = CreateNotes, .upgrade = UpgradeNotes};
}

std::string Query(Sqlite::Connection& db, const char* sql) {
    Sqlite::Statement statement(db, sql);
    std::string rows;
    while (statement.Step())
        rows += statement.Text(0) + ";";
    return rows;
}

// Refusing newer, foreign and non-database files, and rolling back, are checked through the stores
// that use this layer (preference store, journal), where a user meets them.
TEST(SqliteSchema, UpgradesStepByStepAndRecordsTheNewVersion) {
    TempTree tree;
    const std::string path = tree.NativePath("notes.db");
    { Sqlite::Connection created(path, {}, Notes(1)); }
    Sqlite::Connection upgraded(path, {}, Notes(3));
    EXPECT_EQ(Query(upgraded, "SELECT value FROM meta ORDER BY key"), "igd.notes;3;");
    EXPECT_EQ(Query(upgraded, "SELECT text || '/' || author FROM notes"), "upgraded/igd;");
}

} // namespace
} // namespace igd::test
