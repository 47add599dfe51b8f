#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QL/Utilities.h"
#include "support/HostileXml.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

using QL::Utilities;

// A temporary $IGD_HOME and a warning handler that records, both undone at the end.
class SiteSettingsTest : public ::testing::Test {
protected:
    ~SiteSettingsTest() override { Utilities::SetSiteSettingsWarningHandler(oldHandler_); }

    std::string WriteSiteFile(const std::string& content) {
        return home_.MakeFile("site/ingest-settings.xml", content);
    }

    ScopedIgdHome home_;
    std::vector<std::string> warnings_;
    Utilities::SiteSettingsWarningHandler oldHandler_ = Utilities::SetSiteSettingsWarningHandler(
        [this](const Fnd::WString& warning) { warnings_.push_back(Fnd::ToUTF8(warning)); });
};

TEST_F(SiteSettingsTest, WithoutAFileNothingIsLockedAndNothingIsSaid) {
    const QL::IngestUtils::IngestSettings settings = Utilities::GetConfigurableIngestSettings();
    EXPECT_FALSE(settings.settingsLocked);
    EXPECT_EQ(settings.defaultSubfolder, u"");
    EXPECT_TRUE(warnings_.empty());
}

TEST_F(SiteSettingsTest, ReadsValidFiles) {
    struct Case {
        const char* what;
        std::string xml;
        bool locked;
        Fnd::WString subfolder;
    };
    const std::vector<Case> cases{
        {"both fields",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ingestSettings version=\"1\">\n"
         "  <settingsLocked>true</settingsLocked>\n  <defaultSubfolder>Day 01</defaultSubfolder>\n"
         "</ingestSettings>\n",
         true, u"Day 01"},
        {"digits and surrounding blanks",
         "<ingestSettings version=' 1 '><settingsLocked>\n 1 \n</settingsLocked>"
         "</ingestSettings>",
         true, u""},
        {"unlocked, nested non-ASCII subfolder",
         "<ingestSettings version='1'><settingsLocked>0</settingsLocked>"
         "<defaultSubfolder>Dreh \xC3\xBC"
         "ber/Kamera A</defaultSubfolder></ingestSettings>",
         false, u"Dreh \u00FCber/Kamera A"},
        {"no fields", "<ingestSettings version='1'/>", false, u""},
        {"a later version with elements of its own",
         "<ingestSettings version='3'><settingsLocked>true</settingsLocked><cameraRoll>A</cameraRoll>"
         "</ingestSettings>",
         true, u""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        WriteSiteFile(c.xml);
        const QL::IngestUtils::IngestSettings settings = Utilities::GetConfigurableIngestSettings();
        EXPECT_EQ(settings.settingsLocked, c.locked);
        EXPECT_EQ(settings.defaultSubfolder, c.subfolder);
        EXPECT_TRUE(warnings_.empty()) << (warnings_.empty() ? "" : warnings_.front());
        warnings_.clear();
    }
}

TEST_F(SiteSettingsTest, RefusesUnusableFilesWithAWarningNamingFileAndReason) {
    struct Case {
        std::string xml;
        std::string reason;
    };
    const std::vector<Case> cases{
        {"<ingestSettings version='1'><settingsLocked>true</settingsLocked>", "not well-formed XML (line 1"},
        {"", "not well-formed XML"},
        {"<settings version='1'/>", "its root element is <settings>, not <ingestSettings>"},
        {"<ingestSettings><settingsLocked>true</settingsLocked></ingestSettings>",
         "its version attribute is missing"},
        {"<ingestSettings version='one'/>",
         "its version attribute is missing or not a positive whole number"},
        {"<ingestSettings version='1'><settingsLocked>yes</settingsLocked></ingestSettings>",
         "settingsLocked is \"yes\", not true or false"},
        {"<ingestSettings version='1'><settingLocked>true</settingLocked></ingestSettings>",
         "it holds an unknown element <settingLocked>"},
        {"<ingestSettings version='1'><defaultSubfolder>A</defaultSubfolder><defaultSubfolder>B"
         "</defaultSubfolder></ingestSettings>",
         "it gives <defaultSubfolder> twice"},
        {"<ingestSettings version='1'><defaultSubfolder>day/../../etc</defaultSubfolder></ingestSettings>",
         "defaultSubfolder \"day/../../etc\" leads out of the destination"},
        {"<ingestSettings version='1'><defaultSubfolder>/srv/media</defaultSubfolder></ingestSettings>",
         "leads out of the destination"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.xml);
        const std::string path = WriteSiteFile(c.xml);
        const QL::IngestUtils::IngestSettings settings = Utilities::GetConfigurableIngestSettings();
        EXPECT_FALSE(settings.settingsLocked);
        EXPECT_EQ(settings.defaultSubfolder, u"");
        ASSERT_EQ(warnings_.size(), 1u);
        EXPECT_NE(warnings_[0].find("The site settings file " + path + " was not used: "),
                  std::string::npos)
            << warnings_[0];
        EXPECT_NE(warnings_[0].find(c.reason), std::string::npos) << warnings_[0];
        warnings_.clear();
    }
}

TEST_F(SiteSettingsTest, HostileXmlIsRefusedAndNothingOutsideIsRead) {
    const HostileXmlWorld world;
    const auto settingsWith = [](const std::string& doctype, const std::string& subfolder) {
        return "<?xml version='1.0'?>" + doctype + "<ingestSettings version='1'><settingsLocked>true</settingsLocked>"
               "<defaultSubfolder>" + subfolder + "</defaultSubfolder></ingestSettings>";
    };
    for (const HostileXml& c : world.Documents(settingsWith)) {
        SCOPED_TRACE(c.what);
        WriteSiteFile(c.xml);
        const QL::IngestUtils::IngestSettings settings = Utilities::GetConfigurableIngestSettings();
        EXPECT_FALSE(settings.settingsLocked);
        EXPECT_EQ(settings.defaultSubfolder, u"");
        ASSERT_EQ(warnings_.size(), 1u);
        EXPECT_NE(warnings_[0].find(c.reason), std::string::npos) << warnings_[0];
        EXPECT_EQ(warnings_[0].find(HostileXmlWorld::kSecret), std::string::npos);
        warnings_.clear();
    }
    WriteSiteFile(world.WithOutsideDtd(settingsWith, "Day"));
    EXPECT_EQ(Utilities::GetConfigurableIngestSettings().defaultSubfolder, u"Day");
    EXPECT_FALSE(world.WasFetched());
}

TEST_F(SiteSettingsTest, AnEmptyHandlerDropsWarnings) {
    Utilities::SetSiteSettingsWarningHandler({});
    WriteSiteFile("<broken");
    EXPECT_FALSE(Utilities::GetConfigurableIngestSettings().settingsLocked);
    EXPECT_TRUE(warnings_.empty());
}

} // namespace
} // namespace igd::test
