#include "Sqlite/Schema.h"

#include <sqlite3.h>

#include <charconv>

#include "Sqlite/Connection.h"
#include "Sqlite/Statement.h"
#include "Sqlite/Transaction.h"

namespace Sqlite {
namespace {

constexpr int kEmpty = -1;
constexpr int kOtherKind = 0;

std::int64_t ReadNumber(Connection& connection, const char* sql) {
    Statement statement(connection, sql);
    return statement.Step() ? statement.Int(0) : 0;
}

int VersionInMetaTable(Connection& connection, const Schema& schema) {
    if (ReadNumber(connection, "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = 'meta'") ==
        0)
        return kOtherKind;
    Statement read(connection, "SELECT (SELECT value FROM meta WHERE key = 'schema'), "
                               "(SELECT value FROM meta WHERE key = 'version')");
    if (!read.Step() || read.Text(0) != schema.name)
        return kOtherKind;
    const std::string text = read.Text(1);
    int version = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), version);
    return error == std::errc() && end == text.data() + text.size() && version > 0 ? version : kOtherKind;
}

// kEmpty for a database without anything in it, kOtherKind for one that is not of the schema,
// else the version it holds.
int Classify(Connection& connection, const Schema& schema) {
    const bool headerClear = schema.storage == Schema::Storage::MetaTable ||
                             (ReadNumber(connection, "PRAGMA application_id") == 0 &&
                              ReadNumber(connection, "PRAGMA user_version") == 0);
    if (headerClear && ReadNumber(connection, "SELECT count(*) FROM sqlite_schema") == 0)
        return kEmpty;
    if (schema.storage == Schema::Storage::MetaTable)
        return VersionInMetaTable(connection, schema);
    if (ReadNumber(connection, "PRAGMA application_id") != schema.applicationId)
        return kOtherKind;
    const auto version = static_cast<int>(ReadNumber(connection, "PRAGMA user_version"));
    return version > 0 ? version : kOtherKind;
}

// Classify, with a file that is no database at all (SQLite finds out on its first read) refused.
int ClassifyOrRefuse(Connection& connection, const Schema& schema) {
    try {
        return Classify(connection, schema);
    } catch (const Error&) {
        const int code = sqlite3_errcode(connection.Handle());
        if (code == SQLITE_NOTADB)
            throw SchemaError(SchemaError::Reason::NotADatabase, 0, "not a database: " + connection.Path());
        throw;
    }
}

void RefuseUnlessReadable(Connection& connection, const Schema& schema, int version) {
    if (version == kOtherKind)
        throw SchemaError(SchemaError::Reason::OtherKind, 0,
                          "not a database of " + std::string(schema.name) + ": " + connection.Path());
    if (version > schema.version)
        throw SchemaError(SchemaError::Reason::Newer, version,
                          connection.Path() + " was written by a newer version (" + std::to_string(version) +
                              "; this one reads up to " + std::to_string(schema.version) + ")");
}

void WriteVersion(Connection& connection, const Schema& schema) {
    if (schema.storage == Schema::Storage::HeaderFields) {
        connection.Execute("PRAGMA application_id=" + std::to_string(schema.applicationId) +
                           ";PRAGMA user_version=" + std::to_string(schema.version));
        return;
    }
    Statement write(connection,
                    "INSERT OR REPLACE INTO meta (key, value) VALUES ('schema', ?), ('version', ?)");
    write.Bind(1, schema.name).Bind(2, std::to_string(schema.version)).Run();
}

} // namespace

void PrepareSchema(Connection& connection, const Schema& schema) {
    // Most opens find a current database; they only read, and wait for no writer.
    {
        Transaction look(connection, Transaction::Kind::Read);
        const int version = ClassifyOrRefuse(connection, schema);
        if (version == schema.version)
            return;
        if (version != kEmpty)
            RefuseUnlessReadable(connection, schema, version);
    }
    Transaction change(connection, Transaction::Kind::Write);
    // Another process may have created or upgraded it in the meantime.
    int version = ClassifyOrRefuse(connection, schema);
    if (version == schema.version)
        return;
    if (version == kEmpty) {
        schema.create(connection);
    } else {
        RefuseUnlessReadable(connection, schema, version);
        for (; version < schema.version; ++version)
            schema.upgrade(connection, version);
    }
    WriteVersion(connection, schema);
    change.Commit();
}

} // namespace Sqlite
