#pragma once
#include <string>
#include <string_view>

namespace fluxmetadata {

// The namespace URI of the metadata schema made for a preset name, in UTF-8. The same name
// always gives the same URI, across runs and machines, and two different names never give the
// same one: the name is percent-encoded byte for byte into the last path segment.
std::string MakeDynamicSchemaNamespace(std::string_view name);

} // namespace fluxmetadata
