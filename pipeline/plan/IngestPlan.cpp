#include "pipeline/plan/IngestPlan.h"

#include "host/HostKind.h"
#include "pipeline/naming/RenameTargets.h"
#include "pipeline/plan/SubmitCopy.h"
#include "pipeline/plan/SubmitImportOnly.h"
#include "pipeline/plan/SubmitTranscode.h"
#include "pipeline/usage/UsageReport.h"

namespace IGD {
namespace {

struct PlanInputs {
    Fnd::WString sourceRoot;
    SelectedItemList items;
    std::uint32_t verifyMode;
    DestinationList destinations;
    QL::IngestCustomData customData;
    const CopyDecisionMap* copyDecisions;
};

const CopyActionMap* FindDecisions(const CopyDecisionMap* all, const IngestDestinationRef& destination) {
    if (all == nullptr)
        return nullptr;
    const auto found = all->find(destination);
    return found == all->end() ? nullptr : &found->second;
}

void SubmitForDestinations(const PlanInputs& in, const fluxcore::utility::Guid& batch) {
    const bool hosted = IsKilnHosted();
    std::size_t index = 0;
    for (const IngestDestinationRef& destination : in.destinations) {
        // A hosted application lists its destinations in order of need: the first one it has
        // switched off ends the request.
        if (hosted && !destination->IsEnabled())
            return;
        // Named by position, whatever the primary flag says. Sent when it goes out of scope, after
        // this destination's tasks.
        const std::size_t position = index++;
        fluxcore::config::UsageEventRef event;
        if (!hosted)
            event = OpenDestinationUsageEvent(DestinationUsageEventName(position), *destination,
                                              in.items.size(), in.destinations.size());

        const auto setting = destination->GetTranscodeSetting();
        const bool transcoding = setting && setting->enabled && !hosted;
        if (!transcoding) {
            ReportCopyUsage(event);
            const CopyActionMap* decisions = FindDecisions(in.copyDecisions, destination);
            // No decisions means nobody answered for this destination: it and all after it are given
            // up, what was submitted before stays.
            if (decisions == nullptr)
                return;
            SubmitCopyForDestination(batch, in.sourceRoot, in.items, in.customData, *destination,
                                     in.verifyMode, *decisions);
            continue;
        }
        ReportTranscodeUsage(event, *setting);
        if (setting->concatenate)
            SubmitConcatenateForDestination(batch, in.sourceRoot, in.items, in.customData, *destination);
        else
            SubmitTranscodeForDestination(batch, in.sourceRoot, in.items, in.customData, *destination);
    }
}

void SubmitImportOnly(const IIngestDialogData& session, const PlanInputs& in,
                      const fluxcore::utility::Guid& batch) {
    if (!IsKilnHosted())
        SendImportOnlyUsage(session, in.items.size());
    const bool writeNeeded = !in.customData.metadataSets.empty() || AnyItemHasOutputName(in.items);
    // The document manager is asked only when something needs writing. A project on a server
    // takes names and metadata through the import itself.
    if (!writeNeeded || IsVaultMode())
        SubmitImportForItems(batch, in.sourceRoot, in.items, in.customData);
    else
        SubmitUpdateMetadataForItems(batch, in.sourceRoot, in.items, in.customData);
}

} // namespace

void RunIngestPlan(IngestDialogDataRef session, const fluxcore::utility::Guid& batch) {
    if (!session)
        return;
    const PlanInputs in{session->GetSourceRoot(),   session->GetSelectedItems(), session->GetVerifyMode(),
                        session->GetDestinations(), session->GetCustomData(),    session->GetCopyDecisions()};
    if (in.destinations.empty())
        SubmitImportOnly(*session, in, batch);
    else
        SubmitForDestinations(in, batch);
}

} // namespace IGD
