#include "templates/fields/FieldRowControls.h"

#include "fluxcore/ZString.h"
#include "shell/AutoHintTextEdit.h"
#include "shell/resources/IngestResources.h"

namespace IGD {

fluxui::ui::UI_NodeRef CreateFieldRowControl(const Fnd::WString& className) {
    if (className == u"AutoHintTextEdit")
        return fluxui::ui::UI_NodeRef(new AutoHintTextEdit);
    return {};
}

boost::intrusive_ptr<fluxui::controls::UI_PictureButton>
BindPictureButton(const wrangler::ui::SectionViewEx& section, const std::string& id, int decal,
                  std::string_view tooltip) {
    auto button = section.BindControl<fluxui::controls::UI_PictureButton>(id);
    button->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(decal));
    button->UI_SetToolTip(fluxcore::Localize(tooltip));
    return button;
}

} // namespace IGD
