#pragma once
#include <boost/intrusive_ptr.hpp>

#include "fluxui/controls/UI_OutlineBox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "shell/AutoHintTextEdit.h"
#include "templates/fields/PresetManagementEditModeField.h"

namespace IGD {

// A rename row of edit mode. Counters, dates and times choose their mask or pattern in a popup;
// for dates and times the same popup also chooses between the creation and the ingest kind.
// Custom text is typed; a File Name row has nothing to choose.
class RenameTemplateEditModeField : public PresetManagementEditModeField {
public:
    explicit RenameTemplateEditModeField(PresetFieldRef field);
    const char* UI_GetClassName() const override { return "RenameTemplateEditModeField"; }

    void TakeFocus() override;
    // The sample follows the edited formats.
    void FieldChanged() override;

protected:
    void BindControls() override;
    void WireControls() override;

private:
    void FillPopup();
    // Sets kind and format from the popup's entry; an entry beyond the lists is a fault and throws
    // std::out_of_range.
    void EntryChosen(int index);
    void TextChanged();

    boost::intrusive_ptr<fluxui::controls::UI_Popup> popup_;
    boost::intrusive_ptr<fluxui::controls::UI_OutlineBox> outlineBox_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> staticText_;
    boost::intrusive_ptr<AutoHintTextEdit> hintEdit_;
};

} // namespace IGD
