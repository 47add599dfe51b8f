#include "ProjectSchema.h"

#include <stdexcept>
#include <string>

#include "Proj/Project.h"

namespace Proj {
namespace {

// The name in the meta table that marks a database as ours; any other database is refused.
constexpr const char* kSchemaName = "igd.project";
// "IGDP" in the file header, so that tools such as file(1) can tell what the file is.
constexpr const char* kApplicationIdPragma = "PRAGMA application_id = 1229407312";

// Items keep their first import order in their id; AUTOINCREMENT never reuses one. Paths and
// all texts are UTF-8. Unset times are NULL; a zero frame rate is unset; a clip Guid is its
// braced text, NULL when none is assigned.
constexpr const char* kCreateVersion1 = R"sql(
CREATE TABLE meta (key TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;
CREATE TABLE bins (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE);
INSERT INTO bins (name) VALUES ('');
CREATE TABLE items (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    path TEXT NOT NULL UNIQUE,
    name TEXT NOT NULL,
    format TEXT NOT NULL,
    in_point INTEGER,
    out_point INTEGER,
    frame_rate INTEGER NOT NULL DEFAULT 0,
    clip_guid TEXT,
    bin_id INTEGER NOT NULL REFERENCES bins (id));
CREATE INDEX items_by_bin ON items (bin_id);
CREATE TABLE item_extra_paths (
    item_id INTEGER NOT NULL REFERENCES items (id),
    position INTEGER NOT NULL,
    path TEXT NOT NULL,
    PRIMARY KEY (item_id, position)) WITHOUT ROWID;
CREATE TABLE item_metadata (
    item_id INTEGER NOT NULL REFERENCES items (id),
    namespace TEXT NOT NULL,
    prefix TEXT NOT NULL,
    key TEXT NOT NULL,
    value TEXT NOT NULL,
    PRIMARY KEY (item_id, namespace, key)) WITHOUT ROWID;
)sql";

// The one place where a project of an older version is brought up to date, one version at a
// time, inside the transaction that then records the new version. Version 1 is the first.
void UpgradeFrom(SqliteConnection& connection, int version) {
    switch (version) {
    default:
        throw std::logic_error("no upgrade of the project from version " + std::to_string(version));
    }
}

bool HasTables(SqliteConnection& connection) {
    SqliteStatement any(connection, "SELECT 1 FROM sqlite_schema LIMIT 1");
    return any.Step();
}

// The version stored in a project, or 0 when the database is not one of ours.
int StoredVersion(SqliteConnection& connection) {
    SqliteStatement meta(connection, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = 'meta'");
    if (!meta.Step())
        return 0;
    SqliteStatement read(connection, "SELECT (SELECT value FROM meta WHERE key = 'schema'), "
                                     "(SELECT value FROM meta WHERE key = 'version')");
    if (!read.Step() || read.Text(0) != kSchemaName)
        return 0;
    try {
        std::size_t used = 0;
        const std::string text = read.Text(1);
        const int version = std::stoi(text, &used);
        return used == text.size() && version > 0 ? version : 0;
    } catch (const std::exception&) {
        return 0;
    }
}

void WriteVersion(SqliteConnection& connection) {
    connection.Execute(std::string("INSERT OR REPLACE INTO meta (key, value) VALUES ('schema', '") +
                       kSchemaName + "'), ('version', '" + std::to_string(kProjectSchemaVersion) + "')");
}

constexpr int kEmpty = -1;

// kEmpty for a database without tables, else StoredVersion.
int Classify(SqliteConnection& connection) {
    try {
        return HasTables(connection) ? StoredVersion(connection) : kEmpty;
    } catch (const ProjectError&) {
        // SQLite finds out that a file is of another kind only when it first reads it.
        if (sqlite3_errcode(connection.Handle()) == SQLITE_NOTADB)
            throw ProjectError("not a project file: " + connection.Path());
        throw;
    }
}

void RefuseUnless(SqliteConnection& connection, int version) {
    if (version == 0)
        throw ProjectError("not a project file: " + connection.Path() +
                           " (an SQLite database of another kind)");
    if (version > kProjectSchemaVersion)
        throw ProjectError("the project " + connection.Path() +
                           " was written by a newer version of IGD (project "
                           "version " +
                           std::to_string(version) + "; this version reads up to " +
                           std::to_string(kProjectSchemaVersion) + ")");
}

} // namespace

void PrepareProjectSchema(SqliteConnection& connection) {
    // Most opens find a current project; they only read, and wait for no writer.
    {
        SqliteTransaction look(connection, SqliteTransaction::Kind::Read);
        const int version = Classify(connection);
        if (version == kProjectSchemaVersion)
            return;
        if (version != kEmpty)
            RefuseUnless(connection, version);
    }
    SqliteTransaction transaction(connection, SqliteTransaction::Kind::Write);
    // Another process may have created or upgraded it in the meantime.
    int version = Classify(connection);
    const bool created = version == kEmpty;
    if (created) {
        connection.Execute(kCreateVersion1);
        connection.Execute(kApplicationIdPragma);
        version = 1;
    }
    RefuseUnless(connection, version);
    if (version == kProjectSchemaVersion && !created)
        return;
    for (; version < kProjectSchemaVersion; ++version)
        UpgradeFrom(connection, version);
    WriteVersion(connection);
    transaction.Commit();
}

} // namespace Proj
