#include "shell/summary/IngestSummarySection.h"

#include "Fnd/StationUtils.h"
#include "QL/IngestMessages.h"
#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "shell/summary/IngestSummaryDetail.h"
#include "transfer/SectionTree.h"

namespace IGD {

IngestSummarySection::IngestSummarySection()
    : SectionViewEx(fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/IngestSummaryTitle=Ingest Options Summary"),
                    "") {
    // Measured now: open, a titled section keeps a margin under its header even with no lines,
    // and the tree's walk measures only sections that have children.
    UpdateSectionLayout();
}

IngestSummarySection::~IngestSummarySection() {
    // Never added: the bin is named in the dialog's caption. Removing is harmless and keeps the
    // section safe should a later version listen.
    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
}

void IngestSummarySection::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    const auto* answer = Fnd::MessageCast<QL::UpdateTargetBinMessage>(message);
    if (!answer || answer->requestOne != requestOne_ || answer->requestTwo != requestTwo_)
        return;
    RemoveAllChildSections();
    boost::intrusive_ptr<IngestSummaryDetail> detail(new IngestSummaryDetail);
    wrangler::ui::BuildSectionTree(*detail, *IngestResources::GetResourceManager(), IngestResources::GetDrawSupplier());
    detail->UI_Show(true);
    if (fluxui::controls::UI_StaticText* text = detail->GetText())
        text->SetValue(answer->binName);
    InsertChildSection(detail);
    UpdateSectionLayout();
}

} // namespace IGD
