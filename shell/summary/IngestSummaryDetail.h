#pragma once
// One line of the summary: a text in the layout "igdSummaryDetail".
#include "fluxui/controls/UI_StaticText.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class IngestSummaryDetail : public wrangler::ui::SectionViewEx {
public:
    IngestSummaryDetail();
    const char* UI_GetClassName() const override { return "IngestSummaryDetail"; }
    fluxui::controls::UI_StaticText* GetText() const { return text_.get(); }

protected:
    explicit IngestSummaryDetail(std::string layoutName);
    void BindControls() override;

    boost::intrusive_ptr<fluxui::controls::UI_StaticText> text_;
};

} // namespace IGD
