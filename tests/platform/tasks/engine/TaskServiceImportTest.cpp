// What lands in the project and in the sidecars once the copies are settled.
#include <gtest/gtest.h>

#include "EngineTestSupport.h"
#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"
#include "Proj/Project.h"
#include "QL/XmpSidecarWriter.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

const Fnd::WString kShootNamespace = u"http://ns.example.com/igd/shoot/1.0/";

QL::IngestCustomData ShootMetadata() {
    QL::IngestCustomData data;
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->schemaNamespace = kShootNamespace;
    set->presetName = u"Shoot";
    set->values = {{u"scene", u"12A"}, {u"take", u"3"}};
    data.metadataSets.push_back(set);
    return data;
}

std::shared_ptr<QL::IngestItem> InPlaceItem(const Fnd::WString& path, const Fnd::WString& name) {
    auto item = std::make_shared<QL::IngestItem>();
    item->path = path;
    item->name = name;
    item->format = u"com.veltrix.Kestrel.WinProviderDirectory";
    return item;
}

class TaskServiceImportTest : public EngineTest {
protected:
    Fnd::WString In(const Fnd::WString& folder, std::u16string_view name) const {
        return Mid::Utilities::CombinePaths(folder, name);
    }

    const BatchOutcomeMessage& Run(TaskService&, const Fnd::WString& bin = {}) {
        StartBatch(batch, bin);
        return RunUntilOutcome(log, batch);
    }

    std::vector<Proj::ProjectItem> ProjectItems() const {
        return Proj::Project::Open(home.ProjectPath())->Items();
    }
};

TEST_F(TaskServiceImportTest, AnImportTaskImportsInPlaceAndNamesWhatIsMissing) {
    const Fnd::WString present = tree.MakeFile("card/A001.MOV", "frames");
    const Fnd::WString missing = tree.Path("card/A009.MOV");
    QL::IngestTask::ImportSetting setting;
    setting.importItems = {{present, InPlaceItem(present, u"A001.MOV")},
                           {missing, InPlaceItem(missing, u"A009.MOV")}};
    TaskService service(TestOptions(home));
    service.SubmitImportTask(setting, batch, {});
    const BatchOutcomeMessage& outcome = Run(service, u"Selects");
    EXPECT_EQ(outcome.status, OutcomeStatus::Failed);
    EXPECT_EQ(outcome.itemsImported, 1u);
    ASSERT_EQ(log.tasks.size(), 1u);
    EXPECT_EQ(log.tasks[0].kind, TaskKind::Import);
    EXPECT_EQ(Fnd::ToUTF8(log.tasks[0].reason), Fnd::ToUTF8(missing) + ": not found");

    const std::vector<Proj::ProjectItem> items = ProjectItems();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].path, present);
    EXPECT_EQ(items[0].bin, u"Selects");
}

// Without import only the items the project holds are named; with it the rest are added. The media
// on disk keep their names either way.
TEST_F(TaskServiceImportTest, UpdateMetadataNamesItemsWithoutRenamingMediaOnDisk) {
    const Fnd::WString known = tree.MakeFile("card/A001.MOV", "frames");
    const Fnd::WString unknown = tree.MakeFile("card/A002.MOV", "frames");
    Proj::ProjectItem existing;
    existing.path = known;
    existing.name = u"A001.MOV";
    Proj::Project::Open(home.ProjectPath())->ImportItem(existing);

    for (const bool addToProject : {false, true}) {
        SCOPED_TRACE(addToProject);
        QL::IngestTask::UpdateMetadataSetting setting;
        setting.addToProject = addToProject;
        setting.importItems = {{known, InPlaceItem(known, u"A001.MOV")},
                               {unknown, InPlaceItem(unknown, u"A002.MOV")}};
        setting.renames = {{known, u"Hero"}, {unknown, u"Villain"}};
        TaskService service(TestOptions(home));
        batch = fluxcore::utility::Guid::CreateUnique();
        service.SubmitUpdateMetadataTask(setting, batch, ShootMetadata());
        EXPECT_EQ(Run(service).status, OutcomeStatus::Succeeded);

        const std::vector<Proj::ProjectItem> items = ProjectItems();
        ASSERT_EQ(items.size(), addToProject ? 2u : 1u);
        EXPECT_EQ(items[0].name, u"Hero");
        EXPECT_FALSE(items[0].metadata.empty());
        EXPECT_EQ(items.back().path, addToProject ? unknown : known);
        if (addToProject) {
            EXPECT_EQ(items.back().extraPaths, std::vector<Fnd::WString>{In(source, u"A002.xmp")});
        }
    }
    EXPECT_TRUE(Fnd::PathUtils::ExistsOnDisk(known, false));
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(In(source, u"Hero.MOV"), false));
    EXPECT_EQ(QL::ReadXmpProperty(Fnd::ToUTF8(In(source, u"A002.xmp")), kShootNamespace, u"take"), u"3");
}

} // namespace
} // namespace igd::test
