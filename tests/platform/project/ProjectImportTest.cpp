#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Proj/Project.h"
#include "ProjectTestSupport.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using Proj::ItemMetadata;
using Proj::ProjectItem;

const Fnd::WString kDublinCore = u"http://purl.org/dc/elements/1.1/";
const Fnd::WString kShoot = u"http://ns.example.com/igd/shoot/1.0/";

class ProjectImport : public ::testing::Test {
protected:
    std::string ProjectPath() const { return tree_.NativePath("project.igdproj"); }
    std::unique_ptr<Proj::Project> Reopen() const { return Proj::Project::Open(ProjectPath()); }

    TempTree tree_;
    std::unique_ptr<Proj::Project> project_ = Proj::Project::Open(ProjectPath());
};

TEST_F(ProjectImport, BinsAreMadeOnDemandAndItemsKeepTheirImportOrder) {
    EXPECT_EQ(project_->Bins(), std::vector<Fnd::WString>{u""}) << "a new project has its root bin only";
    project_->ImportItem(MakeItem(u"/card/A003.MOV", u"Day 2"));
    project_->ImportItem(MakeItem(u"/card/A001.MOV"));
    project_->ImportItem(MakeItem(u"/card/A002.MOV", u"Day 2"));
    project_->ImportItem(MakeItem(u"/card/B001.MOV", u"Day 1"));

    EXPECT_EQ(project_->Bins(), (std::vector<Fnd::WString>{u"", u"Day 1", u"Day 2"}));
    const auto paths = [](const std::vector<ProjectItem>& items) {
        std::vector<Fnd::WString> all;
        for (const ProjectItem& item : items)
            all.push_back(item.path);
        return all;
    };
    const Fnd::WString day2 = u"Day 2", none = u"Day 9";
    EXPECT_EQ(paths(project_->Items(&day2)), (std::vector<Fnd::WString>{u"/card/A003.MOV", u"/card/A002.MOV"}));
    EXPECT_TRUE(project_->Items(&none).empty());
    EXPECT_EQ(paths(project_->Items()), (std::vector<Fnd::WString>{u"/card/A003.MOV", u"/card/A001.MOV",
                                                                   u"/card/A002.MOV", u"/card/B001.MOV"}));
}

TEST_F(ProjectImport, EveryFieldIsStoredAndAnsweredAsStored) {
    ProjectItem item = MakeItem(u"/media/Dreh \u00FCber/\u5F71\u50CF.MXF", u"Szene \u00C4");
    item.name = u"Szene 1 \u2013 Take 3";
    item.format = u"MXF OP1a";
    item.extraPaths = {u"/media/Dreh \u00FCber/\u5F71\u50CF.XML", u"/media/Dreh \u00FCber/\u5F71\u50CF.xmp"};
    item.inPoint = 0;
    item.outPoint = -254016000000LL * 3; // negative times are times, not "unset"
    item.frameRate = 10594584000;
    item.clipGuid = fluxcore::utility::Guid::CreateUnique();
    item.metadata = {{kShoot, "shoot", {{u"scene", u"1"}, {u"empty", u""}}}};
    item.digests = {{item.path, "xxh128", "99aa06d3014798d86001c324468d497f"},
                    {item.extraPaths[0], "md5", "0123456789abcdef0123456789abcdef"}};

    EXPECT_EQ(Describe(project_->ImportItem(item)), Describe(item));
    ASSERT_TRUE(Reopen()->FindItem(item.path));
    EXPECT_EQ(Describe(*Reopen()->FindItem(item.path)), Describe(item)) << "seen by a new object";

    const ProjectItem bare = MakeItem(u"/card/A001.MOV");
    EXPECT_EQ(Describe(project_->ImportItem(bare)), Describe(bare))
        << "unset times, rate and Guid stay unset";
    EXPECT_FALSE(project_->FindItem(u"/card/A002.MOV"));
}

TEST_F(ProjectImport, TheSamePathAgainUpdatesTheItemInPlaceAsARenameDoes) {
    ProjectItem first = MakeItem(u"/card/A001.MOV", u"Day 1");
    first.clipGuid = fluxcore::utility::Guid::CreateUnique();
    first.extraPaths = {u"/card/A001.XML", u"/card/A001.xmp"};
    first.digests = {{u"/card/A001.MOV", "md5", "900150983cd24fb0d6963f7d28e17f72"},
                     {u"/card/A001.XML", "md5", "d41d8cd98f00b204e9800998ecf8427e"}};
    first.inPoint = 10;
    project_->ImportItem(first);
    project_->ImportItem(MakeItem(u"/card/A002.MOV", u"Day 1"));

    // Another spelling of the path, another bin and no Guid: the bin and the Guid stay. The file
    // copied again by another checksum has its digest replaced, the other file's stays.
    ProjectItem renamed = MakeItem(u"/card//./A001.MOV", u"Other bin");
    renamed.name = u"Interview";
    renamed.extraPaths = {u"/card/A001.xmp"};
    renamed.digests = {{u"/card//A001.MOV", "xxh64", "44bc2cf5ad770999"}};
    ProjectItem expected = renamed;
    expected.path = u"/card/A001.MOV";
    expected.bin = u"Day 1";
    expected.clipGuid = first.clipGuid;
    expected.digests = {{u"/card/A001.MOV", "xxh64", "44bc2cf5ad770999"}, first.digests[1]};
    EXPECT_EQ(Describe(project_->ImportItem(renamed)), Describe(expected));
    ProjectItem newGuid = expected;
    newGuid.clipGuid = fluxcore::utility::Guid::CreateUnique();
    project_->ImportItem(newGuid);

    const std::vector<ProjectItem> items = project_->Items();
    ASSERT_EQ(items.size(), 2u) << "updated, never duplicated";
    EXPECT_EQ(Describe(items[0]), Describe(newGuid)) << "a new Guid replaces the old; the first import order stays";
    EXPECT_EQ(project_->Bins(), (std::vector<Fnd::WString>{u"", u"Day 1"})) << "no bin made for an update";
    EXPECT_TRUE(project_->RenameItem(u"/card/A001.MOV", u"Take 2"));
    EXPECT_FALSE(project_->RenameItem(u"/card/A009.MOV", u"Nobody"));
    newGuid.name = u"Take 2";
    EXPECT_EQ(Describe(*Reopen()->FindItem(newGuid.path)), Describe(newGuid)) << "a rename changes the name only";
}

TEST_F(ProjectImport, MetadataMergesByNamespaceAndKey) {
    ProjectItem item = MakeItem(u"/card/A001.MOV");
    item.metadata = {{kShoot, "shoot", {{u"scene", u"1"}, {u"take", u"1"}}}};
    project_->ImportItem(item);

    item.metadata = {{kShoot, "shoot2", {{u"take", u"2"}, {u"camera", u"A"}}},
                     {kDublinCore, "dc", {{u"title", u"Interview"}}}};
    project_->ImportItem(item);
    ASSERT_TRUE(project_->MergeMetadata(
        u"/card/A001.MOV", {{kDublinCore, "dc", {{u"title", u"Final"}}}, {kShoot, "shoot2", {}}}));
    EXPECT_FALSE(project_->MergeMetadata(u"/card/none.MOV", {{kDublinCore, "dc", {{u"title", u"x"}}}}));

    const std::vector<ItemMetadata> expected{
        {kShoot, "shoot2", {{u"camera", u"A"}, {u"scene", u"1"}, {u"take", u"2"}}},
        {kDublinCore, "dc", {{u"title", u"Final"}}},
    };
    ProjectItem expectedItem = MakeItem(u"/card/A001.MOV");
    expectedItem.metadata = expected;
    EXPECT_EQ(Describe(*project_->FindItem(item.path)), Describe(expectedItem));
    EXPECT_EQ(Describe(Reopen()->Items()), Describe(std::vector<ProjectItem>{expectedItem}));
}

TEST_F(ProjectImport, ABatchIsStoredWholeOrNotAtAll) {
    std::vector<ProjectItem> batch{MakeItem(u"/card/A001.MOV", u"Day 1"), MakeItem(u"/card/A002.MOV"),
                                   MakeItem(u"/card/A001.MOV", u"Day 1")};
    batch[2].name = u"again";
    const std::vector<ProjectItem> stored = project_->ImportItems(batch);
    ASSERT_EQ(stored.size(), 3u);
    EXPECT_EQ(stored[2].name, u"again");
    EXPECT_EQ(project_->Items().size(), 2u);

    const std::vector<ProjectItem> broken{MakeItem(u"/card/A003.MOV", u"Day 3"), MakeItem(u"")};
    EXPECT_THROW(project_->ImportItems(broken), std::invalid_argument);
    EXPECT_FALSE(project_->FindItem(u"/card/A003.MOV"));
    EXPECT_EQ(project_->Bins(), (std::vector<Fnd::WString>{u"", u"Day 1"}));
    // The statements are usable after the failure.
    EXPECT_EQ(project_->ImportItem(MakeItem(u"/card/A004.MOV")).path, u"/card/A004.MOV");
}

} // namespace
} // namespace igd::test
