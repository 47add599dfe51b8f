// The usage events the plan sends, and that it runs the same without them.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "EncoderHost/IPreset.h"
#include "HostApp/ApplicationType.h"
#include "PlanTestSupport.h"
#include "Plug/IExporterModule.h"
#include "pipeline/IngestPlan.h"
#include "support/CountedUnknown.h"

namespace igd::test {
namespace {

using Strings = std::vector<std::string>;

class FakeExporter : public CountedUnknown<Plug::IExporterModule> {
public:
    Fnd::WString GetDisplayName() const override { return u"H.264 (MP4)"; }
    Fnd::WString GetFormatName() const override { return u"H.264"; }
};

class FakePreset : public CountedUnknown<EncoderHost::IPreset> {
public:
    Fnd::WString GetName() const override { return u"Match Source \u2013 High"; }
};

// A logger that wants no events.
class DecliningLogger : public fluxcore::config::UsageLogger {
public:
    fluxcore::config::UsageEventRef NewEvent(std::string_view, std::string_view, std::string_view,
                                             std::string_view) override {
        ++asked;
        return nullptr;
    }
    int asked = 0;
};

class UsageReportTest : public PlanTest {
protected:
    UsageReportTest() : logger_(std::make_shared<RecordingUsageLogger>()) {
        tree.MakeFile("src/A001.MOV");
        tree.MakeFile("src/A002.MOV");
        logger_->SetProbe([this] { return tasks->Tasks().size(); });
    }

    void Install() { fluxcore::config::UsageLogger::Set(logger_); }

    IGD::IngestDialogDataRef TwoClipsToTwoCopies(unsigned renameScope) {
        auto session = NewSessionOverSource();
        session->SetRenameApplyScope(renameScope);
        AddClip(*session, "A001.MOV", {}, "Shot_01");
        AddClip(*session, "A002.MOV", {}, "Shot_02");
        AddDestination(*session, "p", true, /*applyRename=*/true, /*applyMetadata=*/true);
        auto backup = AddDestination(*session, "b", false, /*applyRename=*/renameScope == 0);
        backup->SetSubFolder(u"day1");
        return session;
    }

    std::shared_ptr<RecordingUsageLogger> logger_;
};

TEST_F(UsageReportTest, WithoutALoggerThePlanSubmitsTheSame) {
    auto session = TwoClipsToTwoCopies(1);
    DecideAndRun(session);
    const std::vector<RecordedTask> without = tasks->Tasks();
    tasks->Clear();

    Install();
    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(without.size(), 2u);
    ASSERT_EQ(tasks->Tasks().size(), 2u);
    EXPECT_EQ(logger_->Sent().size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(tasks->Tasks()[i].Copy().units.size(), without[i].Copy().units.size());
        EXPECT_EQ(tasks->Tasks()[i].Copy().addToProject, without[i].Copy().addToProject);
    }
}

TEST_F(UsageReportTest, ALoggerThatDeclinesEveryEventChangesNothing) {
    auto declining = std::make_shared<DecliningLogger>();
    fluxcore::config::UsageLogger::Set(declining);
    auto session = TwoClipsToTwoCopies(0);
    Transcode(*session->GetDestinations()[1]);

    DecideAndRun(session);

    EXPECT_EQ(declining->asked, 2);
    EXPECT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_EQ(tasks->Count(TaskKind::Transcode), 2u);
}

TEST_F(UsageReportTest, EachDestinationSendsOneEventAfterItsTasksWithTheScopeShowingThrough) {
    Install();
    auto session = TwoClipsToTwoCopies(1);

    DecideAndRun(session);

    ASSERT_EQ(logger_->Sent().size(), 2u);
    const RecordingUsageLogger::Event& primary = logger_->Sent()[0];
    EXPECT_EQ(primary.category, "Ingest");
    EXPECT_EQ(primary.subcategory, "IngestSetting");
    EXPECT_EQ(primary.name, "PrimaryDestSetting");
    EXPECT_EQ(primary.extra, "");
    EXPECT_EQ(RecordingUsageLogger::Values(primary),
              (Strings{"MetadataPreset:Enabled", "RenamePreset:Enabled", "UseSubFolder:No",
                       "SelectItemCount:2", "DestinationCount:2", "IngestType:Copy"}));
    EXPECT_EQ(primary.attributes[0].first, "MetadataPreset");
    EXPECT_EQ(primary.attributes[5].first, "IngestType");
    EXPECT_EQ(primary.probeAtSend, 1u);

    const RecordingUsageLogger::Event& backup = logger_->Sent()[1];
    EXPECT_EQ(backup.name, "BackupDestSetting1");
    EXPECT_EQ(RecordingUsageLogger::Values(backup),
              (Strings{"MetadataPreset:Disabled", "RenamePreset:Disabled", "UseSubFolder:Yes",
                       "SelectItemCount:2", "DestinationCount:2", "IngestType:Copy"}));
    EXPECT_EQ(backup.probeAtSend, 2u);
}

TEST_F(UsageReportTest, BackupsAreNumberedByPositionAndTranscodesReportTheirSetting) {
    Install();
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    // The primary flag does not name the event: the first in the list is the primary's.
    AddDestination(*session, "b", false);
    auto transcoding = Transcode(*AddDestination(*session, "t", true));
    transcoding->exporter = Fnd::InterfaceRef<Plug::IExporterModule>(new FakeExporter);
    transcoding->preset = Fnd::InterfaceRef<EncoderHost::IPreset>(new FakePreset);
    Transcode(*AddDestination(*session, "s", false), /*concatenate=*/true);

    DecideAndRun(session);

    ASSERT_EQ(logger_->Sent().size(), 3u);
    EXPECT_EQ(logger_->Sent()[0].name, "PrimaryDestSetting");
    EXPECT_EQ(logger_->Sent()[1].name, "BackupDestSetting1");
    EXPECT_EQ(logger_->Sent()[2].name, "BackupDestSetting2");
    const Strings transcode = RecordingUsageLogger::Values(logger_->Sent()[1]);
    EXPECT_EQ(Strings(transcode.begin() + 5, transcode.end()),
              (Strings{"IngestType:Transcode", "TranscodeFormat:H.264",
                       "TranscodePresetName:Match Source \xE2\x80\x93 High", "Concatenation:No"}));
    const Strings stitch = RecordingUsageLogger::Values(logger_->Sent()[2]);
    EXPECT_EQ(Strings(stitch.begin() + 5, stitch.end()),
              (Strings{"IngestType:Transcode", "TranscodeFormat:", "TranscodePresetName:Custom",
                       "Concatenation:Yes"}));
    EXPECT_EQ(logger_->Sent()[2].attributes.back().first, "Concatenation");
}

TEST_F(UsageReportTest, TheEventOfADestinationWithoutDecisionsIsSentAsACopy) {
    Install();
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "p", true);
    AddDestination(*session, "b1", false)->SetEnabled(false);
    AddDestination(*session, "b2", false);

    DecideAndRun(session);

    EXPECT_EQ(tasks->Tasks().size(), 1u);
    EXPECT_EQ(logger_->Opened(), 2u);
    ASSERT_EQ(logger_->Sent().size(), 2u);
    EXPECT_EQ(logger_->Sent()[1].name, "BackupDestSetting1");
    EXPECT_EQ(RecordingUsageLogger::Values(logger_->Sent()[1]).back(), "IngestType:Copy");
    EXPECT_EQ(logger_->Sent()[1].probeAtSend, 1u);
}

TEST_F(UsageReportTest, AnImportOnlyRequestSendsOneEventOfTheSessionsSwitches) {
    Install();
    auto session = NewSessionOverSource();
    session->SetRenameEnabled(true);
    AddClip(*session, "A001.MOV");
    AddClip(*session, "A002.MOV");
    AddClip(*session, "A002.MOV");

    DecideAndRun(session);

    ASSERT_EQ(logger_->Sent().size(), 1u);
    EXPECT_EQ(logger_->Sent()[0].name, "ImportOnlySetting");
    EXPECT_EQ(RecordingUsageLogger::Values(logger_->Sent()[0]),
              (Strings{"MetadataPreset:Disabled", "RenamePreset:Enabled", "IngestType:ImportOnly",
                       "SelectItemCount:3"}));
}

class HostedUsageTest : public UsageReportTest, public ::testing::WithParamInterface<int> {};

TEST_P(HostedUsageTest, AHostedApplicationSendsNothing) {
    Install();
    HostApp::SetApplicationType(GetParam());
    auto copying = TwoClipsToTwoCopies(0);
    DecideAndRun(copying);
    auto importing = NewSessionOverSource();
    AddClip(*importing, "A001.MOV");
    DecideAndRun(importing);

    EXPECT_EQ(tasks->Count(TaskKind::Copy), 2u);
    EXPECT_EQ(tasks->Count(TaskKind::Import), 1u);
    EXPECT_EQ(logger_->Opened(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostedUsageTest, ::testing::Values(5, 8));

} // namespace
} // namespace igd::test
