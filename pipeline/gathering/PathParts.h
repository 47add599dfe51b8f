#pragma once
// The parts of a path as the plan names them, all through Fnd::PathUtils::SplitPath so that every
// caller agrees on what a stem and an extension are.
#include "Fnd/WString.h"

namespace IGD {

// File name with its extension.
Fnd::WString FileNameOf(Fnd::WStringView path);
// File name without its extension.
Fnd::WString StemOf(Fnd::WStringView path);
// Extension with its dot; empty when there is none.
Fnd::WString ExtensionOf(Fnd::WStringView path);
// Drive and directory, with the directory's trailing separator.
Fnd::WString DirectoryOf(Fnd::WStringView path);

} // namespace IGD
