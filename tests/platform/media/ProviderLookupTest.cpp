#include <gtest/gtest.h>

#include "Browse/CardScanScope.h"
#include "Browse/FileListForCopy.h"
#include "Browse/ProviderRegistry.h"
#include "CardTrees.h"
#include "Plug/ImportableFileTypeUtils.h"
#include "QL/Utilities.h"

namespace igd::test {
namespace {

class ProviderLookupTest : public ::testing::Test {
protected:
    void SetUp() override {
        tree_.MakeFile("CARD/CONTENTS/CLIP/000AB1.XML", P2ClipXml("G1"));
        MakeFiles(tree_,
                  {"CARD/CONTENTS/VIDEO/000AB1.MXF", "CARD/CONTENTS/AUDIO/000AB100.MXF", "plain/A001.MOV"});
    }

    TempTree tree_;
    const Browse::ProviderWrapper* provider_ = nullptr;
    Fnd::WString root_;
    Fnd::WString name_;
};

// A file of a card clip names its whole clip, as `igd plan` of a later chapter shows; anything else
// is the plain folder's.
TEST_F(ProviderLookupTest, AnyOtherFileOrFolderGoesToThePlainDirectoryProvider) {
    ASSERT_TRUE(Browse::FileListForCopy::GetProviderAndRootFromPath(tree_.Path("plain/A001.MOV"), provider_,
                                                                    root_, name_));
    EXPECT_EQ(provider_->GetIdentification(), "com.veltrix.Kestrel.WinProviderDirectory");
    EXPECT_EQ(root_, tree_.Path("plain"));
    EXPECT_EQ(name_, u"A001.MOV");
    const Browse::Content content =
        provider_->GetContent(root_, {}, {Browse::kNameField, Browse::kExtraPathField}, nullptr);
    EXPECT_EQ(*content.at(u"A001.MOV").at(Browse::kNameField).AsString(), u"A001") << "named by its stem";
    EXPECT_EQ(*content.at(u"A001.MOV").at(Browse::kExtraPathField).AsString(), tree_.Path("plain/A001.MOV"));

    ASSERT_TRUE(
        Browse::FileListForCopy::GetProviderAndRootFromPath(tree_.Path("CARD"), provider_, root_, name_));
    EXPECT_EQ(provider_, &Browse::ProviderRegistry::PlainDirectory());
    EXPECT_EQ(name_, u"CARD");
}

TEST_F(ProviderLookupTest, OnlyCardClipFilesAreFolderBased) {
    EXPECT_TRUE(QL::Utilities::IsFolderBasedClip(tree_.Path("CARD/CONTENTS/VIDEO/000AB1.MXF")));
    EXPECT_TRUE(QL::Utilities::IsFolderBasedClip(tree_.Path("CARD/CONTENTS/CLIP/000AB1.XML")));
    EXPECT_FALSE(QL::Utilities::IsFolderBasedClip(tree_.Path("plain/A001.MOV")));
    // A stray file in a card folder belongs to no clip.
    tree_.MakeFile("CARD/CONTENTS/VIDEO/notes.txt");
    EXPECT_FALSE(QL::Utilities::IsFolderBasedClip(tree_.Path("CARD/CONTENTS/VIDEO/notes.txt")));
}

TEST(CardScanScopeTest, ACardIsReadOncePerScopeAndAgainOutsideIt) {
    TempTree tree;
    MakeFiles(tree, {"CARD/DCIM/100MEDIA/DJI_0001.MP4", "CARD/DCIM/100MEDIA/DJI_0002.MP4"});
    {
        const Browse::CardScanScope scope;
        EXPECT_EQ(Browse::ProviderRegistry::FindCardClips(tree.Path("CARD")).size(), 2u);
        const Browse::CardScanScope nested;
        tree.MakeFile("CARD/DCIM/100MEDIA/DJI_0003.MP4");
        EXPECT_EQ(Browse::ProviderRegistry::FindCardClips(tree.Path("CARD")).size(), 2u);
    }
    EXPECT_EQ(Browse::ProviderRegistry::FindCardClips(tree.Path("CARD")).size(), 3u);
}

TEST(CardProviderExtensionsTest, EveryFamilyFeedsTheImportableVideoTypes) {
    const auto video =
        Plug::ImportableFileTypeUtils::GetImportableFileExtensions(Plug::kImportableFileTypeVideo);
    for (const Browse::CardProvider* provider : Browse::ProviderRegistry::CardProviders())
        for (const Fnd::WString& extension : provider->MediaExtensions())
            EXPECT_TRUE(video.count(extension))
                << provider->GetIdentification() << " " << Fnd::ToUTF8(extension);
}

} // namespace
} // namespace igd::test
