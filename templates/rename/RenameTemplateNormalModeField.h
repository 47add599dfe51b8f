#pragma once
#include <boost/intrusive_ptr.hpp>

#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_OutlineBox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "shell/AutoHintTextEdit.h"
#include "templates/fields/PresetManagementNormalModeField.h"

namespace IGD {

class RenameTemplateSection;

// A rename row of normal mode: a label for the field's kind and, by kind, the value it gives the
// name (a counter mask, a date pattern, "File Name"), an edit for custom text, or the start number
// of the custom counter. Typed text goes into the preset's own field, so it reaches the ingest
// without a save.
class RenameTemplateNormalModeField : public PresetManagementNormalModeField {
public:
    explicit RenameTemplateNormalModeField(PresetFieldRef field);
    const char* UI_GetClassName() const override { return "RenameTemplateNormalModeField"; }

    void ClearText() override;

protected:
    void BindControls() override;
    void WireControls() override;

private:
    void TextTyped();
    void StartNumberEdited();
    RenameTemplateSection* RenameSection() const;
    // The sample and the Clear Text Fields row follow every committed change.
    void AfterValueChange() const;

    boost::intrusive_ptr<fluxui::controls::UI_OutlineBox> outlineBox_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> staticText_;
    boost::intrusive_ptr<AutoHintTextEdit> hintEdit_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> typeLabel_;
    boost::intrusive_ptr<fluxui::controls::UI_NumberEdit> startNumber_;
};

} // namespace IGD
