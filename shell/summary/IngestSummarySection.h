#pragma once
// The first section of the settings pane: a header with no lines under it. The target bin reaches
// the person through the dialog's caption; the line that would name it here is kept unconnected
// (its request ids stay zero, so no answer is ever taken).
#include "Fnd/Listener.h"
#include "fluxcore/Guid.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class IngestSummarySection : public wrangler::ui::SectionViewEx, public Fnd::Listener {
public:
    IngestSummarySection();
    ~IngestSummarySection() override;
    const char* UI_GetClassName() const override { return "IngestSummarySection"; }

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

protected:
    void BindControls() override {}

private:
    fluxcore::utility::Guid requestOne_;
    fluxcore::utility::Guid requestTwo_;
};

} // namespace IGD
