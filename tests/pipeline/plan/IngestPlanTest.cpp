// What the plan makes of a decided request: which tasks in which order for each kind of session,
// then the copy, transcode and stitch branches record by record.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "AppFrame/DocumentManager.h"
#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/naming/RenameTargets.h"
#include "pipeline/plan/IngestPlan.h"

namespace igd::test {
namespace {

using Fnd::WString;
using QL::IngestTask::CopyUnit;
using QL::IngestTask::TranscodeSetting;

// Which tasks each kind of request submits, all under the batch. The clips A001.MOV and A002.MOV
// are changed by the words of setup: "none" drops them, "folder" adds one, "named" gives A002 an
// outputName, "metadata" gives the template values, "local" installs a local project,
// "importOnly" sets the session's flag. Destinations are one letter each, in order: c copies,
// t transcodes, s stitches.
TEST_F(PlanTest, EachKindOfRequestSubmitsItsTasksUnderTheBatch) {
    using K = TaskKind;
    const struct {
        const char* what;
        std::string setup;
        const char* destinations;
        KindList expected;
    } cases[] = {
        {"nothing to write imports", "", "", {K::Import}},
        {"names on a local project update metadata", "local named", "", {K::UpdateMetadata}},
        {"metadata without items submits nothing", "none metadata", "", {}},
        {"a copy per destination, a transcode per item, one stitch", "", "tccs",
         {K::Transcode, K::Transcode, K::Copy, K::Copy, K::Concatenate}},
        {"an empty selection still copies", "none", "c", {K::Copy}},
        {"the import only flag is not read", "importOnly", "c", {K::Copy}},
        {"a stitch with a folder gives that destination nothing", "folder", "sc", {K::Copy}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const auto Has = [&c](std::string_view word) { return c.setup.find(word) != std::string::npos; };
        tasks->Clear();
        AppFrame::DocumentManager::SetInstance(
            Has("local") ? std::make_shared<AppFrame::FixedDocumentManager>(false) : nullptr);
        auto session = Has("none") ? SessionWithClips() : SessionWithClips({"A001.MOV", "A002.MOV"});
        if (Has("folder")) {
            tree.MakeFile("src/Card/x.mxf");
            AddFolder(*session, "Card", {"Card/x.mxf"});
        }
        if (Has("named"))
            session->GetSelectedItems()[1]->SetOutputName(u"Shot_02");
        if (Has("metadata"))
            session->SetCustomData(CustomDataWithMetadata());
        session->SetImportOnly(Has("importOnly"));
        for (std::size_t i = 0; c.destinations[i] != '\0'; ++i) {
            const char kind = c.destinations[i];
            auto destination = AddDestination(*session, std::string(1, kind) + std::to_string(i), i == 0);
            if (kind != 'c')
                Transcode(*destination, /*concatenate=*/kind == 's');
        }

        DecideAndRun(session);

        EXPECT_EQ(Kinds(), c.expected);
        for (const RecordedTask& task : tasks->Tasks())
            EXPECT_EQ(task.batch, batch_);
    }
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

class TwoDestinationsTest : public PlanTest, public ::testing::WithParamInterface<unsigned> {};

// The backup comes first: each destination follows its own flags, not its position.
TEST_P(TwoDestinationsTest, TheBackupRenamesOnlyWithScopeZeroAndOnlyThePrimaryAddsToTheProject) {
    const bool backupRenames = GetParam() == 0;
    tree.MakeFile("src/A001.MOV");
    auto session = SessionWithClips();
    session->SetRenameApplyScope(GetParam());
    auto clip = AddClip(*session, "A001.MOV", {"A001.xmp"}, "Shot_01");
    // The apply scope step before the plan turns the scope into these flags.
    AddDestination(*session, "b", false, /*applyRename=*/backupRenames, /*applyMetadata=*/true);
    AddDestination(*session, "p", true, /*applyRename=*/true);
    session->SetCustomData(CustomDataWithMetadata());
    Strings heard;
    IGD::SetIngestCopyOutputFileNameCallback([&](const WString& target) { heard.push_back(Rel(target)); });

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), (KindList{TaskKind::Copy, TaskKind::Copy}));
    const CopyUnit& backup = UnitAt(CopyAt(0));
    const std::string stem = backupRenames ? "b/Shot_01" : "b/A001";
    EXPECT_EQ(Moves(backup), (Strings{"src/A001.MOV > " + stem + ".MOV", "src/A001.xmp > " + stem + ".xmp"}));
    // The project shows the new name either way, and the clip is the same clip everywhere.
    EXPECT_EQ(Named(backup.importItems), (NameMap{{stem + ".MOV", "Shot_01"}}));
    EXPECT_EQ(backup.clipGuids.begin()->second, clip->GetClipGuid());
    EXPECT_EQ(Moves(UnitAt(CopyAt(1))), (Strings{"src/A001.MOV > p/Shot_01.MOV", "src/A001.xmp > p/Shot_01.xmp"}));
    // The host hears of each main target as it is planned.
    EXPECT_EQ(heard, (Strings{stem + ".MOV", "p/Shot_01.MOV"}));

    EXPECT_FALSE(CopyAt(0).addToProject);
    EXPECT_TRUE(CopyAt(1).addToProject);
    // The template's values go where they are applied; the panel's answers travel everywhere.
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
    EXPECT_TRUE(tasks->Tasks()[1].customData.metadataSets.empty());
    EXPECT_EQ(tasks->Tasks()[1].customData.minimumMetadata.keywords, std::set<WString>{u"beach"});
}

INSTANTIATE_TEST_SUITE_P(Scopes, TwoDestinationsTest, ::testing::Values(0u, 1u));

TEST_F(PlanTest, AFolderIsOneEntryThenOneForEachOfItsPaths) {
    tree.MakeFile("src/Card/CLIP/a.mxf");
    tree.MakeFile("src/Card/b.mxf");
    tree.MakeFile("p/Card/b.mxf");
    auto session = SessionWithClips();
    auto folder = AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});
    folder->SetOutputName(u"Ignored");
    folder->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    AddDestination(*session, "p", true, /*applyRename=*/true);
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace);  // Card
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth); // Card/b.mxf

    DecideAndRun(session);

    const CopyUnit& unit = UnitAt(CopyAt(0));
    EXPECT_EQ(Moves(unit),
              (Strings{"src/Card > p/Card", "src/Card/CLIP > p/Card/CLIP",
                       "src/Card/CLIP/a.mxf > p/Card/CLIP/a.mxf", "src/Card/b.mxf > p/Card/b.mxf"}));
    EXPECT_EQ(Actions(unit), (std::vector<int>{3, 0, 0, 2}));
    // Files of the folder are imported, its sub-folders are not; a folder has no rename or identity.
    EXPECT_EQ(Named(unit.importItems), (NameMap{{"p/Card/CLIP/a.mxf", "a.mxf"}, {"p/Card/b.mxf", "b.mxf"}}));
    EXPECT_TRUE(unit.renames.empty());
    EXPECT_TRUE(unit.clipGuids.empty());
}

TEST_F(PlanTest, ASourceThatVanishedIsToldOnceForEachDestinationAndOnlyItsImportIsDropped) {
    auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
    AddDestination(*session, "p", true);
    AddDestination(*session, "b", false);
    ASSERT_TRUE(Decide(*session));
    std::filesystem::remove(tree.NativePath("src/A001.MOV"));
    ui->QueueBoxAnswer(0);
    ui->QueueBoxAnswer(0);

    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(ui->Boxes().size(), 2u);
    EXPECT_EQ(ui->Boxes()[1].text, u"The selected path " + tree.Path("src/A001.MOV") +
                                       u" does not exist. Please select the source clip again.");
    ASSERT_EQ(Kinds(), (KindList{TaskKind::Copy, TaskKind::Copy}));
    for (const QL::IngestTask::CopySetting& setting : {CopyAt(0), CopyAt(1)}) {
        ASSERT_EQ(setting.units.size(), 2u);
        EXPECT_EQ(UnitAt(setting, 0).entries.size(), 1u);
        EXPECT_TRUE(UnitAt(setting, 0).importItems.empty());
        EXPECT_EQ(UnitAt(setting, 1).importItems.size(), 1u);
    }
}

class HostedPlanTest : public PlanTest, public ::testing::WithParamInterface<int> {
protected:
    HostedPlanTest() { HostApp::SetApplicationType(GetParam()); }
};

TEST_P(HostedPlanTest, OnlyPlainFolderItemsAreRenamedAndATranscodeSettingIsNeverRun) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/C0001.MXF");
    auto session = SessionWithClips();
    AddClip(*session, "A001.MOV", {}, "Shot_01");
    AddClip(*session, "C0001.MXF", {}, "Shot_02")->SetItemFormat(u"com.veltrix.Kestrel.WinProviderCard");
    auto destination = AddDestination(*session, "p", true, /*applyRename=*/true);
    ASSERT_TRUE(Decide(*session));
    Transcode(*destination);

    // Set after the decisions, the setting is ignored and the destination copies...
    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
    EXPECT_EQ(Moves(UnitAt(CopyAt(0), 0)), Strings{"src/A001.MOV > p/Shot_01.MOV"});
    EXPECT_EQ(Actions(UnitAt(CopyAt(0), 0)), std::vector<int>{QL::kCopyActionKeepBoth});
    EXPECT_EQ(Moves(UnitAt(CopyAt(0), 1)), Strings{"src/C0001.MXF > p/C0001.MXF"});
    EXPECT_TRUE(UnitAt(CopyAt(0), 1).renames.empty());

    // ...set before them, it leaves the destination without decisions and the plan stops there.
    tasks->Clear();
    DecideAndRun(session);
    EXPECT_TRUE(tasks->Tasks().empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostedPlanTest, ::testing::Values(5, 8));

class TranscodePlanTest : public PlanTest {
protected:
    const TranscodeSetting& TaskAt(std::size_t index) const { return tasks->Tasks().at(index).Transcode(); }

    // The task as the folder its clips are read from, whether its outputs join the project, and
    // each clip as "path as name", the name marked with * when it is the request's.
    Strings Summary(std::size_t index) const {
        const TranscodeSetting& setting = TaskAt(index);
        Strings summary{"from " + Rel(setting.sourceRoot) +
                        (setting.addToProject ? " into the project" : "")};
        for (const QL::IngestTask::TranscodeClipEntry& clip : setting.clips)
            summary.push_back(Rel(clip.path) + " as " + Fnd::ToUTF8(clip.name) +
                              (clip.useOutputName ? "*" : ""));
        return summary;
    }
};

TEST_F(TranscodePlanTest, EachItemIsOneTaskFromACopyOfTheDestinationsSetting) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/day2/A002.MOV");
    tree.MakeFolder("src/Empty");
    tree.MakeFile("src/Card/x.mxf");
    tree.MakeFile("src/Card/y.mxf");
    auto session = SessionWithClips();
    auto first = AddClip(*session, "A001.MOV", {}, "Shot_01");
    first->SetClipName(u"Beach take");
    AddClip(*session, "day2/A002.MOV")->SetClipName(u"Second");
    AddFolder(*session, "Empty", {});
    AddFolder(*session, "Card", {"Card/x.mxf", "Card/y.mxf"});
    auto destination = AddDestination(*session, "p", true, /*applyRename=*/true);
    destination->SetSubFolder(u"proxies");
    auto own = Transcode(*destination);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), KindList(4, TaskKind::Transcode));
    EXPECT_EQ(TaskAt(3).outputPath, tree.Path("p/proxies"));
    // Without applyMetadata the template's values stay home.
    EXPECT_TRUE(tasks->Tasks()[0].customData.metadataSets.empty());
    EXPECT_EQ(Summary(0), (Strings{"from src into the project", "src/A001.MOV as Shot_01*"}));
    // Without an outputName the clip's name stands, still marked as a rename of the request.
    EXPECT_EQ(Summary(1), (Strings{"from src/day2 into the project", "src/day2/A002.MOV as Second*"}));
    // An empty folder names itself and adds nothing to the project; the last clip's folder stays.
    EXPECT_EQ(Summary(2), (Strings{"from src/day2", "src/Empty as "}));
    EXPECT_EQ(Summary(3),
              (Strings{"from src/day2 into the project", "src/Card/x.mxf as ", "src/Card/y.mxf as "}));
    // The destination's own setting is the settings model's and stays untouched.
    EXPECT_TRUE(own->clips.empty());
    EXPECT_TRUE(own->outputPath.empty());
}

// A stitch carries the whole selection; a backup without applyRename transcodes under the clip's
// own name and adds nothing to the project.
TEST_F(TranscodePlanTest, AStitchHoldsAllClipsInOrderAndCarriesTheMetadataEverywhere) {
    tree.MakeFile("src/day1/A001.MOV");
    tree.MakeFile("src/A002.MOV");
    auto session = SessionWithClips();
    auto first = AddClip(*session, "day1/A001.MOV", {}, "Shot_01");
    first->SetClipName(u"A001.MOV");
    first->SetInPoint(1);
    first->SetOutPoint(2);
    first->SetFrameRate(3);
    AddClip(*session, "A002.MOV")->SetClipName(u"A002.MOV");
    auto own = Transcode(*AddDestination(*session, "p", true, /*applyRename=*/true), /*concatenate=*/true);
    Transcode(*AddDestination(*session, "b", false, /*applyRename=*/false, /*applyMetadata=*/true));
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), (KindList{TaskKind::Concatenate, TaskKind::Transcode, TaskKind::Transcode}));
    EXPECT_EQ(Summary(0),
              (Strings{"from src/day1 into the project", "src/day1/A001.MOV as *", "src/A002.MOV as *"}));
    const QL::IngestTask::TranscodeClipEntry& timed = TaskAt(0).clips.front();
    EXPECT_EQ((std::vector<std::int64_t>{timed.inPoint, timed.outPoint, timed.frameRate}), (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_TRUE(own->clips.empty());
    EXPECT_EQ(Summary(1), (Strings{"from src/day1", "src/day1/A001.MOV as A001.MOV"}));
    // The stitch's destination does not apply the template, yet its values go along: unlike copy
    // and transcode, a stitch is not filtered by applyMetadata.
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
    EXPECT_EQ(tasks->Tasks()[1].customData.metadataSets.size(), 1u);
}

} // namespace
} // namespace igd::test
