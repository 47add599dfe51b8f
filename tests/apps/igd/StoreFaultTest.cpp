// The stores under $IGD_HOME damaged or held by another process, met by the real igd: the task
// journal, the project and the preferences. A user hears which file and why; no copy is touched,
// nothing is overwritten, and work that can go on does.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <thread>

#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

const std::string kGarbage = "these bytes are no database of any kind, just what a bad sector left";

class StoreFaultTest : public IgdCommandTest {
protected:
    void SetUp() override {
        tree.MakeFileOfSize("card/A001.MOV", 200u << 10);
        tree.MakeFileOfSize("card/A002.MOV", 50u << 10);
    }

    Ran Ingest(const std::string& to) { return RunIgd({"ingest", Native("card"), "--to", Native(to)}); }

    std::string HomeFile(const std::string& name) const { return home.Path() + "/" + name; }

    // Every file below the folder with its bytes, to show nothing there changed.
    std::map<std::string, std::string> Contents(const std::string& relative) const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Native(relative)))
            if (entry.is_regular_file() && !InHistory(entry.path().string()))
                contents[entry.path().string()] = ReadFileBytes(entry.path().string());
        return contents;
    }
};

TEST_F(StoreFaultTest, AGarbledJournalIsNotResumedButSetAsideForTheNextIngest) {
    ASSERT_EQ(Ingest("main").exitCode, 0);
    const auto copies = Contents("main");
    for (const char* side : {"", "-wal", "-shm"})
        std::filesystem::remove(HomeFile(std::string("journal.sqlite") + side));
    home.MakeFile("journal.sqlite", kGarbage);

    const Ran resume = RunIgd({"resume"});
    EXPECT_NE(resume.exitCode, 0);
    EXPECT_NE(resume.err.find(HomeFile("journal.sqlite") +
                              " is not a journal of igd; nothing in it can be resumed"),
              std::string::npos)
        << resume.err;
    EXPECT_EQ(ReadFileBytes(HomeFile("journal.sqlite")), kGarbage) << "resume leaves it for a look";
    EXPECT_EQ(Contents("main"), copies);

    const Ran again = Ingest("backup");
    EXPECT_EQ(again.exitCode, 0) << again.Said();
    EXPECT_NE(again.err.find("it was moved to " + HomeFile("journal.sqlite.unreadable-")), std::string::npos)
        << again.err;
    std::vector<std::string> aside;
    for (const auto& entry : std::filesystem::directory_iterator(home.Path()))
        if (entry.path().filename().string().starts_with("journal.sqlite.unreadable-"))
            aside.push_back(entry.path().string());
    ASSERT_EQ(aside.size(), 1u);
    EXPECT_EQ(ReadFileBytes(aside[0]), kGarbage) << "set aside, not deleted";
    EXPECT_EQ(Contents("backup").size(), 2u);
    EXPECT_EQ(RunIgd({"resume"}).out, "Nothing to resume.\n") << "the new journal works";
}

TEST_F(StoreFaultTest, AnUnfinishedBatchWhoseRecordDoesNotDecodeIsNamedAndItsCopiesLeftAlone) {
    ASSERT_EQ(Ingest("main").exitCode, 0);
    const auto copies = Contents("main");
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(HomeFile("journal.sqlite").c_str(), &db), SQLITE_OK);
    // As a crash mid-batch leaves it, but with a task record that ends early.
    ASSERT_EQ(sqlite3_exec(db,
                           "UPDATE batches SET state = 'running';"
                           "UPDATE tasks SET record = substr(record, 1, 20);",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);

    const Ran resume = RunIgd({"resume"});
    EXPECT_EQ(resume.exitCode, 1) << resume.Said();
    EXPECT_NE(resume.err.find("cannot be resumed, its copies are left as they are: a task of the journal "
                              "cannot be read"),
              std::string::npos)
        << resume.err;
    EXPECT_EQ(Contents("main"), copies);
}

TEST_F(StoreFaultTest, AGarbledProjectRefusesTheIngestAndIsLeftAsItWas) {
    home.MakeFile("project.igdproj", kGarbage);
    const Ran ran = Ingest("main");
    EXPECT_NE(ran.exitCode, 0);
    EXPECT_NE(ran.err.find(HomeFile("project.igdproj")), std::string::npos) << ran.err;
    EXPECT_FALSE(std::filesystem::exists(Native("main"))) << "nothing copied for a project it cannot import to";
    EXPECT_EQ(ReadFileBytes(HomeFile("project.igdproj")), kGarbage);
}

TEST_F(StoreFaultTest, GarbledPreferencesAreNamedAndTheIngestRunsOnDefaultsLeavingThemAlone) {
    home.MakeFile("preferences.db", kGarbage);
    const Ran ran = Ingest("main");
    EXPECT_EQ(ran.exitCode, 0) << ran.Said();
    EXPECT_NE(ran.err.find(HomeFile("preferences.db") + ": not a preference file"), std::string::npos)
        << ran.err;
    EXPECT_EQ(Contents("main").size(), 2u);
    EXPECT_EQ(ReadFileBytes(HomeFile("preferences.db")), kGarbage);
}

// Another process holding the project in a write transaction: igd waits its turn, then imports.
TEST_F(StoreFaultTest, AProjectLockedByAnotherProcessForAMomentIsWaitedFor) {
    ASSERT_EQ(Ingest("first").exitCode, 0) << "makes the project";
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(HomeFile("project.igdproj").c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread holder([db] {
        std::this_thread::sleep_for(std::chrono::seconds(2));
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    });
    const Ran ran = RunIgd({"ingest", Native("card"), "--to", Native("main"), "--json"});
    holder.join();
    sqlite3_close(db);
    EXPECT_EQ(ran.exitCode, 0) << ran.Said();
    EXPECT_NE(ran.out.find("\"itemsImported\":2"), std::string::npos) << ran.out;
}

} // namespace
} // namespace igd::test
