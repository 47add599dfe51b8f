#include "pipeline/entry/IngestRequest.h"

#include "pipeline/entry/IngestFailure.h"

#include "Fnd/PathUtils.h"
#include "QL/RoughCut.h"
#include "fluxcore/Guid.h"
#include "fluxcore/ZString.h"
#include "pipeline/apply/ApplyFlags.h"
#include "pipeline/plan/CopyDecisions.h"
#include "pipeline/apply/MetadataFieldSetBuilder.h"
#include "pipeline/naming/OutputNames.h"
#include "pipeline/naming/RenameCounter.h"
#include "pipeline/checks/PreflightChain.h"
#include "pipeline/checks/TemplateChecks.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

using fluxcore::Localize;

constexpr int kErrorIcon = 16;

bool RefuseCounterOverflow(std::uint32_t startNumber) {
    return ShowIngestFailure(
        Localize("$$$/Quillon/Libraries/IngestDialog/CounterOverflowError=The counter starts at @0 and "
                 "would pass 4294967295, the largest number it can hold. Please set a lower start number.",
                 {Fnd::ToDecimal(std::max<std::uint32_t>(startNumber, 1))}));
}

bool IsOldFormatRoughCut(const Fnd::WString& path) {
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, nullptr, &extension);
    return Fnd::EqualsIgnoringASCIICase(extension, QL::kFcpFormatRoughCutExtension);
}

// Rough cuts of the old format are converted on import; the user agrees once for all of them.
// Rough cuts of the current format import as they are.
bool AgreeToConvertRoughCuts(const SelectedItemList& items) {
    for (const SelectedItemRef& item : items) {
        if (!IsOldFormatRoughCut(item->GetItemPath()))
            continue;
        return AppFrame::MessageBoxW(
                   Localize("$$$/Quillon/Libraries/IngestDialog/OldVersionRoughCut=Trying to import old "
                            "version RoughCut(s), do you want to convert it to new version?"),
                   Localize("$$$/Quillon/Libraries/IngestDialog/OldVersionRoughCutTitle=Convert RoughCut"),
                   AppFrame::kMessageBoxOKCancel, kErrorIcon, AppFrame::kResultOK) == AppFrame::kResultOK;
    }
    return true;
}

} // namespace

bool CheckIngestRequest(IIngestDialogData& session, fluxui::ui::UI_Node* parent, Fnd::Date now,
                        std::uint32_t firstCounter, std::uint32_t startNumber) {
    if (!CheckRenameTemplate(session, parent) || !CheckMetadataTemplate(session, parent))
        return false;
    if (session.GetSelectedItems().empty())
        return ShowIngestFailure(
            Localize("$$$/Quillon/Libraries/IngestDialog/IngestDialogNoSourceSelectedError=Please select a file "
                     "for ingest."));
    ComputeApplyFlags(session);
    if (session.IsRenameEnabled() &&
        !NextStartNumber(startNumber, std::uint64_t{firstCounter} - 1 + RenameCounterStep(session)))
        return RefuseCounterOverflow(startNumber);
    if (session.IsRenameEnabled())
        GenerateOutputNames(session, now, startNumber, firstCounter);
    const SelectedItemList items = session.GetSelectedItems();
    if (!AgreeToConvertRoughCuts(items))
        return false;
    for (const SelectedItemRef& item : items)
        item->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    if (session.IsImportOnly())
        return true;
    const DestinationList destinations = session.GetDestinations();
    if (destinations.empty())
        return ShowIngestFailure(Localize(
            "$$$/Quillon/Libraries/IngestDialog/IngestDialogNoDestinationError=Please select a destination."));
    return RunPreflightChain(session.GetSourceRoot(), items, destinations);
}

std::vector<Fnd::WString> FullItemPaths(const IIngestDialogData& session) {
    std::vector<Fnd::WString> paths;
    const Fnd::WString root = session.GetSourceRoot();
    for (const SelectedItemRef& item : session.GetSelectedItems())
        paths.push_back(item->GetFullItemPath(root));
    return paths;
}

bool CompleteIngestRequest(IIngestDialogData& session, const QL::MinimumMetadataResult& minimumMetadata) {
    QL::IngestCustomData customData;
    customData.minimumMetadata = minimumMetadata;
    if (session.IsMetadataEnabled())
        BuildMetadataFieldSet(session.GetMetadataPreset(), customData);
    session.SetCustomData(customData);
    return DecideSessionCopies(session);
}

} // namespace IGD
