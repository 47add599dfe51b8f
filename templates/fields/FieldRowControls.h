#pragma once
#include <string>
#include <string_view>

#include "Fnd/WString.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/ui/UI_Node.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

// The custom controls a field row's layout may ask for: the hint edit, and nothing else.
fluxui::ui::UI_NodeRef CreateFieldRowControl(const Fnd::WString& className);

// The picture button of the section's layout with that id, showing its decal, with its tooltip.
boost::intrusive_ptr<fluxui::controls::UI_PictureButton>
BindPictureButton(const wrangler::ui::SectionViewEx& section, const std::string& id, int decal,
                  std::string_view tooltip);

} // namespace IGD
