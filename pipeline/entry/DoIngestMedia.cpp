#include <algorithm>
#include <cctype>
#include <memory>

#include "Browse/CardScanScope.h"
#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "IGD/IngestSequence.h"
#include "IGD/SelectedClipItem.h"
#include "Mid/Utilities.h"
#include "QL/ChecksumVerifyMode.h"
#include "QL/IngestMessages.h"
#include "pipeline/entry/ResolvedDestination.h"
#include "pipeline/plan/CopyDecisions.h"
#include "pipeline/gathering/GatherPathItems.h"
#include "pipeline/session/IngestDialogData.h"
#include "pipeline/plan/IngestPlan.h"
#include "pipeline/session/ItemFormats.h"
#include "pipeline/checks/PreflightChain.h"
#include "pipeline/plan/SingleFileSidecars.h"

namespace IGD {
namespace {

bool IsFile(const Fnd::WString& path) {
    return !path.empty() && Fnd::PathUtils::ExistsOnDisk(path, false) && !Fnd::PathUtils::IsDirectory(path);
}

bool IsFolder(const Fnd::WString& path) {
    return !path.empty() && Fnd::PathUtils::ExistsOnDisk(path, true);
}

// The one file the walk takes when no provider gave items: where it lies and what it is called.
struct GroupFile {
    Fnd::WString rootFolder;
    Fnd::WString itemPath;
    Fnd::WString stem;
    Fnd::WString extension;
};

enum class WalkResult { Done, NothingAtAll };

// A later path of a group names a file relative to the folder of the first; a host that passes an
// absolute path means that path.
Fnd::WString GroupPathOnDisk(const QL::IngestMediaGroup& group, const Fnd::WString& path) {
    if (path == group.paths.front() || path.starts_with(u'/'))
        return path;
    Fnd::WString drive;
    Fnd::WString directory;
    Fnd::PathUtils::SplitPath(group.paths.front(), &drive, &directory, nullptr, nullptr);
    return Mid::Utilities::CombinePaths(drive + directory, path);
}

// Walks the group's paths into the session. Only the first path may be a file on its own; later
// paths count through the providers.
WalkResult WalkGroupPaths(const QL::IngestMediaGroup& group, bool viaProvider, IIngestDialogData& session,
                          GroupFile& file, bool& anyItem) {
    // Paths of one request usually lie on one card: it is read once for all of them.
    const Browse::CardScanScope scans;
    // Once the session holds items it keeps them; asking again would copy a growing list per path.
    bool sessionHasItems = false;
    for (const Fnd::WString& path : group.paths) {
        if (viaProvider) {
            GatherPathItems(session, GroupPathOnDisk(group, path));
            anyItem = true;
        }
        sessionHasItems = sessionHasItems || !session.GetSelectedItems().empty();
        if (sessionHasItems)
            continue;
        if (path != group.paths.front()) {
            Fnd::PathUtils::SplitPath(path, nullptr, nullptr, &file.stem, &file.extension);
            if (!IsFile(Mid::Utilities::CombinePaths(file.rootFolder, path)))
                continue;
            file.itemPath = path;
        } else {
            // Without a usable first path the request means nothing, whatever follows it.
            if (!IsFile(path))
                return WalkResult::NothingAtAll;
            anyItem = true;
            Fnd::WString drive;
            Fnd::WString directory;
            Fnd::PathUtils::SplitPath(path, &drive, &directory, &file.stem, &file.extension);
            file.rootFolder = drive + directory;
            file.itemPath = file.stem + file.extension;
        }
        SelectedClipItemRef item(new SelectedClipItem(file.itemPath));
        AddExistingSidecars(*item, file.rootFolder, file.stem, file.extension);
        item->SetItemFormat(kPlainDirectoryItemFormat);
        item->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
        session.AddSelectedItem(item);
    }
    return WalkResult::Done;
}

std::uint32_t VerifyModeFor(const QL::IngestMediaGroup& group) {
    if (group.verifyMethod == u"FileSize")
        return QL::IngestTask::kVerifyFileSize;
    if (group.verifyMethod == u"BitByBit")
        return QL::IngestTask::kVerifyBitByBit;
    // A checksum the host names, in any case ("MD5", "xxh128"); any other text asks for the
    // checksum the user prefers.
    std::string name = Fnd::ToUTF8(group.verifyMethod);
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    if (const auto named = Checksum::AlgorithmNamed(name))
        return QL::IngestTask::ChecksumVerifyMode(*named);
    return StoredChecksumVerifyMode();
}

// Adds the group's destination to the session with its copy decisions. False when the request
// ends here: a failed check or a user who gave up.
bool AddCopyDestination(const QL::IngestMediaGroup& group, bool useGivenBatch, bool primary,
                        const fluxcore::utility::Guid& givenBatch, IIngestDialogData& session,
                        fluxcore::utility::Guid& workingBatch) {
    IngestDestinationRef destination(new IngestDestination);
    destination->SetDestinationPath(ResolvedDestination(group.destinationPath));
    destination->SetPrimary(primary);
    if (useGivenBatch) {
        workingBatch = givenBatch;
        destination->SetEnabled(true);
    } else {
        // Checked, but never enabled: its copy decisions are skipped, so no copy is submitted for
        // it. A host that wants the copy for certain passes its own batch.
        destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
        if (!RunPreflightChain(session.GetSourceRoot(), session.GetSelectedItems(),
                               DestinationList{destination}))
            return false;
    }
    session.AddDestination(destination);
    if (!DecideSessionCopies(session))
        return false;
    if (group.verify == u"Verify")
        session.SetVerifyMode(VerifyModeFor(group));
    return true;
}

bool WantsDestination(const QL::IngestMediaGroup& group) {
    return group.transferMode == u"Copy" && IsFolder(group.destinationPath);
}

} // namespace

void DoIngestMedia(const QL::IngestMediaGroup& group, bool useGivenBatch, bool primary, bool viaProvider,
                   fluxcore::utility::Guid batch) {
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    if (!session)
        throw Fnd::NullInterfaceException(
            Fnd::ToUTF8(group.paths.empty() ? Fnd::WString() : group.paths.front()));

    GroupFile file;
    bool anyItem = false;
    if (WalkGroupPaths(group, viaProvider, *session, file, anyItem) == WalkResult::NothingAtAll || !anyItem)
        return;
    if (session->GetSourceRoot().empty())
        session->SetSourceRoot(file.rootFolder);
    // A host's direct request names no templates.
    session->SetRenameEnabled(false);
    session->SetMetadataEnabled(false);
    session->SetRenameApplyScope(0);
    session->SetMetadataApplyScope(0);

    fluxcore::utility::Guid workingBatch = fluxcore::utility::Guid::CreateUnique();
    if (WantsDestination(group) &&
        !AddCopyDestination(group, useGivenBatch, primary, batch, *session, workingBatch))
        return;
    RunIngestPlan(session, workingBatch);
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia,
                                             QL::StartIngestMessage(workingBatch, {}), false);
}

} // namespace IGD
