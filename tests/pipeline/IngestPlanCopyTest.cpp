// The copy branch of the plan, record by record: entries, import items, renames and clip Guids.
#include <gtest/gtest.h>

#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <stdexcept>
#include <vector>

#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "PlanTestSupport.h"
#include "pipeline/IngestPlan.h"

namespace igd::test {
namespace {

using Fnd::WString;
using QL::IngestTask::CopySetting;
using QL::IngestTask::CopyUnit;

std::vector<QL::CopyEntry> Entries(const CopyUnit& unit) {
    return {unit.entries.begin(), unit.entries.end()};
}

const CopyUnit& UnitAt(const CopySetting& setting, std::size_t index) {
    auto it = setting.units.begin();
    std::advance(it, static_cast<std::ptrdiff_t>(index));
    return **it;
}

class CopyPlanTest : public PlanTest {
protected:
    // The index-th copy task, as the service recorded it.
    const CopySetting& CopyAt(std::size_t index) const {
        for (const RecordedTask& task : tasks->Tasks()) {
            if (task.kind == TaskKind::Copy && index-- == 0)
                return task.Copy();
        }
        throw std::out_of_range("no such copy task");
    }
};

TEST_F(CopyPlanTest, ARenamedSingleFileLandsUnderItsNewNameWithItsSidecar) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/A001.XMP");
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "A001.MOV", {"A001.XMP"}, "Shot_01");
    clip->SetInPoint(10);
    clip->SetOutPoint(20);
    clip->SetFrameRate(1001);
    AddDestination(*session, "p", true, /*applyRename=*/true);
    session->SetVerifyMode(QL::IngestTask::kVerifyFileSize);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    const CopySetting& setting = CopyAt(0);
    EXPECT_EQ(setting.verifyMode, QL::IngestTask::kVerifyFileSize);
    EXPECT_TRUE(setting.addToProject);
    ASSERT_EQ(setting.units.size(), 1u);
    const CopyUnit& unit = UnitAt(setting, 0);
    const std::vector<QL::CopyEntry> entries = Entries(unit);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].source, tree.Path("src/A001.MOV"));
    EXPECT_EQ(entries[0].target, tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(entries[0].action, 0);
    EXPECT_FALSE(entries[0].isFolder);
    EXPECT_EQ(entries[1].source, tree.Path("src/A001.XMP"));
    EXPECT_EQ(entries[1].target, tree.Path("p/Shot_01.XMP"));
    EXPECT_FALSE(entries[1].isFolder);

    ASSERT_EQ(unit.importItems.size(), 1u);
    const QL::IngestItem& imported = *unit.importItems.at(tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(imported.path, tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(imported.name, u"Shot_01");
    EXPECT_EQ(imported.format, u"com.veltrix.Kestrel.WinProviderDirectory");
    EXPECT_EQ(imported.inPoint, 10);
    EXPECT_EQ(imported.outPoint, 20);
    EXPECT_EQ(imported.frameRate, 1001);
    EXPECT_EQ(imported.extraPaths, std::vector<WString>{tree.Path("p/A001.XMP")});
    EXPECT_EQ(unit.renames, (std::map<WString, WString>{{tree.Path("p/Shot_01.MOV"), u"Shot_01"}}));
    EXPECT_EQ(unit.clipGuids, (std::map<WString, fluxcore::utility::Guid>{
                                  {tree.Path("p/Shot_01.MOV"), clip->GetClipGuid()}}));
    EXPECT_EQ(tasks->Tasks()[0].batch, batch_);
}

TEST_F(CopyPlanTest, EntriesCarryTheDecisionsOfTheirPaths) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("p/A001.MOV");
    tree.MakeFile("p/A001.XMP");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {"A001.XMP", "A001.WAV"});
    AddDestination(*session, "p", true);
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);

    DecideAndRun(session);

    const std::vector<QL::CopyEntry> entries = Entries(UnitAt(CopyAt(0), 0));
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].action, 1);
    EXPECT_EQ(entries[1].action, 1);
    EXPECT_EQ(entries[2].action, 1);
}

struct ScopeCase {
    unsigned scope;
    bool backupRenames;
};

void PrintTo(const ScopeCase& c, std::ostream* os) {
    *os << "scope " << c.scope;
}

class RenameScopeTest : public CopyPlanTest, public ::testing::WithParamInterface<ScopeCase> {};

TEST_P(RenameScopeTest, TheBackupRenamesOnlyWithScopeZero) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/A001.xmp");
    auto session = NewSessionOverSource();
    session->SetRenameApplyScope(GetParam().scope);
    auto clip = AddClip(*session, "A001.MOV", {"A001.xmp"}, "Shot_01");
    // The apply scope step before the plan turns the scope into these flags.
    AddDestination(*session, "p", true, /*applyRename=*/true);
    AddDestination(*session, "b", false, /*applyRename=*/GetParam().backupRenames);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 2u);
    const CopyUnit& primary = UnitAt(CopyAt(0), 0);
    EXPECT_EQ(Entries(primary)[0].target, tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(Entries(primary)[1].target, tree.Path("p/Shot_01.xmp"));
    EXPECT_EQ(primary.renames.size(), 1u);

    const CopySetting& backupSetting = CopyAt(1);
    EXPECT_FALSE(backupSetting.addToProject);
    const CopyUnit& backup = UnitAt(backupSetting, 0);
    const char* backupMain = GetParam().backupRenames ? "b/Shot_01.MOV" : "b/A001.MOV";
    const char* backupSidecar = GetParam().backupRenames ? "b/Shot_01.xmp" : "b/A001.xmp";
    EXPECT_EQ(Entries(backup)[0].target, tree.Path(backupMain));
    EXPECT_EQ(Entries(backup)[1].target, tree.Path(backupSidecar));
    EXPECT_EQ(backup.renames.size(), GetParam().backupRenames ? 1u : 0u);
    // The project shows the new name either way.
    ASSERT_EQ(backup.importItems.size(), 1u);
    EXPECT_EQ(backup.importItems.at(tree.Path(backupMain))->name, u"Shot_01");
    // The identity of the clip is the same at every destination.
    ASSERT_EQ(backup.clipGuids.size(), 1u);
    EXPECT_EQ(backup.clipGuids.begin()->second, clip->GetClipGuid());
}

INSTANTIATE_TEST_SUITE_P(Scopes, RenameScopeTest, ::testing::Values(ScopeCase{0, true}, ScopeCase{1, false}));

struct SidecarCase {
    const char* itemPath;
    const char* sidecar;
    const char* expectedTarget;
};

void PrintTo(const SidecarCase& c, std::ostream* os) {
    *os << c.sidecar;
}

class SidecarRenameTest : public CopyPlanTest, public ::testing::WithParamInterface<SidecarCase> {};

TEST_P(SidecarRenameTest, TheSidecarFollowsTheRenameAndKeepsItsForm) {
    tree.MakeFile(std::string("src/") + GetParam().itemPath);
    auto session = NewSessionOverSource();
    AddClip(*session, GetParam().itemPath, {GetParam().sidecar, "notes.txt"}, "Shot_01");
    AddDestination(*session, "p", true, /*applyRename=*/true);

    DecideAndRun(session);

    const std::vector<QL::CopyEntry> entries = Entries(UnitAt(CopyAt(0), 0));
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[1].source, tree.Path(std::string("src/") + GetParam().sidecar));
    EXPECT_EQ(entries[1].target, tree.Path(GetParam().expectedTarget));
    // Other extra files keep their names.
    EXPECT_EQ(entries[2].target, tree.Path("p/notes.txt"));
}

INSTANTIATE_TEST_SUITE_P(Forms, SidecarRenameTest,
                         ::testing::Values(SidecarCase{"A001.MOV", "A001.XMP", "p/Shot_01.XMP"},
                                           SidecarCase{"A001.MOV", "A001.MOV.xmp", "p/Shot_01.MOV.xmp"},
                                           SidecarCase{"A001.MOV", "A001.xmp", "p/Shot_01.xmp"},
                                           SidecarCase{"day1/A001.MOV", "day1/A001.XMP",
                                                       "p/day1/Shot_01.XMP"}));

TEST_F(CopyPlanTest, ARenamedFolderBasedClipKeepsItsFileNames) {
    tree.MakeFile("src/PRIVATE/CLIP/C0001.MXF");
    auto session = NewSessionOverSource();
    AddClip(*session, "PRIVATE/CLIP/C0001.MXF", {"PRIVATE/CLIP/C0001M01.XML", "PRIVATE/CLIP/C0001.xmp"},
            "Shot_01",
            /*single=*/false);
    AddDestination(*session, "p", true, /*applyRename=*/true);

    DecideAndRun(session);

    const CopyUnit& unit = UnitAt(CopyAt(0), 0);
    const std::vector<QL::CopyEntry> entries = Entries(unit);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].target, tree.Path("p/PRIVATE/CLIP/C0001.MXF"));
    EXPECT_EQ(entries[1].target, tree.Path("p/PRIVATE/CLIP/C0001M01.XML"));
    EXPECT_EQ(entries[2].target, tree.Path("p/PRIVATE/CLIP/C0001.xmp"));
    EXPECT_EQ(unit.renames,
              (std::map<WString, WString>{{tree.Path("p/PRIVATE/CLIP/C0001.MXF"), u"Shot_01"}}));
    EXPECT_EQ(unit.importItems.at(tree.Path("p/PRIVATE/CLIP/C0001.MXF"))->name, u"Shot_01");
}

TEST_F(CopyPlanTest, AFolderIsOneEntryThenOneForEachOfItsPaths) {
    tree.MakeFile("src/Card/CLIP/a.mxf");
    tree.MakeFile("src/Card/b.mxf");
    tree.MakeFile("p/Card/b.mxf");
    auto session = NewSessionOverSource();
    auto folder = AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});
    folder->SetOutputName(u"Ignored");
    folder->SetClipGuid(fluxcore::utility::Guid::CreateUnique());
    AddDestination(*session, "p", true, /*applyRename=*/true);
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace);  // Card
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth); // Card/b.mxf

    DecideAndRun(session);

    const CopyUnit& unit = UnitAt(CopyAt(0), 0);
    const std::vector<QL::CopyEntry> entries = Entries(unit);
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].source, tree.Path("src/Card"));
    EXPECT_EQ(entries[0].target, tree.Path("p/Card"));
    EXPECT_EQ(entries[0].action, 3);
    // The flag is written after the first entry went in: only the entries of the content have it.
    EXPECT_FALSE(entries[0].isFolder);
    const char* const content[] = {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"};
    const int actions[] = {0, 0, 2};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(entries[i + 1].source, tree.Path(std::string("src/") + content[i]));
        EXPECT_EQ(entries[i + 1].target, tree.Path(std::string("p/") + content[i]));
        EXPECT_EQ(entries[i + 1].action, actions[i]);
        EXPECT_TRUE(entries[i + 1].isFolder);
    }
    // Files of the folder are imported, its sub-folders are not; a folder has no rename or identity.
    ASSERT_EQ(unit.importItems.size(), 2u);
    EXPECT_EQ(unit.importItems.at(tree.Path("p/Card/CLIP/a.mxf"))->name, u"a.mxf");
    EXPECT_EQ(unit.importItems.count(tree.Path("p/Card/CLIP")), 0u);
    EXPECT_TRUE(unit.renames.empty());
    EXPECT_TRUE(unit.clipGuids.empty());
}

TEST_F(CopyPlanTest, ProjectMediaFollowTheDestinationsPrimaryFlagNotItsPosition) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "b", false);
    AddDestination(*session, "p", true);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 2u);
    EXPECT_FALSE(CopyAt(0).addToProject);
    EXPECT_TRUE(CopyAt(1).addToProject);
}

TEST_F(CopyPlanTest, MetadataValuesGoOnlyWhereTheDestinationAppliesThem) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "p", true, false, /*applyMetadata=*/true);
    AddDestination(*session, "b", false, false, /*applyMetadata=*/false);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(tasks->Tasks().size(), 2u);
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
    EXPECT_TRUE(tasks->Tasks()[1].customData.metadataSets.empty());
    // The panel's answers travel everywhere.
    EXPECT_EQ(tasks->Tasks()[1].customData.minimumMetadata.keywords, std::set<WString>{u"beach"});
}

TEST_F(CopyPlanTest, TheHostHearsOfEachMainTarget) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/A002.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {"A001.XMP"}, "Shot_01");
    AddClip(*session, "A002.MOV");
    AddDestination(*session, "p", true, /*applyRename=*/true);
    AddDestination(*session, "b", false);
    std::vector<WString> heard;
    IGD::SetIngestCopyOutputFileNameCallback([&](const WString& target) { heard.push_back(target); });

    DecideAndRun(session);

    EXPECT_EQ(heard, (std::vector<WString>{tree.Path("p/Shot_01.MOV"), tree.Path("p/A002.MOV"),
                                           tree.Path("b/A001.MOV"), tree.Path("b/A002.MOV")}));
}

TEST_F(CopyPlanTest, ADestinationWithoutDecisionsEndsThePlanKeepingWhatWasSubmitted) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "p", true);
    auto undecided = AddDestination(*session, "b1", false);
    undecided->SetEnabled(false);
    AddDestination(*session, "b2", false);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_EQ(Entries(UnitAt(CopyAt(0), 0))[0].target, tree.Path("p/A001.MOV"));
}

TEST_F(CopyPlanTest, ADisabledDestinationWithDecisionsIsStillCopiedOnOtherHosts) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto destination = AddDestination(*session, "p", true);
    ASSERT_TRUE(Decide(*session));
    destination->SetEnabled(false);

    IGD::RunIngestPlan(session, batch_);

    EXPECT_EQ(tasks->Count(TaskKind::Copy), 1u);
}

TEST_F(CopyPlanTest, ASourceThatVanishedIsToldOnceForEachDestinationAndOnlyItsImportIsDropped) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/A002.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddClip(*session, "A002.MOV");
    AddDestination(*session, "p", true);
    AddDestination(*session, "b", false);
    ASSERT_TRUE(Decide(*session));
    std::filesystem::remove(tree.NativePath("src/A001.MOV"));
    ui->QueueBoxAnswer(0);
    ui->QueueBoxAnswer(0);

    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(ui->Boxes().size(), 2u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Selected path does not exist");
    EXPECT_EQ(ui->Boxes()[0].text, u"The selected path " + tree.Path("src/A001.MOV") +
                                       u" does not exist. Please select the source clip again.");
    ASSERT_EQ(tasks->Count(TaskKind::Copy), 2u);
    for (const CopySetting& setting : tasks->Copies()) {
        ASSERT_EQ(setting.units.size(), 2u);
        EXPECT_EQ(Entries(UnitAt(setting, 0)).size(), 1u);
        EXPECT_TRUE(UnitAt(setting, 0).importItems.empty());
        EXPECT_EQ(UnitAt(setting, 1).importItems.size(), 1u);
    }
}

TEST_F(CopyPlanTest, AnEmptySelectionStillSubmitsAnEmptyCopy) {
    auto session = NewSessionOverSource();
    AddDestination(*session, "p", true);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_TRUE(CopyAt(0).units.empty());
}

class HostedPlanTest : public CopyPlanTest, public ::testing::WithParamInterface<int> {
protected:
    HostedPlanTest() { HostApp::SetApplicationType(GetParam()); }
};

TEST_P(HostedPlanTest, TheFirstDisabledDestinationEndsThePlan) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "p", true);
    auto disabled = AddDestination(*session, "b1", false);
    AddDestination(*session, "b2", false);
    ASSERT_TRUE(Decide(*session));
    // Decided while enabled: it has decisions, and still stops a hosted plan.
    disabled->SetEnabled(false);

    IGD::RunIngestPlan(session, batch_);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_EQ(Entries(UnitAt(CopyAt(0), 0))[0].target, tree.Path("p/A001.MOV"));
}

TEST_P(HostedPlanTest, ATranscodeSettingIsIgnoredAndTheDestinationCopies) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto destination = AddDestination(*session, "p", true);
    ASSERT_TRUE(Decide(*session));
    Transcode(*destination);

    IGD::RunIngestPlan(session, batch_);

    EXPECT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_EQ(tasks->Count(TaskKind::Transcode), 0u);
}

TEST_P(HostedPlanTest, ADestinationWithATranscodeSettingGetsNoDecisionsSoThePlanStops) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddDestination(*session, "p", true)
        ->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());

    DecideAndRun(session);

    EXPECT_TRUE(tasks->Tasks().empty());
}

TEST_P(HostedPlanTest, OnlyItemsFromPlainFoldersAreRenamed) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/C0001.MXF");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {}, "Shot_01");
    auto card = AddClip(*session, "C0001.MXF", {}, "Shot_02");
    card->SetItemFormat(u"com.veltrix.Kestrel.WinProviderCard");
    AddDestination(*session, "p", true, /*applyRename=*/true);

    DecideAndRun(session);

    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    const CopySetting& setting = CopyAt(0);
    EXPECT_EQ(Entries(UnitAt(setting, 0))[0].target, tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(Entries(UnitAt(setting, 0))[0].action, 2);
    EXPECT_EQ(Entries(UnitAt(setting, 1))[0].target, tree.Path("p/C0001.MXF"));
    EXPECT_TRUE(UnitAt(setting, 1).renames.empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostedPlanTest, ::testing::Values(5, 8));

} // namespace
} // namespace igd::test
