// What a request becomes: which tasks, in which order, for each kind of session.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include "AppFrame/DocumentManager.h"
#include "HostApp/ApplicationType.h"
#include "PlanTestSupport.h"
#include "pipeline/IngestPlan.h"

namespace igd::test {
namespace {

class IngestPlanRequestTest;

struct RequestCase {
    const char* label;
    std::function<void(IngestPlanRequestTest&, IGD::IIngestDialogData&)> arrange;
    std::vector<TaskKind> expected;
};

void PrintTo(const RequestCase& c, std::ostream* os) {
    *os << c.label;
}

class IngestPlanRequestTest : public PlanTest, public ::testing::WithParamInterface<RequestCase> {
public:
    using PlanTest::AddDestination;
    using PlanTest::AddFolder;
    using PlanTest::Transcode;
    using PlanTest::tree;
};

TEST_P(IngestPlanRequestTest, SubmitsTheTasksOfItsKindUnderTheBatch) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/A002.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddClip(*session, "A002.MOV");
    GetParam().arrange(*this, *session);

    DecideAndRun(session);

    std::vector<TaskKind> kinds;
    for (const RecordedTask& task : tasks->Tasks()) {
        kinds.push_back(task.kind);
        EXPECT_EQ(task.batch, batch_);
    }
    EXPECT_EQ(kinds, GetParam().expected);
}

void WithMetadata(IGD::IIngestDialogData& session) {
    QL::IngestCustomData data;
    data.metadataSets.push_back(std::make_shared<QL::MetadataFieldSet>());
    session.SetCustomData(data);
}

void OnServer(bool vault) {
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(vault));
}

using Test = IngestPlanRequestTest;
using Session = IGD::IIngestDialogData;

INSTANTIATE_TEST_SUITE_P(
    Table, IngestPlanRequestTest,
    ::testing::Values(
        RequestCase{"NoDestinationsNothingToWriteImports", [](Test&, Session&) {}, {TaskKind::Import}},
        RequestCase{"NoDestinationsNothingToWriteOnAServerProjectImports",
                    [](Test&, Session&) { OnServer(true); },
                    {TaskKind::Import}},
        RequestCase{"NoDestinationsMetadataOnAServerProjectImports",
                    [](Test&, Session& session) {
                        OnServer(true);
                        WithMetadata(session);
                    },
                    {TaskKind::Import}},
        RequestCase{"NoDestinationsNamesOnALocalProjectUpdatesMetadata",
                    [](Test&, Session& session) {
                        OnServer(false);
                        session.GetSelectedItems()[1]->SetOutputName(u"Shot_02");
                    },
                    {TaskKind::UpdateMetadata}},
        RequestCase{"NoDestinationsMetadataWithoutDocumentManagerUpdatesMetadata",
                    [](Test&, Session& session) { WithMetadata(session); },
                    {TaskKind::UpdateMetadata}},
        RequestCase{"CopyIsOneTaskForEachDestination",
                    [](Test& test, Session& session) {
                        test.AddDestination(session, "p", true);
                        test.AddDestination(session, "b", false);
                    },
                    {TaskKind::Copy, TaskKind::Copy}},
        RequestCase{
            "TranscodeIsOneTaskForEachItem",
            [](Test& test, Session& session) { Test::Transcode(*test.AddDestination(session, "p", true)); },
            {TaskKind::Transcode, TaskKind::Transcode}},
        RequestCase{"ConcatenateIsOneTaskForAllClips",
                    [](Test& test, Session& session) {
                        Test::Transcode(*test.AddDestination(session, "p", true), true);
                    },
                    {TaskKind::Concatenate}},
        RequestCase{"DestinationsGoInTheirOrder",
                    [](Test& test, Session& session) {
                        Test::Transcode(*test.AddDestination(session, "p", true));
                        test.AddDestination(session, "b", false);
                        Test::Transcode(*test.AddDestination(session, "s", false), true);
                    },
                    {TaskKind::Transcode, TaskKind::Transcode, TaskKind::Copy, TaskKind::Concatenate}},
        RequestCase{"TheImportOnlyFlagIsNotRead",
                    [](Test& test, Session& session) {
                        session.SetImportOnly(true);
                        test.AddDestination(session, "p", true);
                    },
                    {TaskKind::Copy}},
        RequestCase{"ConcatenateWithAFolderGivesThatDestinationNothing",
                    [](Test& test, Session& session) {
                        test.tree.MakeFile("src/Card/x.mxf");
                        test.AddFolder(session, "Card", {"Card/x.mxf"});
                        Test::Transcode(*test.AddDestination(session, "p", true), true);
                        test.AddDestination(session, "b", false);
                    },
                    {TaskKind::Copy}}),
    [](const auto& info) { return std::string(info.param.label); });

TEST_F(PlanTest, ANullSessionSubmitsNothing) {
    IGD::RunIngestPlan(nullptr, batch_);
    EXPECT_TRUE(tasks->Tasks().empty());
}

TEST_F(PlanTest, ImportOnlyImportsEachClipWhereItLies) {
    tree.MakeFile("src/day1/A001.MOV");
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "day1/A001.MOV", {"day1/A001.XMP"});
    clip->SetInPoint(100);
    clip->SetOutPoint(900);
    clip->SetFrameRate(40);
    session->SetCustomData(CustomDataWithMetadata());
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Import), 1u);
    const RecordedTask& task = tasks->Tasks()[0];
    ASSERT_EQ(task.Import().importItems.size(), 1u);
    const QL::IngestItem& item = *task.Import().importItems.at(tree.Path("src/day1/A001.MOV"));
    EXPECT_EQ(item.path, tree.Path("src/day1/A001.MOV"));
    EXPECT_EQ(item.name, u"A001.MOV");
    EXPECT_EQ(item.format, u"com.veltrix.Kestrel.WinProviderDirectory");
    EXPECT_EQ(item.extraPaths, std::vector<Fnd::WString>{tree.Path("src/day1/A001.XMP")});
    EXPECT_EQ(item.inPoint, 100);
    EXPECT_EQ(item.outPoint, 900);
    EXPECT_EQ(item.frameRate, 40);
    // On a server project the metadata travels with the import.
    ASSERT_EQ(task.customData.metadataSets.size(), 1u);
    EXPECT_EQ(task.customData.metadataSets.front()->values.at(u"Scene"), u"12");
}

TEST_F(PlanTest, ImportOnlyOfAFolderImportsItsFilesButNotItsFolders) {
    tree.MakeFile("src/Card/CLIP/a.mxf");
    tree.MakeFile("src/Card/b.mxf");
    auto session = NewSessionOverSource();
    AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Import), 1u);
    const QL::IngestItemMap items = tasks->Imports()[0].importItems;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items.at(tree.Path("src/Card/CLIP/a.mxf"))->name, u"a.mxf");
    EXPECT_EQ(items.at(tree.Path("src/Card/b.mxf"))->name, u"b.mxf");
    EXPECT_EQ(items.at(tree.Path("src/Card/b.mxf"))->inPoint, fluxmediatypes::kTime_Invalid);
}

TEST_F(PlanTest, UpdateMetadataRenamesProjectItemsUnderTheirSourcePaths) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/PRIVATE/C0001.MXF");
    tree.MakeFile("src/Card/x.mxf");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {}, "Shot_01");
    AddClip(*session, "PRIVATE/C0001.MXF", {}, "Shot_02", /*single=*/false);
    auto folder = AddFolder(*session, "Card", {"Card/x.mxf"});
    folder->SetOutputName(u"Card_Renamed");
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::UpdateMetadata), 1u);
    const QL::IngestTask::UpdateMetadataSetting setting = tasks->UpdateMetadatas()[0];
    // Clips only, and under the paths the media keep on disk.
    EXPECT_EQ(setting.renames,
              (std::map<Fnd::WString, Fnd::WString>{{tree.Path("src/A001.MOV"), u"Shot_01"},
                                                    {tree.Path("src/PRIVATE/C0001.MXF"), u"Shot_02"}}));
    EXPECT_TRUE(setting.clipGuids.empty());
    EXPECT_TRUE(setting.addToProject);
    ASSERT_EQ(setting.importItems.size(), 3u);
    EXPECT_EQ(setting.importItems.at(tree.Path("src/A001.MOV"))->name, u"Shot_01");
    EXPECT_EQ(setting.importItems.at(tree.Path("src/Card/x.mxf"))->name, u"x.mxf");
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
}

TEST_F(PlanTest, UpdateMetadataWithoutItemsSubmitsNothing) {
    auto session = NewSessionOverSource();
    session->SetCustomData(CustomDataWithMetadata());
    DecideAndRun(session);
    EXPECT_TRUE(tasks->Tasks().empty());
}

class UpdateMetadataHostTest : public PlanTest, public ::testing::WithParamInterface<std::pair<int, bool>> {};

TEST_P(UpdateMetadataHostTest, OnlyKindEightKeepsTheItemsOutOfTheProject) {
    HostApp::SetApplicationType(GetParam().first);
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {}, "Shot_01");

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::UpdateMetadata), 1u);
    EXPECT_EQ(tasks->UpdateMetadatas()[0].addToProject, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Kinds, UpdateMetadataHostTest,
                         ::testing::Values(std::pair{0, true}, std::pair{5, true}, std::pair{8, false}));

} // namespace
} // namespace igd::test
