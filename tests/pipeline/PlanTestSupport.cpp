#include "PlanTestSupport.h"

#include "AppFrame/DocumentManager.h"
#include "Fnd/RunLoop.h"
#include "HostApp/ApplicationType.h"
#include "fluxcore/ApplicationName.h"
#include "IGD/IngestApi.h"
#include "fluxcore/UsageLogger.h"
#include "pipeline/plan/CopyDecisions.h"
#include "pipeline/session/IngestDialogData.h"
#include "pipeline/plan/IngestPlan.h"

namespace igd::test {

PlanTest::PlanTest() : settings(*IGD::IngestSettingsController::GetInstance()) {
    ResetGlobalState();
    tree.MakeFolder("src");
}

PlanTest::~PlanTest() {
    ResetGlobalState();
}

void PlanTest::ResetGlobalState() {
    HostApp::SetApplicationType(0);
    fluxcore::config::SetApplicationName({});
    AppFrame::DocumentManager::SetInstance(nullptr);
    IGD::SetGenerateAutomaticFileNameCallback({});
    IGD::SetIngestCopyOutputFileNameCallback({});
    fluxcore::config::UsageLogger::Set(nullptr);
    Fnd::GetDefaultQueue().Drain();
    IGD::IngestSettingsController::GetInstance()->ResetToDefaults();
}

IGD::IngestDialogDataRef PlanTest::NewSession() {
    return IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
}

IGD::IngestDialogDataRef PlanTest::SessionWithClips(std::initializer_list<std::string_view> itemPaths) {
    IGD::IngestDialogDataRef session = NewSession();
    session->SetSourceRoot(tree.Path("src"));
    for (std::string_view itemPath : itemPaths) {
        tree.MakeFile(std::string("src/").append(itemPath));
        AddClip(*session, itemPath);
    }
    return session;
}

IGD::SelectedClipItemRef PlanTest::AddClip(IGD::IIngestDialogData& session, std::string_view itemPath,
                                           std::initializer_list<std::string_view> extras,
                                           std::string_view outputName, bool single) {
    IGD::SelectedClipItemRef clip(new IGD::SelectedClipItem(Fnd::FromUTF8(itemPath)));
    for (std::string_view extra : extras)
        clip->AddExtraPath(Fnd::FromUTF8(extra));
    clip->SetOutputName(Fnd::FromUTF8(outputName));
    clip->SetIsSingleFileType(single);
    clip->SetItemFormat(u"com.veltrix.Kestrel.WinProviderDirectory");
    clip->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    session.AddSelectedItem(clip);
    return clip;
}

IGD::SelectedFolderItemRef PlanTest::AddFolder(IGD::IIngestDialogData& session, std::string_view itemPath,
                                               std::initializer_list<std::string_view> extras) {
    IGD::SelectedFolderItemRef folder(new IGD::SelectedFolderItem(Fnd::FromUTF8(itemPath)));
    for (std::string_view extra : extras)
        folder->AddExtraPath(Fnd::FromUTF8(extra));
    folder->SetItemFormat(u"com.veltrix.Kestrel.WinProviderDirectory");
    session.AddSelectedItem(folder);
    return folder;
}

IGD::IngestDestinationRef PlanTest::AddDestination(IGD::IIngestDialogData& session, std::string_view folder,
                                                   bool primary, bool applyRename, bool applyMetadata) {
    IGD::IngestDestinationRef destination(new IGD::IngestDestination);
    destination->SetDestinationPath(tree.MakeFolder(folder));
    destination->SetEnabled(true);
    destination->SetPrimary(primary);
    destination->SetApplyRename(applyRename);
    destination->SetApplyMetadata(applyMetadata);
    session.AddDestination(destination);
    return destination;
}

std::shared_ptr<QL::IngestTask::TranscodeSetting> PlanTest::Transcode(IGD::IngestDestination& destination,
                                                                      bool concatenate) {
    auto setting = std::make_shared<QL::IngestTask::TranscodeSetting>();
    setting->enabled = true;
    setting->concatenate = concatenate;
    setting->presetName = u"H.264 Match Source";
    setting->concatenateName = u"Stitched";
    destination.SetTranscodeSetting(setting);
    return setting;
}

bool PlanTest::Decide(IGD::IIngestDialogData& session) {
    IGD::CopyDecisionMap decisions;
    const bool decided = IGD::BuildCopyDecisions(session.GetSourceRoot(), session.GetSelectedItems(),
                                                 session.GetDestinations(), decisions);
    session.SetCopyDecisions(decisions);
    return decided;
}

void PlanTest::DecideAndRun(const IGD::IngestDialogDataRef& session) {
    ASSERT_TRUE(Decide(*session));
    IGD::RunIngestPlan(session, batch_);
}

QL::IngestCustomData PlanTest::CustomDataWithMetadata() {
    QL::IngestCustomData data;
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->values[u"Scene"] = u"12";
    data.metadataSets.push_back(set);
    data.minimumMetadata.keywords.insert(u"beach");
    return data;
}

} // namespace igd::test
