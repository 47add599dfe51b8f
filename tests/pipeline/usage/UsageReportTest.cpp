// The usage events the plan sends, that it runs the same without them, and the log file a host
// can have them written to.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <utility>

#include "EncoderHost/IPreset.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "Plug/IExporterModule.h"
#include "fluxcore/UsageLogFile.h"
#include "fluxcore/UsageLogger.h"
#include "pipeline/plan/IngestPlan.h"
#include "support/CountedUnknown.h"

namespace igd::test {
namespace {

using fluxcore::config::UsageLogFile;

// Keeps every event it sent, with the number of submissions made by then.
class RecordingUsageLogger : public fluxcore::config::UsageLogger {
public:
    struct Event {
        std::string name; // category/subcategory/name, then the extra text if any
        Strings values;   // a value whose key is not its own prefix shows the key too
        std::size_t tasksAtSend = 0;
    };

    explicit RecordingUsageLogger(const RecordingTaskService& tasks) : tasks_(tasks) {}

    fluxcore::config::UsageEventRef NewEvent(std::string_view category, std::string_view subcategory,
                                             std::string_view name, std::string_view extra) override {
        std::string full = std::string(category).append("/").append(subcategory).append("/").append(name);
        return std::make_shared<Pending>(*this, extra.empty() ? full : full.append(" ").append(extra));
    }

    std::vector<Event> sent;

private:
    // Sent when the plan lets go of it, as a real event is.
    struct Pending : fluxcore::config::UsageEvent {
        Pending(RecordingUsageLogger& logger, std::string name) : logger(logger) {
            event.name = std::move(name);
        }
        ~Pending() override {
            event.tasksAtSend = logger.tasks_.Tasks().size();
            logger.sent.push_back(std::move(event));
        }
        void AddAttribute(std::string_view key, std::string_view value) override {
            const bool prefixed = value.substr(0, key.size() + 1) == std::string(key) + ":";
            event.values.push_back(prefixed ? std::string(value)
                                            : std::string(key) + "=" + std::string(value));
        }
        RecordingUsageLogger& logger;
        Event event;
    };

    const RecordingTaskService& tasks_;
};

class FakeExporter : public CountedUnknown<Plug::IExporterModule> {
public:
    Fnd::WString GetDisplayName() const override { return u"H.264 (MP4)"; }
    Fnd::WString GetFormatName() const override { return u"H.264"; }
};

class FakePreset : public CountedUnknown<EncoderHost::IPreset> {
public:
    Fnd::WString GetName() const override { return u"Match Source \u2013 High"; }
};

class UsageReportTest : public PlanTest {
protected:
    std::string LogPath() const { return tree.NativePath("usage.jsonl"); }
    void InstallLogFile() { fluxcore::config::UsageLogger::Set(UsageLogFile::Open(LogPath())); }

    // The lines of the log, each without its time stamp, which must be a UTC time of the ISO form.
    Strings Lines() const {
        std::ifstream in(LogPath());
        Strings lines;
        static const std::regex kTime(R"(^\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ",)");
        for (std::string line; std::getline(in, line);) {
            EXPECT_TRUE(std::regex_search(line, kTime)) << line;
            lines.push_back(std::regex_replace(line, kTime, "{"));
        }
        return lines;
    }

    std::shared_ptr<RecordingUsageLogger> Install() {
        auto logger = std::make_shared<RecordingUsageLogger>(tasks.Service());
        fluxcore::config::UsageLogger::Set(logger);
        return logger;
    }

    IGD::IngestDialogDataRef TwoClipsToTwoCopies(unsigned renameScope) {
        auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
        session->SetRenameApplyScope(renameScope);
        session->GetSelectedItems()[0]->SetOutputName(u"Shot_01");
        AddDestination(*session, "p", true, /*applyRename=*/true, /*applyMetadata=*/true);
        AddDestination(*session, "b", false, /*applyRename=*/renameScope == 0)->SetSubFolder(u"day1");
        return session;
    }
};

// The report changes nothing, with or without a logger, and tells of each destination in turn.
TEST_F(UsageReportTest, EachDestinationSendsOneEventAfterItsTasksNamedByItsPosition) {
    auto session = TwoClipsToTwoCopies(1);
    auto transcoding = Transcode(*AddDestination(*session, "t", false));
    transcoding->exporter = Fnd::InterfaceRef<Plug::IExporterModule>(new FakeExporter);
    transcoding->preset = Fnd::InterfaceRef<EncoderHost::IPreset>(new FakePreset);
    Transcode(*AddDestination(*session, "s", false), /*concatenate=*/true);
    DecideAndRun(session);
    const KindList kinds{TaskKind::Copy, TaskKind::Copy, TaskKind::Transcode, TaskKind::Transcode,
                         TaskKind::Concatenate};
    ASSERT_EQ(Kinds(), kinds);
    EXPECT_EQ(UnitAt(CopyAt(0)).renames.size(), 1u);

    auto logger = Install();
    tasks->Clear();
    IGD::RunIngestPlan(session, batch_);
    EXPECT_EQ(Kinds(), kinds);
    EXPECT_EQ(UnitAt(CopyAt(0)).renames.size(), 1u);
    ASSERT_EQ(logger->sent.size(), 4u);
    std::vector<std::size_t> tasksAtSend;
    for (const RecordingUsageLogger::Event& event : logger->sent)
        tasksAtSend.push_back(event.tasksAtSend);
    EXPECT_EQ(tasksAtSend, (std::vector<std::size_t>{1, 2, 4, 5}));
    EXPECT_EQ(logger->sent[0].name, "Ingest/IngestSetting/PrimaryDestSetting");
    EXPECT_EQ(logger->sent[0].values,
              (Strings{"MetadataPreset:Enabled", "RenamePreset:Enabled", "UseSubFolder:No",
                       "SelectItemCount:2", "DestinationCount:4", "IngestType:Copy"}));
    // The scope of the rename shows through the backup's own flags.
    EXPECT_EQ(logger->sent[1].name, "Ingest/IngestSetting/BackupDestSetting1");
    EXPECT_EQ(logger->sent[1].values,
              (Strings{"MetadataPreset:Disabled", "RenamePreset:Disabled", "UseSubFolder:Yes",
                       "SelectItemCount:2", "DestinationCount:4", "IngestType:Copy"}));
    EXPECT_EQ(logger->sent[2].name, "Ingest/IngestSetting/BackupDestSetting2");
    EXPECT_EQ(Strings(logger->sent[2].values.begin() + 5, logger->sent[2].values.end()),
              (Strings{"IngestType:Transcode", "TranscodeFormat:H.264",
                       "TranscodePresetName:Match Source \xE2\x80\x93 High", "Concatenation:No"}));
    EXPECT_EQ(logger->sent[3].name, "Ingest/IngestSetting/BackupDestSetting3");
    EXPECT_EQ(Strings(logger->sent[3].values.begin() + 5, logger->sent[3].values.end()),
              (Strings{"IngestType:Transcode", "TranscodeFormat:", "TranscodePresetName:Custom",
                       "Concatenation:Yes"}));
}

// The log a host can ask for holds one JSON line per event, attributes in the order the plan adds
// them; a host that opens the log again, in this run or the next, adds to it.
TEST_F(UsageReportTest, AnImportOnlyRequestWritesOneLineAfterWhatTheFileHeld) {
    auto session = SessionWithClips({"A001.MOV"});
    session->SetMetadataEnabled(true);
    const std::string line =
        R"({"category":"Ingest","subcategory":"IngestSetting","name":"ImportOnlySetting","extra":"",)"
        R"("attributes":{"MetadataPreset":"MetadataPreset:Enabled","RenamePreset":"RenamePreset:Disabled",)"
        R"("IngestType":"IngestType:ImportOnly","SelectItemCount":"SelectItemCount:1"}})";
    InstallLogFile();
    DecideAndRun(session);
    EXPECT_EQ(Lines(), Strings{line});

    InstallLogFile();
    DecideAndRun(session);
    EXPECT_EQ(Lines(), (Strings{line, line}));
}

// An event is written when it is let go, even after the host replaced or removed the logger.
TEST_F(UsageReportTest, AnEventIsWrittenWhenReleasedWithItsTextEscaped) {
    auto log = UsageLogFile::Open(LogPath());
    auto event = log->NewEvent("Ingest", "IngestSetting", "Name \"quoted\"", "tab\there");
    event->AddAttribute("Path", "C:\\clips\nnext\x01");
    log.reset();
    EXPECT_TRUE(Lines().empty());

    event.reset();
    EXPECT_EQ(Lines(),
              Strings{R"({"category":"Ingest","subcategory":"IngestSetting","name":"Name \"quoted\"",)"
                      R"("extra":"tab\there","attributes":{"Path":"C:\\clips\nnext\u0001"}})"});
}

} // namespace
} // namespace igd::test
