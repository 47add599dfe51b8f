#pragma once
#include "Fnd/WString.h"

namespace fluxcore::config {

// The name the host application goes by, shown as the title of its stop boxes. A host sets it at
// start-up; until then, or after it sets an empty name, it is the localized default.
Fnd::WString GetApplicationName();
void SetApplicationName(Fnd::WString name);

} // namespace fluxcore::config
