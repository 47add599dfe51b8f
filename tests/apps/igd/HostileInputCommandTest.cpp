// `igd` given what a careless or hostile user gives it: wrong options, links back into the source,
// folder names that are no names, missing destinations, and file names that are bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Proj/Project.h"
#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

namespace fs = std::filesystem;

using HostileInputCommandTest = IgdCommandTest;

std::vector<std::string> EntriesBelow(const std::string& root) {
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (!InHistory(entry.path().string()))
            found.push_back(entry.path().string());
    std::sort(found.begin(), found.end());
    return found;
}

// Scripts tell a mistyped command from a failed copy by the exit code alone, and a person reads
// the reason, naming the path, in one line; neither wants a library's error number or a range
// given in floating point.
TEST_F(HostileInputCommandTest, EveryBadInputExitsTwoWithItsReasonAndWritesNothing) {
    tree.MakeFile("src/A001.MOV", "frames");
    const std::string src = Native("src"), out = Native("out");
    const struct {
        std::vector<std::string> arguments;
        std::string reason; // the first line of stderr
    } cases[] = {
        {{"ingest", src, "--to", out, "--start-number", "0"},
         "--start-number: \"0\" is not a whole number from 1 to 4294967295"},
        {{"ingest", src, "--to", out, "--start-number", "4294967296"},
         "--start-number: \"4294967296\" is not a whole number from 1 to 4294967295"},
        {{"ingest", src, "--to", out, "--start-number", "1e3"},
         "--start-number: \"1e3\" is not a whole number from 1 to 4294967295"},
        {{"--host-kind", "99999999999", "ingest", src, "--to", out},
         "--host-kind: \"99999999999\" is not a whole number from 0 to 2147483647"},
        {{"ingest", src, "--to", out, "--subfolder", ""}, "--subfolder: a folder name is needed"},
        {{"ingest", src, "--to", out, "--verify", "sha"}, "--verify: sha not in {md5,xxh128,xxh3,xxh64,size,bit,none}"},
        {{"ingest", src, "--to", out, "--bogus"}, "The following argument was not expected: --bogus"},
        {{"plan", Native("src/A001.MOV"), "--to", out},
         "igd: the destination is not a folder: " + out + " (igd plan makes nothing: make the folder first)"},
        {{"ingest", Native("src/A009.MOV"), "--to", out}, "igd: no such file or folder: " + Native("src/A009.MOV")},
        {{"ingest", src, "--to", out, "--rename-preset", "Nope"}, "igd: no rename preset is named \"Nope\""},
        {{"ingest", src, "--to", out, "--metadata-preset", "Production", "--set", "scen=1"},
         "igd: no field of the chosen templates has the key \"scen\""},
        {{"ingest", src, "--to", out + ":ProRes 9000"},
         "igd: no encoder preset is named \"ProRes 9000\" (igd encoders lists them)"},
        {{"probe", Native("src/A001.MOV"), "--thumbnail", out}, "igd probe: " + Native("src/A001.MOV") + ": not a media file"},
        {{"cards", out}, "igd cards: " + out + " is not a folder"},
        {{"project", "ls", out}, "igd: there is no project at " + out},
        {{"project", "ls", "--json", Native("src/A001.MOV")}, "igd: not a project file: " + Native("src/A001.MOV")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const Ran ran = RunIgd(c.arguments);
        EXPECT_EQ(ran.exitCode, 2);
        EXPECT_EQ(ran.err.substr(0, ran.err.find('\n')), c.reason) << ran.err;
        if (c.reason.starts_with("igd")) {
            EXPECT_EQ(ran.err, c.reason + "\n");
        }
        EXPECT_EQ(ran.out, "");
        EXPECT_FALSE(fs::exists(out));
        EXPECT_EQ(ReadFileBytes(Native("src/A001.MOV")), "frames");
    }
    EXPECT_EQ(RunIgd({"ingest", "--help"}).exitCode, 0);
}

// A link makes two names for one folder: what counts is where the copies would land.
TEST_F(HostileInputCommandTest, ALinkBetweenSourceAndDestinationIsRefusedEitherWay) {
    tree.MakeFile("S/a.mov", "x");
    tree.MakeFolder("S/sub");
    tree.MakeSymlink("L", "S");
    const std::vector<std::string> before = EntriesBelow(Native("S"));
    const struct {
        std::string source, destination;
    } cases[] = {{Native("S"), Native("L")},
                 {Native("L"), Native("S")},
                 {Native("S"), Native("L/new")},
                 {Native("S/sub"), Native("L/sub/day1")}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.source + " -> " + c.destination);
        const Ran ran = RunIgd({"ingest", c.source, "--to", c.destination, "--on-conflict", "keep-both"});
        EXPECT_EQ(ran.exitCode, 2) << ran.Said();
        EXPECT_EQ(ran.err, "igd: the destination lies inside a source: " + c.destination + "\n");
        EXPECT_EQ(EntriesBelow(Native("S")), before) << "nothing written into the source";
    }
    EXPECT_TRUE(Proj::Project::Open(home.ProjectPath())->Items().empty());
}

// Which names are refused is the checks' to say; here, that igd says it as they do and makes nothing.
TEST_F(HostileInputCommandTest, ASubfolderMustBeOneFoldersName) {
    tree.MakeFile("card/A001.MOV", "frames");
    tree.MakeFolder("backups/main");
    const Ran ran = RunIgd({"ingest", Native("card"), "--to", Native("backups/main"), "--subfolder", "day1/.."});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.err, "Invalid Folder Name: day1/..\nThe folder name is not valid.\n");
    EXPECT_EQ(EntriesBelow(Native("backups")), std::vector<std::string>{Native("backups/main")});
}

// A destination folder missing inside one that exists is made, and said; one whose parent is
// missing too is a mistyped path or an absent disk, and nothing is made.
TEST_F(HostileInputCommandTest, AMissingDestinationIsMadeOnlyInsideAnExistingFolderAndSaid) {
    tree.MakeFile("card/A001.MOV", "frames");
    const Ran deep = RunIgd({"ingest", Native("card"), "--to", Native("disk/shoot/day1")});
    EXPECT_EQ(deep.exitCode, 2);
    EXPECT_EQ(deep.err, "igd: neither the destination nor the folder holding it exists: " +
                            Native("disk/shoot/day1") + "\n");
    EXPECT_FALSE(fs::exists(Native("disk")));

    tree.MakeFolder("disk");
    const Ran made = RunIgd({"ingest", Native("card"), "--to", Native("disk/day1")});
    EXPECT_EQ(made.exitCode, 0) << made.Said();
    EXPECT_EQ(made.err.substr(0, made.err.find('\n')), "igd: made the destination folder " + Native("disk/day1"));
    EXPECT_EQ(ReadFileBytes(Native("disk/day1/card/A001.MOV")), "frames");
}

// Linux names are bytes. Each of these must reach its copy byte for byte and be shown so that a
// line of the report stays one line and JSON stays UTF-8.
TEST_F(HostileInputCommandTest, HostileNamesAreCopiedByteForByteAndShownEscaped) {
    const std::string longName = std::string(251, 'n') + ".mov"; // 255 bytes, the most a name holds
    const struct {
        std::string name, shown, json;
    } names[] = {
        {"bad\xff.mov", "bad\\xff.mov", "bad\\\\xff.mov"},
        {"\xe9t\xe9.mov", "\\xe9t\\xe9.mov", "\\\\xe9t\\\\xe9.mov"},
        {"two\nlines.mov", "two\\nlines.mov", "two\\\\nlines.mov"},
        {"caf\xc3\xa9.mov", "caf\xc3\xa9.mov", "caf\xc3\xa9.mov"},
        {"-rf.mov", "-rf.mov", "-rf.mov"},
        {"Case.mov", "Case.mov", "Case.mov"},
        {"case.mov", "case.mov", "case.mov"},
        {longName, longName, longName},
    };
    for (const auto& each : names)
        tree.MakeFile("src/" + each.name, "content of " + each.name);

    const Ran text = RunIgd({"ingest", Native("src"), "--to", Native("out")});
    ASSERT_EQ(text.exitCode, 0) << text.Said();
    const Ran json = RunIgd({"ingest", "--to", Native("json"), "--json", "--", Native("src")});
    ASSERT_EQ(json.exitCode, 0) << json.Said();
    // Named alone after "--", a name that looks like an option is a file.
    const Ran dashed = RunIgd({"ingest", "--to", Native("alone"), "--", Native("src/-rf.mov")});
    ASSERT_EQ(dashed.exitCode, 0) << dashed.Said();
    EXPECT_EQ(ReadFileBytes(Native("alone/-rf.mov")), "content of -rf.mov");

    EXPECT_EQ(Fnd::ToValidUTF8(Fnd::FromUTF8(json.out)), json.out) << "JSON is well-formed UTF-8";
    EXPECT_EQ(SummaryNumber(json.out, "filesCopied"), std::to_string(std::size(names))) << "no folder counts";
    for (const auto& each : names) {
        SCOPED_TRACE(each.shown);
        EXPECT_EQ(ReadFileBytes(Native("out/src/" + each.name)), "content of " + each.name);
        EXPECT_EQ(ReadFileBytes(Native("json/src/" + each.name)), "content of " + each.name);
        EXPECT_NE(text.out.find("copied  " + Native("src/" + each.shown) + " -> " + Native("out/src/" + each.shown) +
                                "  md5 "),
                  std::string::npos)
            << text.out;
        EXPECT_NE(json.out.find("\"source\":\"" + Native("src/" + each.json) + "\""), std::string::npos) << json.out;
    }
    EXPECT_EQ(EntriesBelow(Native("out/src")).size(), std::size(names)) << "nothing else written";

    // The project keeps the bytes too: its paths lead back to the copies.
    std::size_t items = 0;
    for (const Proj::ProjectItem& item : Proj::Project::Open(home.ProjectPath())->Items()) {
        EXPECT_TRUE(fs::is_regular_file(Fnd::ToUTF8(item.path))) << Fnd::ToDisplayUTF8(item.path);
        ++items;
    }
    EXPECT_EQ(items, 2 * std::size(names) + 1);
}

} // namespace
} // namespace igd::test
