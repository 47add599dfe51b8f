#pragma once
#include <string>
#include <string_view>

#include "Sqlite/Schema.h"

namespace Proj {

// The version this build writes. Every change of the tables raises it and adds its upgrade
// beside the others in ProjectSchema.cpp.
inline constexpr int kProjectSchemaVersion = 2;

// The project's tables, created in an empty file and upgraded from an older project.
extern const Sqlite::Schema kProjectSchema;

// Every failure of the file, as ProjectError naming it.
[[noreturn]] void RaiseProjectError(const std::string& path, std::string_view what, std::string_view reason);
// A file that is not a project of a version this build reads, as ProjectError.
[[noreturn]] void RefuseProject(const Sqlite::SchemaError& refusal, const std::string& path);

} // namespace Proj
