// `igd ingest` and `igd resume` as a user runs them: the real binary, a real card, a real kill.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <filesystem>
#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"
#include "Proj/Project.h"
#include "QL/Engine/Journal.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

std::string JsonField(const std::string& line, const std::string& name) {
    const std::string key = "\"" + name + "\":\"";
    const std::size_t start = line.find(key);
    if (start == std::string::npos)
        return {};
    const std::size_t from = start + key.size();
    return line.substr(from, line.find('"', from) - from);
}

struct FileIdentity {
    ino_t inode;
    timespec changed;
};

FileIdentity IdentityOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(::stat(path.c_str(), &info), 0) << path;
    return FileIdentity{info.st_ino, info.st_ctim};
}

std::vector<std::string> TemporariesBelow(const std::string& root) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
        if (FileCopier::IsTemporaryName(entry.path().filename().string()))
            found.push_back(entry.path().string());
    return found;
}

// The first word a checksum tool prints for a file, or after "= " in its BSD-style line.
std::string ToolDigest(const std::string& tool, const std::string& path) {
    const std::string command = tool + " '" + path + "'";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return "no " + tool;
    std::string line;
    char buffer[512];
    while (std::fgets(buffer, sizeof buffer, pipe))
        line += buffer;
    ::pclose(pipe);
    if (const auto equals = line.find(" = "); equals != std::string::npos)
        line.erase(0, equals + 3);
    return line.substr(0, line.find_first_of(" \n"));
}

class IgdIngestCommandTest : public IgdCommandTest {
protected:
    // A P2 card as a camera leaves it, with two clips, the card's own index file, and media put on it
    // by hand: a clip with its sidecar, and a sound file.
    void MakeCard() {
        MakeP2Card(/*withIcons=*/true);
        tree.MakeFile("SHOOT/CARD01/EXTRA/B001.MOV", "b camera");
        tree.MakeFile("SHOOT/CARD01/EXTRA/B001.xmp", "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"/>");
        tree.MakeFile("SHOOT/CARD01/EXTRA/sound.WAV", "sound");
    }

    Ran Ingest(std::vector<std::string> options) {
        std::vector<std::string> arguments{"ingest", Native("SHOOT/CARD01")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunIgd(arguments);
    }

};

// Killed mid-batch, whether big clips stream one by one or small files go in groups with one flush
// for all: no final name holds anything but a whole copy, and resume finishes the batch without
// copying again what had landed.
TEST_F(IgdIngestCommandTest, AKilledIngestLeavesOnlyWholeCopiesAndResumesWithoutCopyingThemAgain) {
    const struct {
        std::string card;
        const char* pattern;
        int files;
        std::uint64_t size;
        int copiedBeforeKill;
    } cases[] = {{"card", "DCIM/C%03d.MOV", 12, 4u << 20, 4}, {"stills", "DCIM/I%04d.JPG", 1200, 8u << 10, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.card);
        const auto name = [&](int i) {
            char text[32];
            std::snprintf(text, sizeof text, c.pattern, i);
            return std::string(text);
        };
        for (int i = 1; i <= c.files; ++i)
            tree.MakeFileOfSize(c.card + "/" + name(i), c.size);
        const std::string main = Native(c.card + "-main");
        const std::string backup = Native(c.card + "-backup");
        const std::string project = Native(c.card + ".igdproj");
        IgdProcess ingest({"ingest", Native(c.card), "--to", main, "--to", backup, "--verify", "md5", "--json",
                           "--project", project});
        std::string line;
        std::string batchText;
        int copied = 0;
        while (copied < c.copiedBeforeKill && ingest.ReadLine(line)) {
            if (JsonField(line, "event") == "file" && JsonField(line, "status") == "copied" &&
                std::filesystem::is_regular_file(JsonField(line, "source")))
                ++copied;
            if (batchText.empty())
                batchText = JsonField(line, "batch");
        }
        ingest.Signal(SIGKILL);
        EXPECT_EQ(ingest.Wait(), 128 + SIGKILL);
        const auto batch = fluxcore::utility::Guid::FromString(batchText);
        ASSERT_TRUE(batch.has_value()) << line;
        Journal journal(home.Path() + "/journal.sqlite");
        EXPECT_EQ(journal.LoadBatch(*batch)->state, BatchState::Running);

        std::map<std::string, FileIdentity> landed;
        for (const std::string& destination : {main, backup})
            for (const auto& entry : std::filesystem::recursive_directory_iterator(destination)) {
                const std::string path = entry.path().string();
                if (!entry.is_regular_file() || InHistory(path) || FileCopier::IsTemporaryName(entry.path().filename()))
                    continue;
                EXPECT_EQ(ReadFileBytes(path), ReadFileBytes(Native(c.card + "/DCIM/" + entry.path().filename().string())))
                    << path;
                landed.emplace(path, IdentityOf(path));
            }
        ASSERT_GE(landed.size(), static_cast<std::size_t>(c.copiedBeforeKill));
        ASSERT_LT(landed.size(), 2u * c.files) << "the ingest ended before it could be killed";

        const Ran resume = RunIgd({"resume", "--json"});
        EXPECT_EQ(resume.exitCode, 0) << resume.out << resume.err;
        EXPECT_NE(resume.out.find("\"status\":\"already copied\""), std::string::npos);
        for (int i = 1; i <= c.files; ++i) {
            const std::string original = ReadFileBytes(Native(c.card + "/" + name(i)));
            EXPECT_EQ(ReadFileBytes(main + "/" + c.card + "/" + name(i)), original) << name(i);
            EXPECT_EQ(ReadFileBytes(backup + "/" + c.card + "/" + name(i)), original) << name(i);
        }
        EXPECT_TRUE(TemporariesBelow(main).empty());
        EXPECT_TRUE(TemporariesBelow(backup).empty());
        for (const auto& [path, identity] : landed) {
            const FileIdentity now = IdentityOf(path);
            EXPECT_EQ(now.inode, identity.inode) << path << " was copied again";
            EXPECT_EQ(now.changed.tv_sec, identity.changed.tv_sec) << path;
            EXPECT_EQ(now.changed.tv_nsec, identity.changed.tv_nsec) << path;
        }
        const std::optional<JournalBatch> after = journal.LoadBatch(*batch);
        EXPECT_EQ(after->state, BatchState::Finished);
        for (const FileRecord& file : after->files)
            EXPECT_EQ(file.state, FileState::Verified) << Fnd::ToUTF8(file.target);
        EXPECT_EQ(Proj::Project::Open(project)->Items().size(), static_cast<std::size_t>(c.files));
        EXPECT_EQ(RunIgd({"resume"}).out, "Nothing to resume.\n");
    }
}

TEST_F(IgdIngestCommandTest, RenamesSingleFileClipsKeepsCardClipsWholeAndWritesMetadataOnBothCopies) {
    MakeCard();
    const Ran ran =
        Ingest({"--to", Native("main"), "--to", Native("backup"), "--rename-preset", "Camera roll",
                "--metadata-preset", "Production", "--set", "scene=12", "--set", "take=3"});
    ASSERT_EQ(ran.exitCode, 0) << ran.out << ran.err;

    for (const std::string destination : {"main", "backup"}) {
        SCOPED_TRACE(destination);
        const std::string card = Native(destination + "/CARD01/");
        for (const std::string id : {"0001AB", "0002AB"}) {
            // The card's structure refers to its files by name: they land together, as they were.
            EXPECT_EQ(ReadFileBytes(card + "CONTENTS/VIDEO/" + id + ".MXF"), "video " + id);
            EXPECT_EQ(ReadFileBytes(card + "CONTENTS/AUDIO/" + id + "00.MXF"), "audio " + id);
            EXPECT_EQ(ReadFileBytes(card + "CONTENTS/ICON/" + id + ".BMP"), "icon " + id);
            EXPECT_TRUE(std::filesystem::exists(card + "CONTENTS/CLIP/" + id + ".XML"));
        }
        // The custom counter numbers the items in order: two card clips, then B001, then the sound.
        EXPECT_EQ(ReadFileBytes(card + "EXTRA/B001_003.MOV"), "b camera");
        EXPECT_EQ(ReadFileBytes(card + "EXTRA/sound_004.WAV"), "sound");
        EXPECT_FALSE(std::filesystem::exists(card + "EXTRA/B001.MOV"));
        EXPECT_FALSE(std::filesystem::exists(card + "EXTRA/B001.xmp"));
        EXPECT_FALSE(std::filesystem::exists(card + "LASTCLIP.TXT")) << "index files are no media";
        for (const std::string sidecar :
             {"EXTRA/B001_003.xmp", "EXTRA/sound_004.xmp", "CONTENTS/VIDEO/0001AB.xmp"}) {
            const std::string xmp = ReadFileBytes(card + sidecar);
            EXPECT_NE(xmp.find("<Production:scene>12</Production:scene>"), std::string::npos)
                << sidecar << xmp;
            EXPECT_NE(xmp.find("<Production:take>3</Production:take>"), std::string::npos) << sidecar;
        }
    }
    EXPECT_TRUE(TemporariesBelow(Native("main")).empty());
    EXPECT_EQ(ReadFileBytes(Native("SHOOT/CARD01/EXTRA/B001.xmp")), "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"/>")
        << "the card is never written to";

    const auto items = Proj::Project::Open(home.ProjectPath())->Items();
    std::vector<std::pair<std::string, std::string>> named;
    for (const Proj::ProjectItem& item : items)
        named.emplace_back(Fnd::ToUTF8(item.name), Fnd::ToUTF8(item.path));
    const std::string main = Native("main/CARD01/");
    EXPECT_EQ(named, (std::vector<std::pair<std::string, std::string>>{
                         {"0001AB_001", main + "CONTENTS/VIDEO/0001AB.MXF"},
                         {"0002AB_002", main + "CONTENTS/VIDEO/0002AB.MXF"},
                         {"B001_003", main + "EXTRA/B001_003.MOV"},
                         {"sound_004", main + "EXTRA/sound_004.WAV"}}));
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].extraPaths.size(), 4u) << "audio, icon, clip XML and the written XMP";
    EXPECT_EQ(RunIgd({"prefs", "get", "IGD.IngestDestinationSettingImpl.UserDefAutoIncStartNumber"}).out,
              "5\n")
        << "the next ingest numbers on from the last";
}

// What igd says it verified with is what the user's own tools compute, from the source and from the
// copy; without --verify the checksum preference decides.
TEST_F(IgdIngestCommandTest, EachCopyIsReportedWithADigestTheUsersChecksumToolAgreesWith) {
    if (std::system("command -v xxh128sum xxhsum >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "xxh128sum and xxhsum are needed (Debian package xxhash)";
    tree.MakeFileOfSize("card/A001.MOV", (3u << 20) + 5);
    tree.MakeFile("card/A002.WAV", "sound");
    ASSERT_EQ(RunIgd({"prefs", "set", "IGD.IngestDestinationSettingImpl.Local.VerifyChecksum", "xxh3"}).exitCode,
              0);
    const struct {
        std::vector<std::string> verify;
        std::string algorithm;
        std::string tool;
    } cases[] = {{{"--verify", "xxh128"}, "xxh128", "xxh128sum"}, {{}, "xxh3", "xxhsum -H3"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.algorithm);
        const std::string to = Native(c.algorithm);
        std::vector<std::string> arguments{"ingest", Native("card"), "--to", to, "--json"};
        arguments.insert(arguments.end(), c.verify.begin(), c.verify.end());
        const Ran ran = RunIgd(arguments);
        ASSERT_EQ(ran.exitCode, 0) << ran.Said();
        std::size_t files = 0;
        std::istringstream lines(ran.out);
        for (std::string line; std::getline(lines, line);) {
            // The card's folder itself is made, not copied: it has no digest.
            if (JsonField(line, "event") != "file" || JsonField(line, "source") == Native("card"))
                continue;
            ++files;
            const std::string source = JsonField(line, "source");
            EXPECT_EQ(JsonField(line, "verify"), c.algorithm) << line;
            EXPECT_EQ(JsonField(line, "checksumAlgorithm"), c.algorithm) << line;
            EXPECT_EQ(JsonField(line, "checksum"), ToolDigest(c.tool, source)) << line;
            EXPECT_EQ(JsonField(line, "checksum"), ToolDigest(c.tool, JsonField(line, "finalPath"))) << line;
        }
        EXPECT_EQ(files, 2u) << ran.out;
    }
    const Ran plan = RunIgd({"plan", Native("card/A001.MOV"), "--to", Native("xxh128"), "--verify", "xxh64",
                             "--on-conflict", "skip"});
    EXPECT_NE(plan.out.find(", verify xxh64,"), std::string::npos) << plan.Said();
}

TEST_F(IgdIngestCommandTest, AFolderOfCardsIsOpenedLikeACardReader) {
    MakeCard();
    tree.MakeFile("SHOOT/Sound/ROLL1.WAV", "roll one");
    tree.MakeFile("SHOOT/Sound/notes.txt", "no media");
    const Ran ran = RunIgd({"ingest", Native("SHOOT"), "--to", Native("main")});
    ASSERT_EQ(ran.exitCode, 0) << ran.out << ran.err;
    EXPECT_EQ(ReadFileBytes(Native("main/CARD01/CONTENTS/VIDEO/0001AB.MXF")), "video 0001AB");
    EXPECT_EQ(ReadFileBytes(Native("main/CARD01/EXTRA/B001.MOV")), "b camera");
    EXPECT_EQ(ReadFileBytes(Native("main/Sound/ROLL1.WAV")), "roll one");
    EXPECT_FALSE(std::filesystem::exists(Native("main/Sound/notes.txt")));
    EXPECT_FALSE(std::filesystem::exists(Native("main/SHOOT")));
    EXPECT_EQ(Proj::Project::Open(home.ProjectPath())->Items().size(), 5u) << "two card clips, three files";
}

TEST_F(IgdIngestCommandTest, AFailedCheckShowsItsBoxAndSubmitsNorMakesNothing) {
    MakeCard();
    struct Case {
        std::vector<std::string> options;
        std::string box;
    };
    const std::vector<Case> cases{
        {{"--metadata-preset", "Production", "--set", "scene=12"}, "igd: Required field take is empty.\n"},
        {{"--to", Native("SHOOT")},
         "Transfer Error: The destination folder path " + Native("SHOOT") +
             " is the same as the source folder. Cannot transfer to the source folder.\n"}};
    for (const Case& each : cases) {
        std::vector<std::string> options{"--to", Native("main"), "--to", Native("backup")};
        options.insert(options.end(), each.options.begin(), each.options.end());
        const Ran ran = Ingest(options);
        SCOPED_TRACE(each.box);
        EXPECT_EQ(ran.exitCode, 1);
        EXPECT_EQ(ran.err, each.box);
        // The destinations were missing: a refused ingest leaves none behind.
        EXPECT_FALSE(std::filesystem::exists(Native("main")));
        EXPECT_FALSE(std::filesystem::exists(Native("backup")));
    }
    EXPECT_TRUE(Proj::Project::Open(home.ProjectPath())->Items().empty());
}

// A destination too small or read-only ends in one line naming it, and nothing is copied.
TEST_F(IgdIngestCommandTest, AFullOrReadOnlyDestinationEndsInOneLineAndCopiesNothing) {
    tree.MakeFileOfSize("card/A001.MOV", 4u << 20);
    const std::string small = Fnd::ToUTF8(tree.MakeFolder("small"));
    const std::string readOnly = Fnd::ToUTF8(tree.MakeFolder("readonly"));
    if (::mount("tmpfs", small.c_str(), "tmpfs", 0, "size=1m") != 0 ||
        ::mount("tmpfs", readOnly.c_str(), "tmpfs", MS_RDONLY, "size=1m") != 0) {
        ::umount(small.c_str());
        GTEST_SKIP() << "small filesystems cannot be mounted here";
    }
    struct Unmount {
        std::vector<std::string> paths;
        ~Unmount() {
            for (const std::string& path : paths)
                ::umount(path.c_str());
        }
    } unmount{{small, readOnly}};

    // Without a terminal the space box takes its default button, Cancel.
    const Ran full = RunIgd({"ingest", Native("card"), "--to", small});
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_EQ(full.err.rfind("Clip Copy: There is not enough space to transfer to " + small +
                                 ". Please change the destination or release about ",
                             0),
              0u)
        << full.err;
    EXPECT_EQ(std::count(full.err.begin(), full.err.end(), '\n'), 1);

    tree.MakeFolder("main");
    const Ran unwritable = RunIgd({"ingest", Native("card"), "--to", Native("main"), "--to", readOnly});
    EXPECT_EQ(unwritable.exitCode, 1);
    EXPECT_EQ(unwritable.err, "Destination path is not writable: The specified destination path " + readOnly +
                                  " is not writable. Please specify a new one.\n");
    EXPECT_TRUE(std::filesystem::is_empty(small));
    EXPECT_FALSE(std::filesystem::exists(Native("main/card")));
}

} // namespace
} // namespace igd::test
