// The copy branch of the plan, record by record: entries, import items, renames and clip Guids.
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <set>

#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/plan/IngestPlan.h"
#include "pipeline/naming/RenameTargets.h"

namespace igd::test {
namespace {

using Fnd::WString;
using QL::IngestTask::CopyUnit;
using GuidMap = std::map<WString, fluxcore::utility::Guid>;

TEST_F(PlanTest, ARenamedSingleFileTakesItsSidecarAlongAFolderBasedClipKeepsItsFileNames) {
    auto session = SessionWithClips();
    tree.MakeFile("src/A001.MOV");
    auto clip = AddClip(*session, "A001.MOV", {"A001.XMP", "notes.txt"}, "Shot_01");
    clip->SetInPoint(10);
    clip->SetOutPoint(20);
    clip->SetFrameRate(1001);
    tree.MakeFile("src/PRIVATE/CLIP/C0001.MXF");
    AddClip(*session, "PRIVATE/CLIP/C0001.MXF", {"PRIVATE/CLIP/C0001.xmp"}, "Shot_02", /*single=*/false);
    AddDestination(*session, "p", true, /*applyRename=*/true);
    session->SetVerifyMode(QL::IngestTask::kVerifyFileSize);

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
    EXPECT_EQ(tasks->Tasks()[0].batch, batch_);
    EXPECT_EQ(CopyAt(0).verifyMode, QL::IngestTask::kVerifyFileSize);
    EXPECT_TRUE(CopyAt(0).addToProject);
    ASSERT_EQ(CopyAt(0).units.size(), 2u);
    const CopyUnit& single = UnitAt(CopyAt(0), 0);
    // The upper-case sidecar follows the new name; other extra files keep theirs.
    EXPECT_EQ(Moves(single), (Strings{"src/A001.MOV > p/Shot_01.MOV", "src/A001.XMP > p/Shot_01.XMP",
                                      "src/notes.txt > p/notes.txt"}));
    EXPECT_EQ(Actions(single), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(Named(single.importItems), (NameMap{{"p/Shot_01.MOV", "Shot_01"}}));
    const QL::IngestItem& imported = *single.importItems.begin()->second;
    EXPECT_EQ(imported.format, u"com.veltrix.Kestrel.WinProviderDirectory");
    EXPECT_EQ(Timing(imported), (Ints{10, 20, 1001}));
    EXPECT_EQ(imported.extraPaths, (std::vector<WString>{tree.Path("p/A001.XMP"), tree.Path("p/notes.txt")}));
    EXPECT_EQ(Named(single.renames), (NameMap{{"p/Shot_01.MOV", "Shot_01"}}));
    EXPECT_EQ(single.clipGuids, (GuidMap{{tree.Path("p/Shot_01.MOV"), clip->GetClipGuid()}}));

    // The folder-based clip is renamed in the project only.
    const CopyUnit& folderBased = UnitAt(CopyAt(0), 1);
    EXPECT_EQ(Moves(folderBased), (Strings{"src/PRIVATE/CLIP/C0001.MXF > p/PRIVATE/CLIP/C0001.MXF",
                                           "src/PRIVATE/CLIP/C0001.xmp > p/PRIVATE/CLIP/C0001.xmp"}));
    EXPECT_EQ(Named(folderBased.renames), (NameMap{{"p/PRIVATE/CLIP/C0001.MXF", "Shot_02"}}));
    EXPECT_EQ(Named(folderBased.importItems), (NameMap{{"p/PRIVATE/CLIP/C0001.MXF", "Shot_02"}}));
}

// Which of the extra files is the sidecar that follows a rename.
TEST(FindSidecarPathTest, FindsTheFirstXmpInAnyCase) {
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.wav", u"A001.XMP", u"A001.xmp"}), u"A001.XMP");
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.MOV.xmp"}), u"A001.MOV.xmp");
    EXPECT_EQ(IGD::FindSidecarPath({u"sub/A001.XmP"}), u"sub/A001.XmP");
    EXPECT_EQ(IGD::FindSidecarPath({}), u"");
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.wav", u"A001.xmp.bak"}), u"");
    // A hidden file named ".xmp" has no extension at all.
    EXPECT_EQ(IGD::FindSidecarPath({u".xmp"}), u"");
}

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
    EXPECT_EQ(Named(backup.renames), (backupRenames ? NameMap{{"b/Shot_01.MOV", "Shot_01"}} : NameMap{}));
    // The project shows the new name either way, and the clip is the same clip everywhere, filed
    // under the name it resolves to even where the file keeps its own.
    EXPECT_EQ(Named(backup.importItems), (NameMap{{stem + ".MOV", "Shot_01"}}));
    EXPECT_EQ(backup.clipGuids, (GuidMap{{tree.Path("b/Shot_01.MOV"), clip->GetClipGuid()}}));
    const CopyUnit& primary = UnitAt(CopyAt(1));
    EXPECT_EQ(Moves(primary), (Strings{"src/A001.MOV > p/Shot_01.MOV", "src/A001.xmp > p/Shot_01.xmp"}));
    EXPECT_EQ(Named(primary.renames), (NameMap{{"p/Shot_01.MOV", "Shot_01"}}));
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
    // The flag is written after the first entry went in: only the entries of the content have it.
    std::vector<bool> folderFlags;
    for (const QL::CopyEntry& entry : unit.entries)
        folderFlags.push_back(entry.isFolder);
    EXPECT_EQ(folderFlags, (std::vector<bool>{false, true, true, true}));
    // Files of the folder are imported, its sub-folders are not; a folder has no rename or identity.
    EXPECT_EQ(Named(unit.importItems), (NameMap{{"p/Card/CLIP/a.mxf", "a.mxf"}, {"p/Card/b.mxf", "b.mxf"}}));
    EXPECT_TRUE(unit.renames.empty());
    EXPECT_TRUE(unit.clipGuids.empty());
}

// A destination without decisions ends the plan, keeping what was submitted before it. Disabled
// after the decisions, a destination has them: only a hosted application (kinds 5 and 8) reads
// the flag as the end of the request.
struct StopCase {
    int hostKind;
    bool disabledBeforeDecisions;
    std::size_t copies;
};

void PrintTo(const StopCase& c, std::ostream* os) {
    *os << "kind " << c.hostKind << (c.disabledBeforeDecisions ? ", disabled before" : ", disabled after");
}

class PlanStopTest : public PlanTest, public ::testing::WithParamInterface<StopCase> {};

TEST_P(PlanStopTest, ADisabledDestinationEndsThePlanWhenItHasNoDecisionsOrTheHostHasItsWay) {
    HostApp::SetApplicationType(GetParam().hostKind);
    auto session = SessionWithClips({"A001.MOV"});
    AddDestination(*session, "p", true);
    auto disabled = AddDestination(*session, "b1", false);
    AddDestination(*session, "b2", false);
    disabled->SetEnabled(!GetParam().disabledBeforeDecisions);
    ASSERT_TRUE(Decide(*session));
    disabled->SetEnabled(false);

    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(Kinds(), KindList(GetParam().copies, TaskKind::Copy));
    EXPECT_EQ(Moves(UnitAt(CopyAt(0))), Strings{"src/A001.MOV > p/A001.MOV"});
}

INSTANTIATE_TEST_SUITE_P(Cases, PlanStopTest,
                         ::testing::Values(StopCase{0, true, 1}, StopCase{0, false, 3}, StopCase{5, false, 1},
                                           StopCase{8, false, 1}));

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
    for (const QL::IngestTask::CopySetting& setting : tasks->Copies()) {
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

    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
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

} // namespace
} // namespace igd::test
