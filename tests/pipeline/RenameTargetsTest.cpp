#include <gtest/gtest.h>

#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "pipeline/RenameTargets.h"
#include <ostream>

namespace {

using Fnd::WString;

struct ResolveCase {
    const char* label;
    bool folderItem;
    bool singleFile;
    const char16_t* itemPath;
    const char16_t* outputName;
    const char16_t* expected;
};

void PrintTo(const ResolveCase& c, std::ostream* os) {
    *os << c.label;
}

class ResolveTargetPathTest : public ::testing::TestWithParam<ResolveCase> {};

TEST_P(ResolveTargetPathTest, AnswersThePathBelowTheRoot) {
    const ResolveCase& c = GetParam();
    IGD::SelectedItemRef item;
    if (c.folderItem) {
        item = new IGD::SelectedFolderItem(c.itemPath);
    } else {
        IGD::SelectedClipItemRef clip(new IGD::SelectedClipItem(c.itemPath));
        clip->SetIsSingleFileType(c.singleFile);
        item = clip;
    }
    item->SetOutputName(c.outputName);
    // The root is normalised before the join, as every path of the plan is.
    EXPECT_EQ(IGD::ResolveTargetPath(*item, u"/media/dest//day1/"), WString(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ResolveTargetPathTest,
    ::testing::Values(ResolveCase{"SingleFileTakesTheNewNameAndKeepsItsExtension", false, true, u"A001.MOV",
                                  u"Shot_01", u"/media/dest/day1/Shot_01.MOV"},
                      ResolveCase{"SingleFileInASubFolderStaysInIt", false, true, u"card/A001.mxf",
                                  u"Shot_01", u"/media/dest/day1/card/Shot_01.mxf"},
                      ResolveCase{"SingleFileWithoutExtension", false, true, u"README", u"Notes",
                                  u"/media/dest/day1/Notes"},
                      ResolveCase{"SingleFileWithoutOutputNameKeepsItsName", false, true, u"A001.MOV", u"",
                                  u"/media/dest/day1/A001.MOV"},
                      ResolveCase{"FolderBasedClipKeepsItsFileName", false, false, u"PRIVATE/CLIP/C0001.MXF",
                                  u"Shot_01", u"/media/dest/day1/PRIVATE/CLIP/C0001.MXF"},
                      ResolveCase{"FolderItemIsNeverRenamed", true, false, u"CARD", u"Shot_01",
                                  u"/media/dest/day1/CARD"}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(FindSidecarPathTest, FindsTheFirstXmpInAnyCase) {
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.wav", u"A001.XMP", u"A001.xmp"}), u"A001.XMP");
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.MOV.xmp"}), u"A001.MOV.xmp");
    EXPECT_EQ(IGD::FindSidecarPath({u"sub/A001.XmP"}), u"sub/A001.XmP");
}

TEST(FindSidecarPathTest, AnswersEmptyWithoutOne) {
    EXPECT_EQ(IGD::FindSidecarPath({}), u"");
    EXPECT_EQ(IGD::FindSidecarPath({u"A001.wav", u"A001.xmp.bak"}), u"");
    // A hidden file named ".xmp" has no extension at all.
    EXPECT_EQ(IGD::FindSidecarPath({u".xmp"}), u"");
}

TEST(AnyItemHasOutputNameTest, IsTrueAsSoonAsOneItemHasOne) {
    IGD::SelectedItemList items;
    EXPECT_FALSE(IGD::AnyItemHasOutputName(items));
    items.push_back(new IGD::SelectedClipItem(u"A001.MOV"));
    items.push_back(new IGD::SelectedFolderItem(u"CARD"));
    EXPECT_FALSE(IGD::AnyItemHasOutputName(items));
    items.back()->SetOutputName(u"Day1");
    EXPECT_TRUE(IGD::AnyItemHasOutputName(items));
}

} // namespace
