#include "shell/summary/IngestSummaryDetail.h"

namespace IGD {

IngestSummaryDetail::IngestSummaryDetail() : IngestSummaryDetail("igdSummaryDetail") {}

IngestSummaryDetail::IngestSummaryDetail(std::string layoutName) : SectionViewEx(u"", std::move(layoutName)) {}

void IngestSummaryDetail::BindControls() {
    text_ = BindControl<fluxui::controls::UI_StaticText>("UI_StaticText");
}

} // namespace IGD
