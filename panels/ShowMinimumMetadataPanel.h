#pragma once
#include <vector>

#include "Fnd/WString.h"
#include "fluxui/ui/UI_Dialog.h"

namespace IGD {

// DoMinimumMetadataDialog past its preference: finds the site's panel and shows it, posting the
// finished message on every path. For a host that decided on its own whether a panel is wanted.
boost::intrusive_ptr<fluxui::ui::UI_Dialog> ShowMinimumMetadataPanel(const std::vector<Fnd::WString>& filePaths);

} // namespace IGD
