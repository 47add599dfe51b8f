#include <gtest/gtest.h>

#include "IGD/IngestApi.h"
#include "PlanTestSupport.h"
#include "QL/IngestMediaGroup.h"

namespace igd::test {
namespace {

class DoIngestMediaGatherTest : public PlanTest {};

// A host names one file of a card clip; the whole clip, with the card's folder, is copied.
TEST_F(DoIngestMediaGatherTest, AProviderPathCopiesEveryFileOfTheClip) {
    tree.MakeFile("in/CARD/DCIM/100GOPRO/GH010042.MP4");
    tree.MakeFile("in/CARD/DCIM/100GOPRO/GH020042.MP4");
    tree.MakeFile("in/CARD/DCIM/100GOPRO/GH010043.MP4");
    tree.MakeFolder("out");
    QL::IngestMediaGroup group;
    group.paths = {tree.Path("in/CARD/DCIM/100GOPRO/GH010042.MP4")};
    group.transferMode = u"Copy";
    group.destinationPath = tree.Path("out");

    IGD::DoIngestMedia(group, true, true, /*viaProvider=*/true, fluxcore::utility::Guid::CreateUnique());

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    const QL::IngestTask::CopySetting& copy = tasks->Tasks().front().Copy();
    ASSERT_EQ(copy.units.size(), 1u);
    std::vector<Fnd::WString> targets;
    for (const QL::CopyEntry& entry : copy.units.front()->entries)
        targets.push_back(entry.target);
    for (const char* expected :
         {"out/CARD/DCIM/100GOPRO/GH010042.MP4", "out/CARD/DCIM/100GOPRO/GH020042.MP4"})
        EXPECT_NE(std::find(targets.begin(), targets.end(), tree.Path(expected)), targets.end()) << expected;
    EXPECT_EQ(std::find(targets.begin(), targets.end(), tree.Path("out/CARD/DCIM/100GOPRO/GH010043.MP4")),
              targets.end());
}

} // namespace
} // namespace igd::test
