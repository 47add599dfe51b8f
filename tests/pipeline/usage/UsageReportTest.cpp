// The usage events the plan sends, that it runs the same without them, and the log file a host
// can have them written to.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>

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

    IGD::IngestDialogDataRef TwoClipsToTwoCopies(unsigned renameScope) {
        auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
        session->SetRenameApplyScope(renameScope);
        session->GetSelectedItems()[0]->SetOutputName(u"Shot_01");
        AddDestination(*session, "p", true, /*applyRename=*/true, /*applyMetadata=*/true);
        AddDestination(*session, "b", false, /*applyRename=*/renameScope == 0)->SetSubFolder(u"day1");
        return session;
    }
};

// The report changes nothing, with or without a log, and tells of each destination by its position.
TEST_F(UsageReportTest, EachDestinationWritesOneLineNamedByItsPosition) {
    auto session = TwoClipsToTwoCopies(1);
    auto transcoding = Transcode(*AddDestination(*session, "t", false));
    transcoding->exporter = Fnd::InterfaceRef<Plug::IExporterModule>(new FakeExporter);
    transcoding->preset = Fnd::InterfaceRef<EncoderHost::IPreset>(new FakePreset);
    Transcode(*AddDestination(*session, "s", false), /*concatenate=*/true);
    DecideAndRun(session);
    const KindList kinds = Kinds();
    const Strings moves = Moves(UnitAt(CopyAt(0)));

    InstallLogFile();
    tasks->Clear();
    IGD::RunIngestPlan(session, batch_);
    EXPECT_EQ(Kinds(), kinds);
    EXPECT_EQ(Moves(UnitAt(CopyAt(0))), moves);
    const Strings lines = Lines();
    ASSERT_EQ(lines.size(), 4u);
    // The scope of the rename shows through the backup's own flags.
    const std::vector<Strings> held = {
        {"PrimaryDestSetting", "RenamePreset:Enabled", "MetadataPreset:Enabled", "UseSubFolder:No",
         "SelectItemCount:2", "DestinationCount:4", "IngestType:Copy"},
        {"BackupDestSetting1", "RenamePreset:Disabled", "MetadataPreset:Disabled", "UseSubFolder:Yes",
         "IngestType:Copy"},
        {"BackupDestSetting2", "IngestType:Transcode", "TranscodeFormat:H.264",
         "TranscodePresetName:Match Source \u2013 High", "Concatenation:No"},
        {"BackupDestSetting3", "TranscodeFormat:\"", "TranscodePresetName:Custom", "Concatenation:Yes"}};
    for (std::size_t i = 0; i < held.size(); ++i)
        for (const std::string& part : held[i])
            EXPECT_NE(lines[i].find(part), std::string::npos) << part << " in " << lines[i];
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
