#include "ProjectSchema.h"

#include <stdexcept>
#include <string>

#include "Proj/Project.h"
#include "Sqlite/Connection.h"

namespace Proj {
namespace {

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

// Version 2: the digest each file of an item was verified with, beside its algorithm, so that
// a digest of one algorithm is never compared with another's.
constexpr const char* kAddDigests = R"sql(
CREATE TABLE item_digests (
    item_id INTEGER NOT NULL REFERENCES items (id),
    path TEXT NOT NULL,
    algorithm TEXT NOT NULL,
    digest TEXT NOT NULL,
    PRIMARY KEY (item_id, path)) WITHOUT ROWID;
)sql";

void Create(Sqlite::Connection& connection) {
    connection.Execute(kCreateVersion1);
    connection.Execute(kAddDigests);
    connection.Execute(kApplicationIdPragma);
}

// The one place where a project of an older version is brought up to date, one version at a
// time, inside the transaction that then records the new version. Version 1 is the first.
void UpgradeFrom(Sqlite::Connection& connection, int version) {
    if (version == 1) {
        connection.Execute(kAddDigests);
        return;
    }
    throw std::logic_error("no upgrade of the project from version " + std::to_string(version));
}

} // namespace

const Sqlite::Schema kProjectSchema{
    .name = "igd.project", .version = kProjectSchemaVersion, .create = Create, .upgrade = UpgradeFrom};

void RaiseProjectError(const std::string& path, std::string_view what, std::string_view reason) {
    throw ProjectError(std::string(what) + " the project: " + path + ": " + std::string(reason));
}

void RefuseProject(const Sqlite::SchemaError& refusal, const std::string& path) {
    switch (refusal.reason) {
    case Sqlite::SchemaError::Reason::NotADatabase:
        throw ProjectError("not a project file: " + path);
    case Sqlite::SchemaError::Reason::OtherKind:
        throw ProjectError("not a project file: " + path + " (an SQLite database of another kind)");
    case Sqlite::SchemaError::Reason::Newer:
        break;
    }
    throw ProjectError("the project " + path + " was written by a newer version of IGD (project version " +
                       std::to_string(refusal.storedVersion) + "; this version reads up to " +
                       std::to_string(kProjectSchemaVersion) + ")");
}

} // namespace Proj
