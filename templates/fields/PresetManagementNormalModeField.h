#pragma once
// A row of normal mode: the user fills the field's value for this ingest.
#include <string>

#include "templates/PresetFieldRef.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PresetManagementSection;

class PresetManagementNormalModeField : public wrangler::ui::SectionViewEx {
public:
    PresetManagementNormalModeField(std::string layoutName, PresetFieldRef field);
    const char* UI_GetClassName() const override { return "PresetManagementNormalModeField"; }

    const PresetFieldRef& GetField() const { return field_; }
    // Empties a text row and commits that; other rows ignore it.
    virtual void ClearText() {}

protected:
    fluxui::ui::UI_NodeRef CreateCustomControl(const Fnd::WString& className) override;
    // The preset section above the row, null while the row stands alone.
    PresetManagementSection* OwnerSection() const;

private:
    PresetFieldRef field_;
};

using PresetManagementNormalModeFieldRef = boost::intrusive_ptr<PresetManagementNormalModeField>;

} // namespace IGD
