#include "pipeline/gathering/PrepareSessionForFile.h"

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "pipeline/plan/CopyDecisions.h"
#include "pipeline/gathering/GatherPathItems.h"
#include "pipeline/session/ItemFormats.h"
#include "pipeline/apply/MetadataFieldSetBuilder.h"
#include "pipeline/naming/OutputNames.h"
#include "pipeline/plan/SingleFileSidecars.h"
#include "settings/IngestSettingsController.h"

namespace IGD {
namespace {

// The file as a clip of its own, with the sidecars beside it. False when the path names no file.
bool AddSingleFileItem(const Fnd::WString& path, IIngestDialogData& session) {
    if (path.empty() || !Fnd::PathUtils::ExistsOnDisk(path, false) || Fnd::PathUtils::IsDirectory(path))
        return false;
    Fnd::WString drive;
    Fnd::WString directory;
    Fnd::WString stem;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(path, &drive, &directory, &stem, &extension);
    const Fnd::WString root = drive + directory;
    const Fnd::WString fileName = stem + extension;

    SelectedClipItemRef item(new SelectedClipItem(fileName));
    AddExistingSidecars(*item, root, stem, extension);
    item->SetItemFormat(kPlainDirectoryItemFormat);
    item->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    item->SetIsSingleFileType(true);
    item->SetClipName(fileName);
    session.AddSelectedItem(item);
    session.SetSourceRoot(root);
    return true;
}

} // namespace

void PrepareSessionForFile(const Fnd::WString& path, IIngestDialogData& session, const Fnd::Date& date,
                           bool gather, bool forceNames) {
    if (gather)
        GatherPathItems(session, path);
    if (session.GetSelectedItems().empty() && !AddSingleFileItem(path, session))
        return;
    // Camera cards keep their clips' names unless the host insists: their sidecars and folder
    // structure refer to them.
    const bool wantNames =
        forceNames || session.GetSelectedItems().front()->GetItemFormat() == kPlainDirectoryItemFormat;
    if (wantNames)
        GenerateOutputNames(session, date,
                            IngestSettingsController::GetInstance()->GetUserDefAutoIncStartNumber());
    // The decisions look at the renamed targets, so they come after the names.
    if (!DecideSessionCopies(session))
        return;
    if (session.IsMetadataEnabled()) {
        QL::IngestCustomData customData;
        BuildMetadataFieldSet(session.GetMetadataPreset(), customData);
        session.SetCustomData(customData);
    }
}

} // namespace IGD
