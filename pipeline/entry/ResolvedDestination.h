#pragma once
#include "Fnd/WString.h"

namespace IGD {

// The folder the user chose as a destination, its symbolic links resolved once, at the start: the
// copy then refuses any link it meets inside a destination, which only someone else can have put
// there. A part that does not exist yet is kept as it is written, below its resolved ancestor.
Fnd::WString ResolvedDestination(const Fnd::WString& chosen);

} // namespace IGD
