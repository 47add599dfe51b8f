#pragma once
#include "Fnd/InterfaceRef.h"
#include "Proj/IProject.h"

namespace Mid {

// The project open in the host; null when none is, and a null reference raises
// Fnd::NullInterfaceException on use.
Fnd::InterfaceRef<Proj::IProject> GetProject();
// The host opens a project, or closes it with null.
void SetProject(Fnd::InterfaceRef<Proj::IProject> project);

} // namespace Mid
