#pragma once
// ASC MHL files checked against the project's copy of the schemas, with Xerces validating fully.
#include <string>

namespace igd::test {

// The schema errors of a generation file ("line 3: ..."), empty when it is valid.
std::string GenerationSchemaErrors(const std::string& path);
// The same for a chain file.
std::string ChainSchemaErrors(const std::string& path);

} // namespace igd::test
