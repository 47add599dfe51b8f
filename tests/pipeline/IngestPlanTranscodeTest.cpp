// The transcode and stitch branches of the plan.
#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <vector>

#include "PlanTestSupport.h"
#include "pipeline/IngestPlan.h"

namespace igd::test {
namespace {

using Fnd::WString;
using QL::IngestTask::TranscodeClipEntry;
using QL::IngestTask::TranscodeSetting;

std::vector<TranscodeClipEntry> Clips(const TranscodeSetting& setting) {
    return {setting.clips.begin(), setting.clips.end()};
}

class TranscodePlanTest : public PlanTest {
protected:
    const TranscodeSetting& TaskAt(std::size_t index) const { return tasks->Tasks().at(index).Transcode(); }
};

TEST_F(TranscodePlanTest, EachItemIsOneTaskFromACopyOfTheDestinationsSetting) {
    tree.MakeFile("src/A001.MOV");
    tree.MakeFile("src/day2/A002.MOV");
    tree.MakeFolder("src/Empty");
    tree.MakeFile("src/Card/x.mxf");
    tree.MakeFile("src/Card/y.mxf");
    auto session = NewSessionOverSource();
    auto first = AddClip(*session, "A001.MOV", {}, "Shot_01");
    first->SetClipName(u"Beach take");
    first->SetInPoint(5);
    first->SetOutPoint(50);
    first->SetFrameRate(25);
    auto second = AddClip(*session, "day2/A002.MOV");
    second->SetClipName(u"Second");
    AddFolder(*session, "Empty", {});
    AddFolder(*session, "Card", {"Card/x.mxf", "Card/y.mxf"});
    auto destination = AddDestination(*session, "p", true, /*applyRename=*/true);
    destination->SetSubFolder(u"proxies");
    auto own = Transcode(*destination);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Transcode), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(TaskAt(i).outputPath, tree.Path("p/proxies"));
        EXPECT_EQ(TaskAt(i).presetName, u"H.264 Match Source");
        EXPECT_TRUE(TaskAt(i).enabled);
        // Without applyMetadata the template's values stay home, the panel's answers travel.
        EXPECT_TRUE(tasks->Tasks()[i].customData.metadataSets.empty());
        EXPECT_EQ(tasks->Tasks()[i].customData.minimumMetadata.keywords.size(), 1u);
    }

    const std::vector<TranscodeClipEntry> renamed = Clips(TaskAt(0));
    ASSERT_EQ(renamed.size(), 1u);
    EXPECT_EQ(renamed[0].path, tree.Path("src/A001.MOV"));
    EXPECT_TRUE(renamed[0].useOutputName);
    EXPECT_EQ(renamed[0].name, u"Shot_01");
    EXPECT_EQ(renamed[0].inPoint, 5);
    EXPECT_EQ(renamed[0].outPoint, 50);
    EXPECT_EQ(renamed[0].frameRate, 25);
    EXPECT_EQ(TaskAt(0).sourceRoot, tree.Path("src"));
    EXPECT_TRUE(TaskAt(0).addToProject);

    // Without an outputName the clip's name stands, still marked as a rename of the request.
    const std::vector<TranscodeClipEntry> plain = Clips(TaskAt(1));
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_TRUE(plain[0].useOutputName);
    EXPECT_EQ(plain[0].name, u"Second");
    EXPECT_EQ(TaskAt(1).sourceRoot, tree.Path("src/day2"));

    // An empty folder names itself and adds nothing to the project; the last clip's folder stays.
    const std::vector<TranscodeClipEntry> empty = Clips(TaskAt(2));
    ASSERT_EQ(empty.size(), 1u);
    EXPECT_EQ(empty[0].path, tree.Path("src/Empty"));
    EXPECT_FALSE(empty[0].useOutputName);
    EXPECT_EQ(empty[0].name, u"");
    EXPECT_EQ(empty[0].inPoint, fluxmediatypes::kTime_Invalid);
    EXPECT_FALSE(TaskAt(2).addToProject);
    EXPECT_EQ(TaskAt(2).sourceRoot, tree.Path("src/day2"));

    const std::vector<TranscodeClipEntry> content = Clips(TaskAt(3));
    ASSERT_EQ(content.size(), 2u);
    EXPECT_EQ(content[0].path, tree.Path("src/Card/x.mxf"));
    EXPECT_EQ(content[1].path, tree.Path("src/Card/y.mxf"));
    EXPECT_FALSE(content[1].useOutputName);
    EXPECT_TRUE(TaskAt(3).addToProject);

    // The destination's own setting is the settings model's and stays untouched.
    EXPECT_TRUE(own->clips.empty());
    EXPECT_TRUE(own->outputPath.empty());
    EXPECT_TRUE(own->sourceRoot.empty());
}

TEST_F(TranscodePlanTest, WithoutApplyRenameTheClipNameIsUsed) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "A001.MOV", {}, "Shot_01");
    clip->SetClipName(u"A001.MOV");
    auto destination = AddDestination(*session, "b", false, /*applyRename=*/false, /*applyMetadata=*/true);
    Transcode(*destination);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Transcode), 1u);
    const std::vector<TranscodeClipEntry> clips = Clips(TaskAt(0));
    EXPECT_FALSE(clips[0].useOutputName);
    EXPECT_EQ(clips[0].name, u"A001.MOV");
    EXPECT_FALSE(TaskAt(0).addToProject);
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
}

TEST_F(TranscodePlanTest, AStitchHoldsAllClipsInOrderAndCarriesTheMetadataEverywhere) {
    tree.MakeFile("src/day1/A001.MOV");
    tree.MakeFile("src/A002.MOV");
    auto session = NewSessionOverSource();
    auto first = AddClip(*session, "day1/A001.MOV", {}, "Shot_01");
    first->SetInPoint(1);
    first->SetOutPoint(2);
    first->SetFrameRate(3);
    AddClip(*session, "A002.MOV");
    auto destination = AddDestination(*session, "p", true, /*applyRename=*/true, /*applyMetadata=*/false);
    auto own = Transcode(*destination, /*concatenate=*/true);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Concatenate), 1u);
    const RecordedTask& task = tasks->Tasks()[0];
    const TranscodeSetting& setting = task.Transcode();
    EXPECT_EQ(setting.sourceRoot, tree.Path("src/day1"));
    EXPECT_EQ(setting.outputPath, tree.Path("p"));
    EXPECT_TRUE(setting.addToProject);
    EXPECT_EQ(setting.concatenateName, u"Stitched");
    const std::vector<TranscodeClipEntry> clips = Clips(setting);
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_EQ(clips[0].path, tree.Path("src/day1/A001.MOV"));
    EXPECT_EQ(clips[1].path, tree.Path("src/A002.MOV"));
    for (const TranscodeClipEntry& clip : clips) {
        EXPECT_TRUE(clip.useOutputName);
        EXPECT_EQ(clip.name, u"");
    }
    EXPECT_EQ(clips[0].inPoint, 1);
    EXPECT_EQ(clips[0].outPoint, 2);
    EXPECT_EQ(clips[0].frameRate, 3);
    // Unlike copy and transcode, the stitch is not filtered by applyMetadata.
    EXPECT_EQ(task.customData.metadataSets.size(), 1u);
    EXPECT_TRUE(own->clips.empty());
}

TEST_F(TranscodePlanTest, AStitchOfABackupDoesNotAddToTheProject) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    Transcode(*AddDestination(*session, "b", false), true);

    DecideAndRun(session);

    ASSERT_EQ(tasks->Count(TaskKind::Concatenate), 1u);
    EXPECT_FALSE(tasks->Tasks()[0].Transcode().addToProject);
    EXPECT_FALSE(Clips(tasks->Tasks()[0].Transcode())[0].useOutputName);
}

} // namespace
} // namespace igd::test
