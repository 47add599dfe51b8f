// igd ingest with the shipped minimum-metadata panel and no terminal: the values given with --panel
// land in the XMP and the project, and without them the ingest is refused before anything is copied.
#include <cstdlib>
#include <filesystem>

#include "Proj/Project.h"
#include "QL/XmpSidecarWriter.h"
#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

constexpr char16_t kShoot[] = u"http://ns.igd.local/shoot/1.0/";

class IngestPanelCommandTest : public IgdCommandTest {
protected:
    // The shipped panel, turned on as a user turns it on: copied into the user's panels.
    IngestPanelCommandTest() {
        std::filesystem::create_directories(home.Path() + "/panels");
        std::filesystem::copy(IGD_SHIPPED_PANELS_SOURCE "/minimum-metadata", home.Path() + "/panels/minimum-metadata");
    }

    Ran Ingest(std::vector<std::string> options) {
        MakeP2Card(/*withIcons=*/false);
        tree.MakeFile("SHOOT/CARD01/EXTRA/B001.MOV", "b camera");
        std::vector<std::string> arguments{"ingest", Native("SHOOT/CARD01"), "--to", Native("main"), "--to",
                                           Native("backup")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunIgd(arguments);
    }
    std::string Sidecar(const std::string& destination, const std::string& relative) const {
        return Native(destination + "/CARD01/" + relative);
    }
};

TEST_F(IngestPanelCommandTest, PanelValuesLandInTheXmpOfTheChosenDestinationsAndInTheProject) {
    const Ran ran = Ingest({"--panel", "production=Night Shoot", "--panel", "scene=4B", "--panel", "camera=A",
                            "--panel", "keywords=rain, night", "--panel", "applyToAllDestinations=false"});
    ASSERT_EQ(ran.exitCode, 0) << ran.Said();

    for (const std::string sidecar : {"EXTRA/B001.xmp", "CONTENTS/VIDEO/0001AB.xmp"}) {
        SCOPED_TRACE(sidecar);
        const std::string main = Sidecar("main", sidecar);
        EXPECT_EQ(QL::ReadXmpProperty(main, kShoot, u"production"), u"Night Shoot");
        EXPECT_EQ(QL::ReadXmpProperty(main, kShoot, u"scene"), u"4B");
        EXPECT_EQ(QL::ReadXmpProperty(main, kShoot, u"camera"), u"A");
        const std::string xmp = ReadFileBytes(main);
        EXPECT_NE(xmp.find(">night<"), std::string::npos) << xmp;
        EXPECT_NE(xmp.find(">rain<"), std::string::npos) << xmp;
        // Not applied to all destinations: the backup is a plain copy.
        const std::string backup = Sidecar("backup", sidecar);
        EXPECT_TRUE(!std::filesystem::exists(backup) || QL::ReadXmpProperty(backup, kShoot, u"production").empty());
    }

    const auto items = Proj::Project::Open(home.ProjectPath())->Items();
    ASSERT_EQ(items.size(), 3u);
    for (const Proj::ProjectItem& item : items) {
        SCOPED_TRACE(Fnd::ToUTF8(item.name));
        const auto shoot = std::find_if(item.metadata.begin(), item.metadata.end(),
                                        [](const Proj::ItemMetadata& m) { return m.namespaceURI == kShoot; });
        ASSERT_NE(shoot, item.metadata.end());
        EXPECT_EQ(shoot->prefix, "shoot");
        EXPECT_EQ(shoot->values.at(u"production"), u"Night Shoot");
    }
}

TEST_F(IngestPanelCommandTest, WithoutTheRequiredValuesTheIngestIsRefusedBeforeAnyCopy) {
    const Ran refused = Ingest({"--panel", "scene=4B"});
    EXPECT_EQ(refused.exitCode, 1) << refused.Said();
    EXPECT_NE(refused.err.find("the panel \"Minimum Metadata\" needs Production (production)"), std::string::npos)
        << refused.err;
    EXPECT_NE(refused.err.find("--panel production="), std::string::npos) << refused.err;
    EXPECT_NE(refused.err.find("igd prefs set DLG.MinimumMetadataDialog.Enable false"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(Native("main/CARD01"))) << "nothing is copied";
    EXPECT_TRUE(Proj::Project::Open(home.ProjectPath())->Items().empty());

    // With the panel turned off, the same ingest goes through without its values.
    ASSERT_EQ(RunIgd({"prefs", "set", "DLG.MinimumMetadataDialog.Enable", "false"}).exitCode, 0);
    const Ran ran = Ingest({});
    ASSERT_EQ(ran.exitCode, 0) << ran.Said();
    EXPECT_TRUE(QL::ReadXmpProperty(Sidecar("main", "EXTRA/B001.xmp"), kShoot, u"production").empty());
}

} // namespace
} // namespace igd::test
