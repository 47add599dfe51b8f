#include "templates/fields/FieldRowControls.h"

#include "shell/AutoHintTextEdit.h"

namespace IGD {

fluxui::ui::UI_NodeRef CreateFieldRowControl(const Fnd::WString& className) {
    if (className == u"AutoHintTextEdit")
        return fluxui::ui::UI_NodeRef(new AutoHintTextEdit);
    return {};
}

} // namespace IGD
