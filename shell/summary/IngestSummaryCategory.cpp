#include "shell/summary/IngestSummaryCategory.h"

namespace IGD {

IngestSummaryCategory::IngestSummaryCategory() : IngestSummaryDetail("igdSummaryCategory") {}

void IngestSummaryCategory::BindControls() {
    IngestSummaryDetail::BindControls();
    // A heading is read, never acted on: greyed like any disabled text.
    text_->SetDisabled(true);
}

} // namespace IGD
