// The usage log a host can ask for: one JSON line per event, attributes in the order the plan
// adds them, appended to what the file holds.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "PlanTestSupport.h"
#include "fluxcore/UsageLogFile.h"
#include "pipeline/IngestPlan.h"

namespace igd::test {
namespace {

using fluxcore::config::UsageLogFile;

class UsageLogFileTest : public PlanTest {
protected:
    std::string LogPath() const { return tree.NativePath("usage.jsonl"); }

    void Install() { fluxcore::config::UsageLogger::Set(UsageLogFile::Open(LogPath())); }

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

    static std::string Line(const std::string& name, const std::string& attributes) {
        return R"({"category":"Ingest","subcategory":"IngestSetting","name":")" + name +
               R"(","extra":"","attributes":{)" + attributes + "}}";
    }
};

const std::string kCommon =
    R"("SelectItemCount":"SelectItemCount:2","DestinationCount":"DestinationCount:3",)";

TEST_F(UsageLogFileTest, EachDestinationOfACopyAndTranscodeRequestWritesOneLine) {
    Install();
    auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
    session->SetRenameApplyScope(1);
    session->GetSelectedItems()[0]->SetOutputName(u"Shot_01");
    AddDestination(*session, "p", true, /*applyRename=*/true, /*applyMetadata=*/true);
    AddDestination(*session, "b", false)->SetSubFolder(u"day1");
    Transcode(*AddDestination(*session, "t", false), /*concatenate=*/true);

    DecideAndRun(session);

    EXPECT_EQ(Lines(),
              (Strings{
                  Line("PrimaryDestSetting",
                       R"("MetadataPreset":"MetadataPreset:Enabled","RenamePreset":"RenamePreset:Enabled",)"
                       R"("UseSubFolder":"UseSubFolder:No",)" +
                           kCommon + R"("IngestType":"IngestType:Copy")"),
                  Line("BackupDestSetting1",
                       R"("MetadataPreset":"MetadataPreset:Disabled","RenamePreset":"RenamePreset:Disabled",)"
                       R"("UseSubFolder":"UseSubFolder:Yes",)" +
                           kCommon + R"("IngestType":"IngestType:Copy")"),
                  Line("BackupDestSetting2",
                       R"("MetadataPreset":"MetadataPreset:Disabled","RenamePreset":"RenamePreset:Disabled",)"
                       R"("UseSubFolder":"UseSubFolder:No",)" +
                           kCommon +
                           R"("IngestType":"IngestType:Transcode","TranscodeFormat":"TranscodeFormat:",)"
                           R"("TranscodePresetName":"TranscodePresetName:Custom",)"
                           R"("Concatenation":"Concatenation:Yes")"),
              }));
}

// A host that opens the log again, in this run or the next, adds to it.
TEST_F(UsageLogFileTest, AnImportOnlyRequestWritesOneLineAfterWhatTheFileHeld) {
    auto session = SessionWithClips({"A001.MOV"});
    session->SetMetadataEnabled(true);
    const std::string line =
        Line("ImportOnlySetting",
             R"("MetadataPreset":"MetadataPreset:Enabled","RenamePreset":"RenamePreset:Disabled",)"
             R"("IngestType":"IngestType:ImportOnly","SelectItemCount":"SelectItemCount:1")");
    Install();
    DecideAndRun(session);
    EXPECT_EQ(Lines(), Strings{line});

    Install();
    DecideAndRun(session);
    EXPECT_EQ(Lines(), (Strings{line, line}));
}

TEST_F(UsageLogFileTest, WithoutALoggerThePlanWritesNothing) {
    auto session = SessionWithClips({"A001.MOV"});
    AddDestination(*session, "p", true);
    DecideAndRun(session);
    EXPECT_EQ(Kinds(), KindList{TaskKind::Copy});
    EXPECT_FALSE(std::ifstream(LogPath()).good());
}

// An event is written when it is let go, even after the host replaced or removed the logger.
TEST_F(UsageLogFileTest, AnEventIsWrittenWhenReleasedWithItsTextEscaped) {
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

TEST_F(UsageLogFileTest, AFileThatCannotBeOpenedIsReportedByPath) {
    const std::string path = tree.NativePath("missing/usage.jsonl");
    try {
        UsageLogFile::Open(path);
        ADD_FAILURE() << "opened " << path;
    } catch (const std::system_error& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
}

} // namespace
} // namespace igd::test
