#pragma once
// The name and version a database carries, checked whenever it is opened.
#include <cstdint>
#include <string>
#include <string_view>

#include "Sqlite/Error.h"

namespace Sqlite {

class Connection;

struct Schema {
    enum class Storage {
        // Rows 'schema' and 'version' of a table meta(key, value), which create must make.
        MetaTable,
        // The header's application_id (the name) and user_version.
        HeaderFields,
    };
    Storage storage = Storage::MetaTable;
    std::string_view name = {};     // MetaTable
    std::int32_t applicationId = 0; // HeaderFields
    int version = 1;
    // Lays out the current version in an empty database.
    void (*create)(Connection&) = nullptr;
    // Brings a database of version from up to from + 1; the one place where old files are read.
    void (*upgrade)(Connection&, int from) = nullptr;
};

// A database that is not of the schema, or of a newer version: nothing was written to it.
class SchemaError : public Error {
public:
    enum class Reason { NotADatabase, OtherKind, Newer };
    SchemaError(Reason reason, int storedVersion, const std::string& what)
        : Error(what), reason(reason), storedVersion(storedVersion) {}
    Reason reason;
    int storedVersion;
};

// Creates the schema in an empty database, upgrades an older version one step at a time, and
// refuses anything else with SchemaError. A database already current is only read.
void PrepareSchema(Connection& connection, const Schema& schema);

} // namespace Sqlite
