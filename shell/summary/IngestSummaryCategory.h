#pragma once
// A heading line of the summary: the detail's text, greyed, in the layout "igdSummaryCategory".
// Nothing makes one yet.
#include "shell/summary/IngestSummaryDetail.h"

namespace IGD {

class IngestSummaryCategory : public IngestSummaryDetail {
public:
    IngestSummaryCategory();
    const char* UI_GetClassName() const override { return "IngestSummaryCategory"; }

protected:
    void BindControls() override;
};

} // namespace IGD
