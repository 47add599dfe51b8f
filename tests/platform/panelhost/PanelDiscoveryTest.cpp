// Which panels a station offers: site, user and shipped folders in that order, broken ones left
// out with a line that names them.
#include <gtest/gtest.h>

#include "PanelkitManager/LocalPanelHost.h"
#include "support/ScopedIgdHome.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace PanelkitManager;

std::string Manifest(const std::string& id, const std::string& mode = "modal") {
    return "<panel id=\"" + id + "\" title=\"T\" mode=\"" + mode + "\" width=\"300\" height=\"200\"/>";
}
const std::string kForm =
    "<form><namespace uri=\"http://ns.example.com/a/\" prefix=\"a\"><field key=\"scene\"/></namespace></form>";

void MakePanel(TempTree& tree, const std::string& folder, const std::string& manifest,
               const std::string& form = kForm) {
    tree.MakeFile(folder + "/manifest.xml", manifest);
    tree.MakeFile(folder + "/form.xml", form);
}

std::vector<std::string> Ids(PanelHost& host) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < host.GetNumExtensions(); ++i)
        ids.push_back(host.GetExtensionByIndex(i)->GetExtensionID());
    return ids;
}

TEST(PanelDiscoveryTest, RootsInOrderFoldersByNameFirstIdWins) {
    TempTree tree;
    MakePanel(tree, "site/b", Manifest("site.b"));
    MakePanel(tree, "site/a", Manifest("site.a", "modeless"));
    MakePanel(tree, "user/a", Manifest("user.a"));
    MakePanel(tree, "user/z", Manifest("site.b")); // a user cannot replace the site's panel
    MakePanel(tree, "shipped/a", Manifest("shipped.a"));
    testing::internal::CaptureStderr();
    auto host = MakeLocalPanelHost({{tree.NativePath("site"), tree.NativePath("missing"), tree.NativePath("user"),
                                     tree.NativePath("shipped")}});
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_EQ(Ids(*host), (std::vector<std::string>{"site.a", "site.b", "user.a", "shipped.a"}));
    EXPECT_NE(errors.find(tree.NativePath("user/z")), std::string::npos) << errors;
    EXPECT_TRUE(host->GetExtensionByID("site.a")->IsModeless());
    EXPECT_FALSE(host->GetExtensionByID("user.a")->IsModeless());
    EXPECT_EQ(host->GetExtensionByID("nobody"), nullptr);
    EXPECT_THROW(host->GetExtensionByIndex(4), std::out_of_range);
}

TEST(PanelDiscoveryTest, EachBrokenPanelIsSkippedWithOneLineNamingIt) {
    TempTree tree;
    MakePanel(tree, "p/1-good", Manifest("good"));
    MakePanel(tree, "p/2-unparsable", "<panel id=");
    MakePanel(tree, "p/3-no-id", "<panel title=\"x\" mode=\"modal\" width=\"1\" height=\"1\"/>");
    MakePanel(tree, "p/4-bad-size", "<panel id=\"x\" mode=\"modal\" width=\"-3\" height=\"1\"/>");
    MakePanel(tree, "p/5-bad-mode", "<panel id=\"y\" mode=\"floating\" width=\"3\" height=\"1\"/>");
    MakePanel(tree, "p/6-bad-key", Manifest("z"), "<form><namespace uri=\"u\"><field key=\"1a\"/></namespace></form>");
    MakePanel(tree, "p/7-no-uri", Manifest("w"), "<form><field key=\"scene\"/></form>");
    MakePanel(tree, "p/8-twice", Manifest("v"),
              "<form><namespace uri=\"u\"><field key=\"a\"/><field key=\"a\" kind=\"checkbox\"/></namespace></form>");
    MakePanel(tree, "p/9-bad-kind", Manifest("q"), "<form><namespace uri=\"u\"><field key=\"a\" kind=\"date\"/></namespace></form>");
    tree.MakeFile("p/10-no-form/manifest.xml", Manifest("r"));
    MakePanel(tree, "p/11-entity", "<!DOCTYPE panel [<!ENTITY e \"x\">]><panel id=\"&e;\" mode=\"modal\" width=\"1\" height=\"1\"/>");
    testing::internal::CaptureStderr();
    auto host = MakeLocalPanelHost({{tree.NativePath("p")}});
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_EQ(Ids(*host), std::vector<std::string>{"good"});
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 10) << errors;
    for (const char* folder : {"2-unparsable", "3-no-id", "4-bad-size", "5-bad-mode", "6-bad-key", "7-no-uri",
                               "8-twice", "9-bad-kind", "10-no-form", "11-entity"})
        EXPECT_NE(errors.find(tree.NativePath("p/") + folder), std::string::npos) << folder;
}

TEST(PanelDiscoveryTest, DefaultFoldersAreTheSiteThenTheUserAndNeverTheShippedOnes) {
    ScopedIgdHome home;
    home.MakeFile("site/panels/s/manifest.xml", Manifest("site.panel"));
    home.MakeFile("site/panels/s/form.xml", kForm);
    home.MakeFile("panels/u/manifest.xml", Manifest("user.panel"));
    home.MakeFile("panels/u/form.xml", kForm);
    const PanelFolders folders = DefaultPanelFolders();
    ASSERT_EQ(folders.roots.size(), 2u);
    EXPECT_EQ(folders.roots[0], home.Path() + "/site/panels");
    EXPECT_EQ(folders.roots[1], home.Path() + "/panels");
    auto host = MakeLocalPanelHost(folders);
    const std::vector<std::string> ids = Ids(*host);
    ASSERT_EQ(ids.size(), 2u);
    EXPECT_EQ(ids[0], "site.panel");
    EXPECT_EQ(ids[1], "user.panel");
    const std::vector<std::string> shipped = Ids(*MakeLocalPanelHost({{ShippedPanelsFolder()}}));
    ASSERT_EQ(shipped.size(), 1u);
    EXPECT_NE(shipped[0].find(Fnd::ToUTF8(GetMinimumMetadataIDStr())), std::string::npos) << shipped[0];
}

} // namespace
} // namespace igd::test
