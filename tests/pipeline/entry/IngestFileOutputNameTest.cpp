#include <gtest/gtest.h>

#include "Fnd/PathUtils.h"
#include "IGD/IngestApi.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "support/PresetFields.h"

namespace igd::test {
namespace {

IGD::PresetRef CounterTemplate() {
    return Preset(QL::kQLPresetCategoryRename, {Field(QL::kQLFieldAutoIncrement, u"000"),
                                                Field(QL::kQLFieldCustomText, u"_Day1")});
}

class IngestFileOutputNameTest : public PlanTest {
protected:
    const Fnd::Date date = Fnd::Date::FromSeconds(1709649059);
};

// A card clip lies below the folder that holds the card: the answer is its path from there. Card
// clips keep their names unless the host insists. The call leaves the session prepared, and asking
// again answers from it without gathering the clip a second time.
TEST_F(IngestFileOutputNameTest, ACardClipAnswersItsPathBelowTheCardsFolderRenamedOnlyWhenForced) {
    const Fnd::WString chapter1 = tree.MakeFile("shoot/CARD/DCIM/100GOPRO/GH010042.MP4", "frames");
    tree.MakeFile("shoot/CARD/DCIM/100GOPRO/GH020042.MP4", "frames");
    auto session = NewSession();
    AddDestination(*session, "dest", true, true);
    session->SetRenamePreset(CounterTemplate());

    EXPECT_EQ(Fnd::ToUTF8(IGD::GetIngestFileOutputName(chapter1, session, date, false)),
              "CARD/DCIM/100GOPRO/GH010042.MP4");
    EXPECT_EQ(Fnd::ToUTF8(IGD::GetIngestFileOutputName(chapter1, session, date, true)),
              "CARD/DCIM/100GOPRO/001_Day1.MP4");
    EXPECT_EQ(session->GetSelectedItems().size(), 1u);
    EXPECT_EQ(Fnd::ToUTF8(Fnd::PathUtils::RemoveTrailingSlash(session->GetSourceRoot())),
              tree.NativePath("shoot"));
    ASSERT_EQ(session->GetCopyDecisions()->size(), 1u);
    EXPECT_EQ(session->GetCopyDecisions()->begin()->second.size(), 2u) << "both chapters are decided";
}

// Nothing to gather: the name stays and the session is left as it was.
TEST_F(IngestFileOutputNameTest, AFileThatIsGoneKeepsItsName) {
    auto session = NewSession();
    session->SetRenamePreset(CounterTemplate());
    EXPECT_EQ(Fnd::ToUTF8(IGD::GetIngestFileOutputName(tree.Path("gone/Z9.MOV"), session, date, true)),
              "Z9.MOV");
    EXPECT_TRUE(session->GetSelectedItems().empty());
}

} // namespace
} // namespace igd::test
