#pragma once
#include "Fnd/WString.h"
#include "fluxui/ui/UI_Node.h"

namespace IGD {

// The custom controls a field row's layout may ask for: the hint edit, and nothing else.
fluxui::ui::UI_NodeRef CreateFieldRowControl(const Fnd::WString& className);

} // namespace IGD
