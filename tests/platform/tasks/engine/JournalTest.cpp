// The journal: what it keeps of each task is enough to run it again, in another process. The file
// and batch states a crash leaves in it are where ResumeTest starts from.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "EngineTestSupport.h"
#include "QL/Engine/Journal.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

QL::IngestCustomData SampleData() {
    QL::IngestCustomData data;
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->schemaNamespace = u"http://ns.example.com/shoot/";
    set->presetName = u"Shoot";
    set->values = {{u"scene", u"12A"}, {u"note", u"caf\u00e9 \U0001F3AC"}};
    data.metadataSets.push_back(set);
    data.minimumMetadata.keywords = {u"night"};
    data.minimumMetadata.storeEmptyInfo = true;
    return data;
}

class JournalTest : public ::testing::Test {
protected:
    std::string Path() const { return tree.NativePath("home/journal.sqlite"); }
    TempTree tree;
    fluxcore::utility::Guid batch = fluxcore::utility::Guid::CreateUnique();
};

TEST_F(JournalTest, CopyAndMetadataTasksComeBackAsSubmittedWithNamesAndMetadata) {
    QL::IngestTask::CopyUnitRef unit =
        FileUnit(u"/card", u"/main", "A001.MOV", {"A001.xmp"}, QL::kCopyActionKeepBoth);
    unit->renames = {{u"/main/A001.MOV", u"Day1"}};
    const TaskRecord copy =
        MakeCopyRecord(CopyOf({unit}, QL::IngestTask::kVerifyBitByBit, true), SampleData());

    QL::IngestTask::UpdateMetadataSetting updateSetting;
    updateSetting.renames = {{u"/card/A001.MOV", u"Hero"}};
    updateSetting.clipGuids = {{u"/card/A001.MOV", fluxcore::utility::Guid::CreateUnique()}};
    updateSetting.importItems = unit->importItems;
    updateSetting.addToProject = false;
    const TaskRecord update = MakeUpdateMetadataRecord(updateSetting, SampleData());

    std::vector<FileRecord> files;
    {
        Journal journal(Path());
        journal.AddTask(batch, copy, files);
        ASSERT_EQ(files.size(), 2u);
        EXPECT_EQ(files[1].target, u"/main/A001.xmp");
        EXPECT_EQ(files[1].action, QL::kCopyActionKeepBoth);
        std::vector<FileRecord> none;
        journal.AddTask(batch, update, none);
        EXPECT_TRUE(none.empty());
    }

    const std::optional<JournalBatch> loaded = Journal(Path()).LoadBatch(batch);
    ASSERT_TRUE(loaded.has_value());
    EXPECT_EQ(loaded->state, BatchState::Waiting);
    ASSERT_EQ(loaded->tasks.size(), 2u);

    const QL::IngestTask::CopySetting& copyBack = loaded->tasks[0].record.Copy();
    EXPECT_EQ(copyBack.verifyMode, QL::IngestTask::kVerifyBitByBit);
    EXPECT_TRUE(copyBack.addToProject);
    const QL::IngestTask::CopyUnit& unitBack = *copyBack.units.front();
    ASSERT_EQ(unitBack.entries.size(), 2u);
    EXPECT_EQ(unitBack.entries.back().source, u"/card/A001.xmp");
    EXPECT_EQ(unitBack.renames, unit->renames);
    EXPECT_EQ(unitBack.clipGuids, unit->clipGuids);
    const QL::IngestItem& item = *unitBack.importItems.at(u"/main/A001.MOV");
    EXPECT_EQ(item.extraPaths, std::vector<Fnd::WString>{u"/main/A001.xmp"});
    const QL::IngestCustomData& data = loaded->tasks[0].record.data;
    ASSERT_EQ(data.metadataSets.size(), 1u);
    EXPECT_EQ(data.metadataSets.front()->values.at(u"note"), u"caf\u00e9 \U0001F3AC");
    EXPECT_EQ(data.minimumMetadata.keywords, std::set<Fnd::WString>{u"night"});
    EXPECT_TRUE(data.minimumMetadata.storeEmptyInfo);

    const QL::IngestTask::UpdateMetadataSetting& updateBack = loaded->tasks[1].record.UpdateMetadata();
    EXPECT_EQ(updateBack.renames, updateSetting.renames);
    EXPECT_EQ(updateBack.clipGuids, updateSetting.clipGuids);
    EXPECT_FALSE(updateBack.addToProject);
}

// A task record that does not decode is refused through `igd resume` (StoreFaultTest).
TEST_F(JournalTest, RefusesANewerJournalWithTheFileNamed) {
    { Journal created(Path()); }
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(Path().c_str(), &db), SQLITE_OK);
    sqlite3_exec(db, "UPDATE meta SET value = '7' WHERE key = 'version'", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    try {
        Journal newer(Path());
        ADD_FAILURE() << "a journal of a newer version was opened";
    } catch (const JournalError& error) {
        EXPECT_EQ(std::string(error.what()),
                  "the task journal " + Path() + " was written by a newer version of igd (7)");
    }
}

} // namespace
} // namespace igd::test
