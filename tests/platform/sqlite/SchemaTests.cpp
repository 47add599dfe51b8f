#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "Sqlite/Connection.h"
#include "Sqlite/Schema.h"
#include "Sqlite/Statement.h"
#include "Sqlite/Transaction.h"
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

TEST(SqliteSchema, UpgradesStepByStepAndRefusesNewerOrForeignFilesUntouched) {
    TempTree tree;
    const std::string path = tree.NativePath("notes.db");
    { Sqlite::Connection created(path, {}, Notes(1)); }
    {
        Sqlite::Connection upgraded(path, {}, Notes(3));
        EXPECT_EQ(Query(upgraded, "SELECT value FROM meta ORDER BY key"), "igd.notes;3;");
        EXPECT_EQ(Query(upgraded, "SELECT text || '/' || author FROM notes"), "upgraded/igd;");
    }
    try {
        Sqlite::Connection older(path, {}, Notes(2));
        ADD_FAILURE() << "a newer file was opened";
    } catch (const Sqlite::SchemaError& error) {
        EXPECT_EQ(error.reason, Sqlite::SchemaError::Reason::Newer);
        EXPECT_EQ(error.storedVersion, 3);
    }
    Sqlite::Schema other = Notes(3);
    other.name = "igd.other";
    try {
        Sqlite::Connection foreign(path, {}, other);
        ADD_FAILURE() << "another schema's file was opened";
    } catch (const Sqlite::SchemaError& error) {
        EXPECT_EQ(error.reason, Sqlite::SchemaError::Reason::OtherKind);
    }
    tree.MakeFile("words.txt", "not a database at all, only words that go on for a good while longer");
    try {
        Sqlite::Connection words(tree.NativePath("words.txt"), {}, Notes(1));
        ADD_FAILURE() << "a text file was opened";
    } catch (const Sqlite::SchemaError& error) {
        EXPECT_EQ(error.reason, Sqlite::SchemaError::Reason::NotADatabase);
    }
}

TEST(SqliteTransaction, RollsBackWhenLeftUncommittedAndErrorsNameTheFile) {
    TempTree tree;
    const std::string path = tree.NativePath("notes.db");
    Sqlite::Connection db(path, {.writeAheadLog = true}, Notes(1));
    EXPECT_EQ(Query(db, "PRAGMA journal_mode"), "wal;");
    {
        Sqlite::Transaction kept(db, Sqlite::Transaction::Kind::Write);
        db.Execute("INSERT INTO notes VALUES ('kept')");
        kept.Commit();
    }
    try {
        Sqlite::Transaction dropped(db, Sqlite::Transaction::Kind::Write);
        db.Execute("INSERT INTO notes VALUES ('dropped')");
        db.Execute("INSERT INTO missing VALUES (1)");
        ADD_FAILURE() << "a missing table was written";
    } catch (const Sqlite::Error& error) {
        const std::string text = error.what();
        EXPECT_NE(text.find(path), std::string::npos) << text;
        EXPECT_NE(text.find("no such table: missing"), std::string::npos) << text;
    }
    EXPECT_EQ(Query(db, "SELECT text FROM notes"), "kept;");
}

} // namespace
} // namespace igd::test
