// The transcode and stitch branches of the plan.
#include <gtest/gtest.h>

#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/plan/IngestPlan.h"

namespace igd::test {
namespace {

using QL::IngestTask::TranscodeSetting;

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
    first->SetInPoint(5);
    first->SetOutPoint(50);
    first->SetFrameRate(25);
    AddClip(*session, "day2/A002.MOV")->SetClipName(u"Second");
    AddFolder(*session, "Empty", {});
    AddFolder(*session, "Card", {"Card/x.mxf", "Card/y.mxf"});
    auto destination = AddDestination(*session, "p", true, /*applyRename=*/true);
    destination->SetSubFolder(u"proxies");
    auto own = Transcode(*destination);
    session->SetCustomData(CustomDataWithMetadata());

    DecideAndRun(session);

    ASSERT_EQ(Kinds(), KindList(4, TaskKind::Transcode));
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(TaskAt(i).outputPath, tree.Path("p/proxies"));
        EXPECT_EQ(TaskAt(i).presetName, u"H.264 Match Source");
        // Without applyMetadata the template's values stay home.
        EXPECT_TRUE(tasks->Tasks()[i].customData.metadataSets.empty());
    }
    EXPECT_EQ(Summary(0), (Strings{"from src into the project", "src/A001.MOV as Shot_01*"}));
    EXPECT_EQ(Timing(TaskAt(0).clips.front()), (Ints{5, 50, 25}));
    // Without an outputName the clip's name stands, still marked as a rename of the request.
    EXPECT_EQ(Summary(1), (Strings{"from src/day2 into the project", "src/day2/A002.MOV as Second*"}));
    // An empty folder names itself and adds nothing to the project; the last clip's folder stays.
    EXPECT_EQ(Summary(2), (Strings{"from src/day2", "src/Empty as "}));
    EXPECT_EQ(TaskAt(2).clips.front().inPoint, fluxmediatypes::kTime_Invalid);
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
    EXPECT_EQ(TaskAt(0).outputPath, tree.Path("p"));
    EXPECT_EQ(TaskAt(0).concatenateName, u"Stitched");
    EXPECT_EQ(Timing(TaskAt(0).clips.front()), (Ints{1, 2, 3}));
    EXPECT_TRUE(own->clips.empty());
    EXPECT_EQ(Summary(1), (Strings{"from src/day1", "src/day1/A001.MOV as A001.MOV"}));
    // The stitch's destination does not apply the template, yet its values go along: unlike copy
    // and transcode, a stitch is not filtered by applyMetadata.
    EXPECT_EQ(tasks->Tasks()[0].customData.metadataSets.size(), 1u);
    EXPECT_EQ(tasks->Tasks()[1].customData.metadataSets.size(), 1u);
}

} // namespace
} // namespace igd::test
