#pragma once
#include <boost/intrusive_ptr.hpp>

#include "fluxui/controls/UI_PicturePopup.h"
#include "templates/fields/PresetManagementAddFieldSection.h"

namespace IGD {

// Under the rename rows of edit mode: a picture popup that works as a menu of the field kinds a
// user can add, beside Save, Save As and Cancel.
class RenameTemplateAddFieldSection : public PresetManagementAddFieldSection {
public:
    RenameTemplateAddFieldSection();
    const char* UI_GetClassName() const override { return "RenameTemplateAddFieldSection"; }

    fluxui::controls::UI_PicturePopup& GetAddPopup() const { return *addPopup_; }

protected:
    void BindControls() override;
    void WireControls() override;

private:
    // Adds a field of the kind of the entry, and leaves the popup showing no choice.
    void KindPicked();
    // A hosted application leaves the counters out, so its entries start two kinds further on.
    int FirstKindOffered() const;

    boost::intrusive_ptr<fluxui::controls::UI_PicturePopup> addPopup_;
};

} // namespace IGD
