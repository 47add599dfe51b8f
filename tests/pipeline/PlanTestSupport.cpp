#include "PlanTestSupport.h"

#include "AppFrame/DocumentManager.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "pipeline/CopyDecisions.h"
#include "pipeline/IngestDialogData.h"
#include "pipeline/IngestPlan.h"

namespace igd::test {

class RecordingUsageEvent : public fluxcore::config::UsageEvent {
public:
    RecordingUsageEvent(RecordingUsageLogger& logger, RecordingUsageLogger::Event event)
        : logger_(logger), event_(std::move(event)) {}
    ~RecordingUsageEvent() override {
        if (logger_.probe_)
            event_.probeAtSend = logger_.probe_();
        logger_.sent_.push_back(std::move(event_));
    }
    void AddAttribute(std::string_view key, std::string_view value) override {
        event_.attributes.emplace_back(key, value);
    }

private:
    RecordingUsageLogger& logger_;
    RecordingUsageLogger::Event event_;
};

fluxcore::config::UsageEventRef RecordingUsageLogger::NewEvent(std::string_view category,
                                                               std::string_view subcategory,
                                                               std::string_view name,
                                                               std::string_view extra) {
    ++opened_;
    Event event;
    event.category = category;
    event.subcategory = subcategory;
    event.name = name;
    event.extra = extra;
    return std::make_shared<RecordingUsageEvent>(*this, std::move(event));
}

std::vector<std::string> RecordingUsageLogger::Values(const Event& event) {
    std::vector<std::string> values;
    for (const auto& [key, value] : event.attributes)
        values.push_back(value);
    return values;
}

IngestMessageRecorder::IngestMessageRecorder() {
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this);
}

IngestMessageRecorder::~IngestMessageRecorder() {
    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
}

void IngestMessageRecorder::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    ids_.push_back(message.GetMessageID());
    if (const auto* start = Fnd::MessageCast<QL::StartIngestMessage>(message))
        starts_.push_back(*start);
}

const std::vector<Fnd::MessageID>& IngestMessageRecorder::Drain() {
    Fnd::GetDefaultQueue().Drain();
    return ids_;
}

PlanTest::PlanTest() {
    ResetGlobalState();
    tree.MakeFolder("src");
}

PlanTest::~PlanTest() {
    ResetGlobalState();
}

void PlanTest::ResetGlobalState() {
    HostApp::SetApplicationType(0);
    AppFrame::DocumentManager::SetInstance(nullptr);
    IGD::SetGenerateAutomaticFileNameCallback({});
    IGD::SetIngestCopyOutputFileNameCallback({});
    fluxcore::config::UsageLogger::Set(nullptr);
    Fnd::GetDefaultQueue().Drain();
}

IGD::IngestDialogDataRef PlanTest::NewSession() {
    return IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
}

IGD::IngestDialogDataRef PlanTest::NewSessionOverSource() {
    IGD::IngestDialogDataRef session = NewSession();
    session->SetSourceRoot(tree.Path("src"));
    return session;
}

IGD::SelectedClipItemRef PlanTest::AddClip(IGD::IIngestDialogData& session, std::string_view itemPath,
                                           std::initializer_list<std::string_view> extras,
                                           std::string_view outputName, bool single) {
    IGD::SelectedClipItemRef clip(new IGD::SelectedClipItem(W(itemPath)));
    for (std::string_view extra : extras)
        clip->AddExtraPath(W(extra));
    clip->SetOutputName(W(outputName));
    clip->SetIsSingleFileType(single);
    clip->SetItemFormat(u"com.veltrix.Kestrel.WinProviderDirectory");
    clip->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    session.AddSelectedItem(clip);
    return clip;
}

IGD::SelectedFolderItemRef PlanTest::AddFolder(IGD::IIngestDialogData& session, std::string_view itemPath,
                                               std::initializer_list<std::string_view> extras) {
    IGD::SelectedFolderItemRef folder(new IGD::SelectedFolderItem(W(itemPath)));
    for (std::string_view extra : extras)
        folder->AddExtraPath(W(extra));
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
    set->presetName = u"Shoot";
    set->schemaNamespace = u"http://ns.example/Shoot/";
    set->values[u"Scene"] = u"12";
    data.metadataSets.push_back(set);
    data.minimumMetadata.keywords.insert(u"beach");
    return data;
}

} // namespace igd::test
