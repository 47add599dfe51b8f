// What a request becomes: which tasks, in which order, for each kind of session.
#include <gtest/gtest.h>

#include <ostream>

#include "AppFrame/DocumentManager.h"
#include "HostApp/ApplicationType.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/plan/IngestPlan.h"

namespace igd::test {
namespace {

// The clips A001.MOV and A002.MOV, changed by the words of setup: "none" drops them, "folder"
// adds one, "named" gives A002 an outputName, "metadata" gives the template values, "local" or
// "server" installs a project, "importOnly" sets the session's flag.
struct RequestCase {
    const char* name;
    std::string setup;
    const char* destinations; // one letter each, in order: c copies, t transcodes, s stitches
    KindList expected;
};

void PrintTo(const RequestCase& c, std::ostream* os) {
    *os << c.name;
}

class RequestTableTest : public PlanTest, public ::testing::WithParamInterface<RequestCase> {
protected:
    bool Has(std::string_view word) const { return GetParam().setup.find(word) != std::string::npos; }
};

TEST_P(RequestTableTest, SubmitsTheTasksOfItsKindUnderTheBatch) {
    auto session = Has("none") ? SessionWithClips() : SessionWithClips({"A001.MOV", "A002.MOV"});
    if (Has("folder")) {
        tree.MakeFile("src/Card/x.mxf");
        AddFolder(*session, "Card", {"Card/x.mxf"});
    }
    if (Has("named"))
        session->GetSelectedItems()[1]->SetOutputName(u"Shot_02");
    if (Has("metadata"))
        session->SetCustomData(CustomDataWithMetadata());
    if (Has("local") || Has("server"))
        AppFrame::DocumentManager::SetInstance(
            std::make_shared<AppFrame::FixedDocumentManager>(Has("server")));
    session->SetImportOnly(Has("importOnly"));
    for (std::size_t i = 0; GetParam().destinations[i] != '\0'; ++i) {
        const char kind = GetParam().destinations[i];
        auto destination = AddDestination(*session, std::string(1, kind) + std::to_string(i), i == 0);
        if (kind != 'c')
            Transcode(*destination, /*concatenate=*/kind == 's');
    }

    DecideAndRun(session);

    EXPECT_EQ(Kinds(), GetParam().expected);
    for (const RecordedTask& task : tasks->Tasks())
        EXPECT_EQ(task.batch, batch_);
}

using K = TaskKind;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, RequestTableTest, ::testing::Values(
    RequestCase{"NothingToWriteImports",                         "",                "",     {K::Import}},
    RequestCase{"MetadataOnAServerProjectImports",               "server metadata", "",     {K::Import}},
    RequestCase{"NamesOnALocalProjectUpdateMetadata",            "local named",     "",     {K::UpdateMetadata}},
    RequestCase{"MetadataWithoutDocumentManagerUpdatesMetadata", "metadata",        "",     {K::UpdateMetadata}},
    RequestCase{"MetadataWithoutItemsSubmitsNothing",            "none metadata",   "",     {}},
    RequestCase{"CopyPerDestinationTranscodePerItemStitchOnce",  "",                "tccs",
                {K::Transcode, K::Transcode, K::Copy, K::Copy, K::Concatenate}},
    RequestCase{"AnEmptySelectionStillCopies",                   "none",            "c",    {K::Copy}},
    RequestCase{"TheImportOnlyFlagIsNotRead",                    "importOnly",      "c",    {K::Copy}},
    RequestCase{"AStitchWithAFolderGivesThatDestinationNothing", "folder",          "sc",   {K::Copy}}),
    [](const auto& info) { return std::string(info.param.name); });
// clang-format on

TEST_F(PlanTest, ANullSessionSubmitsNothing) {
    IGD::RunIngestPlan(nullptr, batch_);
    EXPECT_TRUE(tasks->Tasks().empty());
}

TEST_F(PlanTest, ImportOnlyImportsWhereTheMediaLieAndOnAServerProjectTakesTheMetadataAlong) {
    tree.MakeFile("src/day1/A001.MOV");
    tree.MakeFile("src/Card/CLIP/a.mxf");
    auto session = SessionWithClips();
    AddClip(*session, "day1/A001.MOV")->SetInPoint(100);
    AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf"});
    session->SetCustomData(CustomDataWithMetadata());
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), KindList{TaskKind::Import});
    const RecordedTask& task = tasks->Tasks()[0];
    const QL::IngestItemMap& items = task.Import().importItems;
    EXPECT_EQ(Named(items), (NameMap{{"src/day1/A001.MOV", "A001.MOV"}, {"src/Card/CLIP/a.mxf", "a.mxf"}}));
    EXPECT_EQ(items.at(tree.Path("src/day1/A001.MOV"))->inPoint, 100);
    ASSERT_EQ(task.customData.metadataSets.size(), 1u);
    EXPECT_EQ(task.customData.metadataSets.front()->values.at(u"Scene"), u"12");
}

class UpdateMetadataTest : public PlanTest, public ::testing::WithParamInterface<int> {};

TEST_P(UpdateMetadataTest, RenamesClipsUnderTheirSourcePathsAndOnlyKindEightKeepsThemOutOfTheProject) {
    HostApp::SetApplicationType(GetParam());
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/Card/x.mxf");
    auto session = SessionWithClips();
    AddClip(*session, "A001.MOV", {}, "Shot_01");
    AddFolder(*session, "Card", {"Card/x.mxf"})->SetOutputName(u"Card_Renamed");
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), KindList{TaskKind::UpdateMetadata});
    const QL::IngestTask::UpdateMetadataSetting& setting = tasks->Tasks()[0].UpdateMetadata();
    // Clips only, and under the paths the media keep on disk.
    EXPECT_EQ(Named(setting.renames), (NameMap{{"src/A001.MOV", "Shot_01"}}));
    EXPECT_EQ(Named(setting.importItems),
              (NameMap{{"src/A001.MOV", "Shot_01"}, {"src/Card/x.mxf", "x.mxf"}}));
    EXPECT_TRUE(setting.clipGuids.empty());
    EXPECT_EQ(setting.addToProject, GetParam() != 8);
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, UpdateMetadataTest, ::testing::Values(0, 5, 8));

} // namespace
} // namespace igd::test
