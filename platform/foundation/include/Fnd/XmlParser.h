#pragma once

namespace Fnd {

// Makes the XML parser ready for use in this process; safe to call from any thread, as often as
// wanted. It is never shut down, since documents may live until the process exits.
void EnsureXmlParser();

} // namespace Fnd
