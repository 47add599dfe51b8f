#pragma once
// The line under the rename header that shows what a name would look like, in both modes.
#include <boost/intrusive_ptr.hpp>

#include "fluxui/controls/UI_StaticText.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class RenameTemplateSampleSection : public wrangler::ui::SectionViewEx {
public:
    RenameTemplateSampleSection();
    const char* UI_GetClassName() const override { return "RenameTemplateSampleSection"; }

    void SetSampleText(const Fnd::WString& text);
    Fnd::WString GetSampleText() const;

protected:
    void BindControls() override;

private:
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> sampleText_;
};

} // namespace IGD
