#include "IngestSubmission.h"

#include "Fnd/PathUtils.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "IngestSources.h"
#include "Mid/Utilities.h"
#include "QL/CopySetting.h"
#include "QL/IngestMessages.h"
#include "QL/Utilities.h"
#include "pipeline/CopyDecisions.h"
#include "pipeline/IngestDialogData.h"
#include "pipeline/IngestPlan.h"
#include "pipeline/ItemFormats.h"
#include "pipeline/SingleFileSidecars.h"

namespace igd {
namespace {

const char16_t* VerifyMethodName(std::uint32_t verifyMode) {
    switch (verifyMode) {
    case QL::IngestTask::kVerifyFileSize:
        return u"FileSize";
    case QL::IngestTask::kVerifyBitByBit:
        return u"BitByBit";
    default:
        return u"MD5";
    }
}

IGD::SelectedItemRef FolderItem(const Fnd::WString& root, const Fnd::WString& name) {
    IGD::SelectedFolderItemRef item(new IGD::SelectedFolderItem(name));
    item->SetItemFormat(IGD::kPlainDirectoryItemFormat);
    std::vector<Fnd::WString> content;
    QL::Utilities::ExtendFolderPaths(Mid::Utilities::CombinePaths(root, name), content);
    for (const Fnd::WString& path : content)
        item->AddExtraPath(QL::Utilities::GetRelativePath(root, path));
    return item;
}

IGD::SelectedItemRef ClipItem(const Fnd::WString& root, const Fnd::WString& name) {
    IGD::SelectedClipItemRef item(new IGD::SelectedClipItem(name));
    item->SetIsSingleFileType(true);
    item->SetItemFormat(IGD::kPlainDirectoryItemFormat);
    item->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    Fnd::WString stem;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(name, nullptr, nullptr, &stem, &extension);
    IGD::AddExistingSidecars(*item, root, stem, extension);
    return item;
}

} // namespace

void SubmitThroughDoIngestMedia(const std::vector<Fnd::WString>& files, const Fnd::WString& destination,
                                std::uint32_t verifyMode, const fluxcore::utility::Guid& batch) {
    for (const Fnd::WString& file : files) {
        QL::IngestMediaGroup group;
        group.paths.push_back(file);
        if (!destination.empty()) {
            group.transferMode = u"Copy";
            group.destinationPath = destination;
            if (verifyMode != QL::IngestTask::kVerifyNone) {
                group.verify = u"Verify";
                group.verifyMethod = VerifyMethodName(verifyMode);
            }
        }
        IGD::DoIngestMedia(group, /*useGivenBatch=*/true, /*primary=*/true, /*viaProvider=*/false, batch);
    }
}

void SubmitThroughSessions(const std::vector<Fnd::WString>& sources,
                           const std::vector<Fnd::WString>& destinations, std::uint32_t verifyMode,
                           const fluxcore::utility::Guid& batch) {
    for (const SourceFolder& folder : GroupByFolder(sources)) {
        const IGD::IngestDialogDataRef session =
            IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
        session->SetSourceRoot(folder.folder);
        for (const Fnd::WString& name : folder.names) {
            const Fnd::WString full = Mid::Utilities::CombinePaths(folder.folder, name);
            session->AddSelectedItem(Fnd::PathUtils::IsDirectory(full) ? FolderItem(folder.folder, name)
                                                                       : ClipItem(folder.folder, name));
        }
        session->SetImportOnly(destinations.empty());
        for (std::size_t i = 0; i < destinations.size(); ++i) {
            IGD::IngestDestinationRef destination(new IGD::IngestDestination);
            destination->SetDestinationPath(destinations[i]);
            destination->SetPrimary(i == 0);
            destination->SetEnabled(true);
            session->AddDestination(destination);
        }
        if (!destinations.empty())
            session->SetVerifyMode(verifyMode);
        IGD::CopyDecisionMap decisions;
        if (!IGD::BuildCopyDecisions(session->GetSourceRoot(), session->GetSelectedItems(),
                                     session->GetDestinations(), decisions))
            return;
        session->SetCopyDecisions(decisions);
        IGD::RunIngestPlan(session, batch);
    }
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::StartIngestMessage(batch, {}),
                                             false);
}

} // namespace igd
