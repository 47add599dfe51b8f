#include <gtest/gtest.h>

#include <sqlite3.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "Proj/Project.h"
#include "ProjectTestSupport.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {


// Runs SQL on the file behind the project's back, as another program would.
std::string RawQuery(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    std::string result;
    char* error = nullptr;
    sqlite3_exec(
        db, sql.c_str(),
        [](void* out, int columns, char** values, char**) {
            for (int i = 0; i < columns; ++i)
                *static_cast<std::string*>(out) += (values[i] ? values[i] : "NULL") + std::string(";");
            return 0;
        },
        &result, &error);
    EXPECT_EQ(error, nullptr) << error;
    sqlite3_free(error);
    sqlite3_close(db);
    return result;
}

// The bytes of a file; nothing for a folder.
std::string ReadBytes(const std::string& path) {
    if (!std::filesystem::is_regular_file(path))
        return {};
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

std::string OpenError(const std::string& path) {
    try {
        Proj::Project::Open(path);
    } catch (const Proj::ProjectError& error) {
        return error.what();
    }
    return "opened";
}

TEST(ProjectFile, IsCreatedWithItsFoldersAsAVersionedUTF8DatabaseInWALMode) {
    TempTree tree;
    const std::string path = tree.NativePath("new/folders/p.igdproj");
    Proj::Project::Open(path)->ImportItem(MakeItem(u"/card/\u00C9t\u00E9.MOV"));
    EXPECT_EQ(RawQuery(path, "SELECT value FROM meta ORDER BY key"), "igd.project;2;");
    EXPECT_EQ(RawQuery(path, "PRAGMA journal_mode"), "wal;");
    EXPECT_EQ(RawQuery(path, "PRAGMA encoding"), "UTF-8;");
    EXPECT_EQ(RawQuery(path, "SELECT hex(path) FROM items"),
              "2F636172642FC38974C3A92E4D4F56;"); // "/card/Été.MOV"
}

TEST(ProjectFile, RefusesFilesThatAreNotProjectsAndLeavesThemAlone) {
    TempTree tree;
    tree.MakeFile("notes.txt", "shot list\nA001 interview\n");
    const std::string other = tree.NativePath("other.sqlite");
    RawQuery(other, "CREATE TABLE clips (name TEXT); INSERT INTO clips VALUES ('A001')");
    const std::string foreign = tree.NativePath("foreign.sqlite");
    RawQuery(foreign, "CREATE TABLE meta (key TEXT, value TEXT); INSERT INTO meta VALUES ('schema', 'x.y')");
    tree.MakeFolder("folder.igdproj");

    struct Case {
        std::string path;
        std::string message;
    };
    for (const Case& c :
         {Case{tree.NativePath("notes.txt"), "not a project file: " + tree.NativePath("notes.txt")},
          Case{other, "not a project file: " + other + " (an SQLite database of another kind)"},
          Case{foreign, "not a project file: " + foreign + " (an SQLite database of another kind)"},
          Case{tree.NativePath("folder.igdproj"),
               "cannot open the project: " + tree.NativePath("folder.igdproj")}}) {
        SCOPED_TRACE(c.path);
        const std::string before = ReadBytes(c.path);
        EXPECT_EQ(OpenError(c.path).substr(0, c.message.size()), c.message);
        EXPECT_EQ(ReadBytes(c.path), before);
    }
    EXPECT_EQ(OpenError(""), "cannot open a project without a path");
}

// A project of the first version, before digests were kept, opens with its items and then
// keeps digests as a new one does.
TEST(ProjectFile, RefusesANewerVersionAndUpgradesAnOlderOne) {
    TempTree tree;
    const std::string path = tree.NativePath("p.igdproj");
    Proj::Project::Open(path)->ImportItem(MakeItem(u"/card/A001.MOV"));
    RawQuery(path, "UPDATE meta SET value = '7' WHERE key = 'version'");
    EXPECT_EQ(OpenError(path), "the project " + path +
                                   " was written by a newer version of IGD (project version 7; this version "
                                   "reads up to 2)");
    RawQuery(path, "UPDATE meta SET value = '1' WHERE key = 'version'; DROP TABLE item_digests");
    Proj::ProjectItem again = MakeItem(u"/card/A001.MOV");
    again.digests = {{again.path, "xxh3", "78af5f94892f3950"}};
    Proj::Project::Open(path)->ImportItem(again);
    const std::vector<Proj::ProjectItem> items = Proj::Project::Open(path)->Items();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].digests, again.digests);
    EXPECT_EQ(RawQuery(path, "SELECT value FROM meta WHERE key = 'version'"), "2;");
}

TEST(ProjectFile, ReadersOnOtherThreadsGoOnWhileAWriterImports) {
    TempTree tree;
    const std::string path = tree.NativePath("p.igdproj");
    auto writer = Proj::Project::Open(path);
    std::atomic<bool> done{false};
    std::optional<std::string> readerFailure;
    std::size_t lastSeen = 0;
    std::thread reader([&] {
        try {
            auto project = Proj::Project::Open(path);
            while (!done) {
                const std::size_t seen = project->Items().size();
                if (seen < lastSeen)
                    readerFailure = "the item count went back";
                lastSeen = seen;
            }
        } catch (const std::exception& e) {
            readerFailure = e.what();
        }
    });
    for (int i = 0; i < 200; ++i)
        writer->ImportItem(MakeItem(u"/card/A" + Fnd::ToDecimal(static_cast<std::uint64_t>(i)) + u".MOV"));
    done = true;
    reader.join();
    EXPECT_FALSE(readerFailure) << *readerFailure;
    EXPECT_EQ(writer->Items().size(), 200u);
}

} // namespace
} // namespace igd::test
