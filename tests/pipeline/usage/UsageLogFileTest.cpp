// The usage log a host can ask for: one JSON line per event, attributes in the order the plan
// adds them, appended to what the file holds.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "fluxcore/UsageLogFile.h"
#include "pipeline/plan/IngestPlan.h"

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

// What the plan sends is the usage report's to test; here, that it lands as one JSON line per
// event, and that a host that opens the log again, in this run or the next, adds to it.
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
