// The settings as a session receives them for an ingest, and a host's session as the settings
// then show it: which destinations travel, with which path and flags, and what each mode keeps.
#include <string>
#include <vector>

#include "tests/settings/SettingsFixture.h"

namespace igd::test {
using namespace IGD;
namespace {

IngestDialogDataRef NewSession() {
    return IngestDialogDataRef::Query(CreateIngestDialogData());
}

// "/p+ /b2- +": each destination's path and whether it is enabled.
std::string Render(const DestinationList& destinations) {
    std::string text;
    for (const IngestDestinationRef& destination : destinations)
        text += (text.empty() ? "" : " ") + Fnd::ToUTF8(destination->GetDestinationPath()) +
                (destination->IsEnabled() ? "+" : "-");
    return text;
}

struct ApplyRow {
    const char* what;
    int hostKind;
    bool remote;
    bool locked;
    // Stored: transfer off, the remote temp copy, the verify row, and each backup as its enabled
    // flag ('+' or '-') followed by its one recent path (none when empty).
    bool importOnly;
    bool tempCopy;
    std::int32_t verify;
    std::vector<std::string> backups;
    // The session.
    bool sessionImportOnly;
    std::string destinations;
    std::uint32_t verifyMode;
    bool templatesOn;
};

class SettingsExchange : public SettingsFixture {
protected:
    // A list of recent paths under its full prefix, newest first.
    void StoreListOf(const std::string& prefix, const std::vector<std::string>& paths) {
        preferences->values[prefix + K("PathsMRUCount")] = static_cast<std::uint32_t>(paths.size());
        for (std::size_t i = 0; i < paths.size(); ++i)
            preferences->values[prefix + K("PathsMRUItem") + std::to_string(i)] = paths[i].c_str();
    }
    void Store(const ApplyRow& row) {
        preferences->values.clear();
        Put("Local.ImportOnly", row.importOnly);
        Put("Vault.TempLocalCopy", row.tempCopy);
        Put("Local.VerifyOption", static_cast<std::uint32_t>(row.verify));
        Put("EnableRenameTemplate", true);
        Put("EnableMetadataTemplate", true);
        Put("RenameApplyScope", std::uint32_t{1});
        Put("MetadataApplyScope", std::uint32_t{1});
        StoreListOf(K("Primary.DestPathMRU"), {"/p"});
        Put("Local.Backup.Count", static_cast<std::uint32_t>(row.backups.size()));
        for (std::size_t i = 0; i < row.backups.size(); ++i) {
            const int index = static_cast<int>(i + 1);
            Put("Local.Backup.Enabled" + std::to_string(index), row.backups[i].front() == '+');
            if (row.backups[i].size() > 1)
                StoreListOf(K("Local.Backup.DestPathMRU") + std::to_string(index),
                            {row.backups[i].substr(1)});
        }
    }
};

// clang-format off
const std::vector<ApplyRow> kApplyRows{
    {"normal host, transfer off", 0, false, false, true, false, 1, {"+/b1"},
     true, "", kVerifyModeNone, true},
    {"transfer on: an unticked backup stays out, one without recent paths has no path", 0, false, false,
     false, false, 1, {"-/b1", "+/b2", "+"},
     false, "/p+ /b2+ +", 1, true},
    {"verification off", 0, false, false, false, false, -1, {},
     false, "/p+", kVerifyModeNone, true},
    {"hosted: an unticked backup travels disabled", 5, false, false, false, false, 2, {"-/b1"},
     false, "/p+ /b1-", 2, true},
    {"hosted, transfer off: the destinations travel, the verify mode does not", 8, false, false,
     true, false, 2, {"+/b1"},
     true, "/p- /b1+", kVerifyModeNone, true},
    {"remote without the temporary copy", 0, true, false, false, false, 2, {"+/b1"},
     true, "", kVerifyModeNone, true},
    {"remote with the temporary copy: one destination, the verify mode left", 0, true, false,
     false, true, 2, {"+/b1"},
     false, "/p+", kVerifyModeNone, true},
    {"locked site with transfer stored on", 0, false, true, false, false, 1, {"+/b1"},
     true, "", kVerifyModeNone, false},
    {"locked hosted site", 5, false, true, false, false, 1, {"+/b1"},
     true, "/p- /b1+", kVerifyModeNone, false},
    {"locked remote site with the temporary copy stored", 0, true, true, false, true, 1, {},
     true, "", kVerifyModeNone, false},
};
// clang-format on

TEST_F(SettingsExchange, StoredSettingsHostKindAndModeDecideTheSession) {
    for (const ApplyRow& row : kApplyRows) {
        SCOPED_TRACE(row.what);
        HostApp::SetApplicationType(row.hostKind);
        AppFrame::DocumentManager::SetInstance(nullptr);
        if (row.remote)
            UseRemoteProject();
        site = {row.locked, {}};
        Store(row);
        controller.LoadSettings();
        const PresetRef rename = NamedPreset(u"Dailies", u"/presets/Dailies.irp");
        controller.SetRenamePreset(rename);

        const IngestDialogDataRef session = NewSession();
        controller.ApplyToDialogData(*session);
        EXPECT_EQ(session->IsImportOnly(), row.sessionImportOnly);
        EXPECT_EQ(Render(session->GetDestinations()), row.destinations);
        EXPECT_EQ(session->GetVerifyMode(), row.verifyMode);
        // The templates travel whether transfer is on or off.
        EXPECT_EQ(session->IsRenameEnabled(), row.templatesOn);
        EXPECT_EQ(session->IsMetadataEnabled(), row.templatesOn);
        EXPECT_EQ(session->GetRenameApplyScope(), row.templatesOn ? 1u : 0u);
        EXPECT_EQ(session->GetMetadataApplyScope(), row.templatesOn ? 1u : 0u);
        EXPECT_EQ(session->GetRenamePreset(), rename);
    }
}

TEST_F(SettingsExchange, AHostsSessionBecomesTheSettingsAndComesBackThroughThem) {
    StoreListOf(K("Primary.DestPathMRU"), {"/old/a", "/host/a"});
    StoreListOf(K("Local.Backup.DestPathMRU1"), {"/old/b"});
    controller.LoadSettings();
    controller.SetRenamePreset(NamedPreset(u"Other", u"/presets/Other.irp"));
    controller.SetUserDefAutoIncStartNumber(7);
    controller.SetRenameSectionOpened(false);

    const IngestDialogDataRef session = NewSession();
    auto transcode = std::make_shared<QL::IngestTask::TranscodeSetting>();
    for (const char16_t* path : {u"/host/a", u"/host/b"}) {
        const IngestDestinationRef destination(new IngestDestination());
        destination->SetDestinationPath(path);
        destination->SetEnabled(session->GetDestinations().empty());
        destination->SetTranscodeSetting(session->GetDestinations().empty() ? transcode : nullptr);
        session->AddDestination(destination);
    }
    const PresetRef rename = NamedPreset(u"Dailies", u"/presets/Dailies.irp");
    session->SetRenameEnabled(true);
    session->SetRenamePreset(rename);

    controller.ReadFromDialogData(*session);
    EXPECT_FALSE(controller.IsImportOnly()) << "a session marked import only still shows transfer on";
    EXPECT_EQ(controller.GetVerifyOption(), -1);
    EXPECT_TRUE(controller.GetRenameSectionOpened());
    EXPECT_EQ(controller.GetRenamePresetPath(), u"/presets/Dailies.irp");
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 7u) << "the seeded preset keeps the counter";
    const std::vector<DestinationSetting>& records = controller.GetDestinations();
    ASSERT_EQ(records.size(), 2u);
    // A path already in the stored list keeps its place in it; a new one goes to the head.
    EXPECT_EQ(records[0].pathsMRU, (std::vector<Fnd::WString>{u"/old/a", u"/host/a"}));
    EXPECT_EQ(records[1].pathsMRU, (std::vector<Fnd::WString>{u"/host/b", u"/old/b"}));
    EXPECT_FALSE(records[0].needSubFolder);
    EXPECT_TRUE(records[0].destination->IsPrimary());
    EXPECT_TRUE(records[1].destination->IsApplyRename());
    EXPECT_EQ(records[0].destination->GetTranscodeSetting(), transcode) << "shared with the host";
    EXPECT_FALSE(records[1].destination->GetTranscodeSetting()->enabled);

    // Back as a fresh copy of each enabled record, its path the head of its list, not the host's.
    records[0].destination->SetSubFolder(u"Day 2");
    const IngestDialogDataRef back = NewSession();
    controller.ApplyToDialogData(*back);
    EXPECT_EQ(Render(back->GetDestinations()), "/old/a+");
    EXPECT_EQ(back->GetDestinations()[0]->GetFullDestinationPath(), u"/old/a/Day 2");
    EXPECT_NE(back->GetDestinations()[0]->GetTranscodeSetting(), transcode);
    EXPECT_EQ(back->GetVerifyMode(), kVerifyModeNone);
    EXPECT_EQ(back->GetRenamePreset(), rename);
}

} // namespace
} // namespace igd::test
