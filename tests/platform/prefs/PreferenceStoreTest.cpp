#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <functional>
#include <iterator>

#include "Proj/PreferenceStore.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace Proj;

// A store in a temporary home whose lock list the test writes.
class PreferenceStoreTest : public ::testing::Test {
protected:
    std::string DatabasePath() const { return tree_.NativePath("home/preferences.db"); }
    std::string LockPath() const { return tree_.NativePath("home/site/locked-preferences"); }
    Fnd::InterfaceRef<PreferenceStore> OpenStore() {
        return PreferenceStore::Open(DatabasePath(), [path = LockPath()] { return path; });
    }
    std::string FileContent() const {
        std::ifstream file(DatabasePath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    template <class T> static std::optional<T> Read(IPreferences& store, const char* key) {
        SerializeableValue<T> value;
        return store.GetValue(PreferenceKey(key), value) ? std::optional<T>(value.Get()) : std::nullopt;
    }
    template <class T> static void Write(IPreferences& store, const char* key, T value) {
        store.SetValue(PreferenceKey(key), SerializeableValue<T>(std::move(value)), /*persistent=*/true);
    }

    TempTree tree_;
};

TEST_F(PreferenceStoreTest, EveryKindSurvivesReopeningAndReadingMakesNoFile) {
    auto store = OpenStore();
    EXPECT_FALSE(Read<bool>(*store, "t.bool"));
    EXPECT_FALSE(std::ifstream(DatabasePath()).good()) << "reading made a file";
    Write<bool>(*store, "t.bool", true);
    Write<std::int32_t>(*store, "t.int", -2147483647 - 1);
    Write<std::uint32_t>(*store, "t.uint", 4294967295u);
    Write<float>(*store, "t.float", 0.68f);
    Write<std::string>(*store, "t.text", "Caméra/日本");
    store.reset();

    store = OpenStore();
    EXPECT_EQ(Read<bool>(*store, "t.bool"), true);
    EXPECT_EQ(Read<std::int32_t>(*store, "t.int"), -2147483647 - 1);
    EXPECT_EQ(Read<std::uint32_t>(*store, "t.uint"), 4294967295u);
    EXPECT_EQ(Read<float>(*store, "t.float"), 0.68f);
    EXPECT_EQ(Read<std::string>(*store, "t.text"), "Caméra/日本");
    // A value of another kind is not the key's value: the reader keeps its default.
    EXPECT_FALSE(Read<bool>(*store, "t.uint"));
}

TEST_F(PreferenceStoreTest, RefreshPicksUpWhatAnotherWriterChanged) {
    auto mine = OpenStore();
    auto theirs = OpenStore();
    for (std::uint32_t value : {1u, 2u}) {
        Write<std::uint32_t>(*theirs, "t.count", value);
        mine->Refresh();
        EXPECT_EQ(Read<std::uint32_t>(*mine, "t.count"), value);
    }
}

TEST_F(PreferenceStoreTest, ABatchReachesTheFileWholeOnCommitAndNotAtAllWhenDropped) {
    auto store = OpenStore();
    auto other = OpenStore();
    Write<std::uint32_t>(*store, "t.a", 1);
    {
        PreferenceBatch batch(*store);
        Write<std::uint32_t>(*store, "t.a", 2);
        {
            PreferenceBatch joined(*store);
            Write<std::uint32_t>(*store, "t.b", 2);
            joined.Commit();
        }
        other->Refresh();
        EXPECT_EQ(Read<std::uint32_t>(*other, "t.a"), 1u) << "visible before the commit";
        batch.Commit();
    }
    other->Refresh();
    EXPECT_EQ(Read<std::uint32_t>(*other, "t.b"), 2u);
    {
        PreferenceBatch dropped(*store);
        Write<std::uint32_t>(*store, "t.a", 3);
        Write<std::uint32_t>(*store, "t.c", 3);
    }
    EXPECT_EQ(Read<std::uint32_t>(*store, "t.a"), 2u);
    EXPECT_FALSE(Read<std::uint32_t>(*store, "t.c"));
    EXPECT_EQ(Read<std::uint32_t>(*OpenStore(), "t.a"), 2u);
}

// A file of no database at all is met through igd, in its store fault tests.
TEST_F(PreferenceStoreTest, FilesThatAreNotOursAreRefusedAndLeftAlone) {
    const auto withSql = [](const char* sql) {
        return [sql](const std::string& path) {
            sqlite3* db = nullptr;
            sqlite3_open(path.c_str(), &db);
            sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
            sqlite3_close(db);
        };
    };
    const struct {
        std::function<void(const std::string&)> make;
        const char* message;
    } cases[] = {
        {withSql("CREATE TABLE other (x)"), ": not a preference file of IGD"},
        {withSql("CREATE TABLE preferences (key, kind, value); PRAGMA application_id=1229407312; "
                 "PRAGMA user_version=7;"),
         ": written by a newer IGD (schema version 7"},
    };
    for (const auto& c : cases) {
        tree_.MakeFile("home/preferences.db");
        std::remove(DatabasePath().c_str());
        c.make(DatabasePath());
        const std::string before = FileContent();
        try {
            OpenStore();
            ADD_FAILURE() << "opened; expected" << c.message;
        } catch (const PreferenceStoreError& error) {
            EXPECT_NE(std::string(error.what()).find(DatabasePath() + c.message), std::string::npos)
                << error.what();
        }
        EXPECT_TRUE(FileContent() == before) << c.message << ": the file was changed";
    }
}

} // namespace
} // namespace igd::test
