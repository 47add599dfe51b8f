#pragma once
#include "SqliteConnection.h"

namespace Proj {

// The version this build writes. Every change of the tables raises it and adds its upgrade
// beside the others in ProjectSchema.cpp.
inline constexpr int kProjectSchemaVersion = 1;

// Makes the file a project of the current version: creates the tables in a database that has
// none, upgrades an older project, refuses a newer one and anything that is not a project.
// Nothing is written to a file that is refused. Throws ProjectError.
void PrepareProjectSchema(SqliteConnection& connection);

} // namespace Proj
