#include "templates/rename/RenameTemplateSampleSection.h"

namespace IGD {

RenameTemplateSampleSection::RenameTemplateSampleSection() : SectionViewEx({}, "igdRenameTemplateSample") {}

void RenameTemplateSampleSection::BindControls() {
    sampleText_ = BindControl<fluxui::controls::UI_StaticText>("SampleText");
}

void RenameTemplateSampleSection::SetSampleText(const Fnd::WString& text) {
    // A sample asked for before the build has nowhere to go; the next one after it will show.
    if (sampleText_)
        sampleText_->SetValue(text);
}

Fnd::WString RenameTemplateSampleSection::GetSampleText() const {
    return sampleText_ ? sampleText_->GetValue() : Fnd::WString();
}

} // namespace IGD
