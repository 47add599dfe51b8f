// The session a host or the dialog fills: its identities, what it owns, what Reset keeps.
#include <gtest/gtest.h>

#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "pipeline/session/IngestDialogData.h"
#include "support/CountedUnknown.h"

namespace igd::test {
namespace {

using namespace IGD;

// A preset that counts its references and tells when it dies, so the session's ownership of
// presets can be observed.
class CountedPreset final : public CountedUnknown<QL::IQLPreset> {
public:
    explicit CountedPreset(bool* destroyed) : destroyed_(destroyed) {}
    ~CountedPreset() override { *destroyed_ = true; }
    std::uint64_t GetPresetID() const override { return 1; }
    Fnd::WString GetName(bool) const override { return u"preset"; }
    void SetName(const Fnd::WString&) override {}
    Fnd::InterfaceRef<QL::IQLPreset> ClonePreset(bool) const override { return nullptr; }
    bool IsUserPreset() const override { return true; }
    void SetFields(const QL::PresetFieldList&) override {}
    QL::PresetFieldList GetFields() const override { return {}; }
    Fnd::WString GetPath() const override { return {}; }

private:
    bool* destroyed_;
};

IngestDialogDataRef NewSession() {
    return IngestDialogDataRef::Query(CreateIngestDialogData());
}

TEST(IngestDialogDataIdentity, TheFactorysUnknownQueriesForTheTwoKnownIdentitiesOnly) {
    Fnd::InterfaceRef<Fnd::FndUnknown> unknown = CreateIngestDialogData();
    IngestDialogDataRef session = IngestDialogDataRef::Query(unknown);
    ASSERT_TRUE(session);
    EXPECT_EQ(session->GetRawObject(), unknown->GetRawObject());
    void* out = nullptr;
    EXPECT_EQ(session->QueryInterface(Fnd::MakeInterfaceID("{38645337-A23D-4652-9C78-542163697F95}"), &out),
              Fnd::kQueryOK);
    EXPECT_EQ(out, static_cast<IIngestDialogData*>(session.get()));
    static_cast<IIngestDialogData*>(out)->Release();
    EXPECT_EQ(session->QueryInterface(Fnd::MakeInterfaceID("{4FE4D60F-96B2-4636-8BF3-6770A8E94E34}"), &out),
              Fnd::kQueryOK);
    ASSERT_NE(out, nullptr);
    static_cast<Fnd::FndUnknown*>(out)->Release();
    out = reinterpret_cast<void*>(0x1);
    EXPECT_EQ(session->QueryInterface(Fnd::MakeInterfaceID("{00000000-0000-0000-0000-000000000001}"), &out),
              0xA00A0001u);
    EXPECT_EQ(out, nullptr);
}

TEST(IngestDialogDataIdentity, TheLastReferenceDeletesTheSessionAndItsReferences) {
    bool presetDestroyed = false;
    boost::intrusive_ptr<SelectedClipItem> item(new SelectedClipItem(u"a.mov"));
    {
        IngestDialogDataRef session = NewSession();
        session->SetRenamePreset(PresetRef(new CountedPreset(&presetDestroyed)));
        session->AddSelectedItem(item);
        Fnd::InterfaceRef<Fnd::FndUnknown> extra = session->GetUnknownRef();
        EXPECT_EQ(item->GetRefCount(), 2u);
        session.reset();
        // The unknown reference still keeps the session and so its preset alive.
        EXPECT_FALSE(presetDestroyed);
        EXPECT_EQ(item->GetRefCount(), 2u);
    }
    EXPECT_TRUE(presetDestroyed);
    EXPECT_EQ(item->GetRefCount(), 1u);
}

TEST(IngestDialogDataState, ResetEmptiesTheListsAndKeepsEverythingElse) {
    bool presetDestroyed = false;
    IngestDialogDataRef session = NewSession();
    session->SetImportOnly(false);
    session->SetRenameEnabled(true);
    session->SetRenamePreset(PresetRef(new CountedPreset(&presetDestroyed)));
    session->SetVerifyMode(2);
    session->SetSourceRoot(u"/media/card");
    session->AddSelectedItem(new SelectedClipItem(u"a.mov"));
    IngestDestinationRef destination(new IngestDestination());
    session->AddDestination(destination);
    session->SetCopyDecisions({{destination, {{u"a.mov", 3}}}});

    session->Reset();

    EXPECT_TRUE(session->IsImportOnly());
    EXPECT_TRUE(session->GetSelectedItems().empty());
    EXPECT_TRUE(session->GetDestinations().empty());
    EXPECT_TRUE(session->IsRenameEnabled());
    EXPECT_TRUE(session->GetRenamePreset());
    EXPECT_EQ(session->GetVerifyMode(), 2u);
    EXPECT_EQ(session->GetSourceRoot(), u"/media/card");
    EXPECT_EQ(session->GetCopyDecisions()->size(), 1u);
    EXPECT_FALSE(presetDestroyed);
}

TEST(IngestDialogDataState, CopyDecisionsAreKeyedByDestinationIdentity) {
    IngestDialogDataRef session = NewSession();
    IngestDestinationRef destination(new IngestDestination());
    destination->SetDestinationPath(u"/backup");
    IngestDestinationRef twin(new IngestDestination(*destination));

    session->SetCopyDecisions({{destination, {{u"a.mov", 1}}}});
    CopyDecisionMap* decisions = session->GetCopyDecisions();
    EXPECT_EQ(decisions->count(destination), 1u);
    EXPECT_EQ(decisions->count(twin), 0u);

    // The map is handed out in place: a change through the pointer is the session's own.
    (*decisions)[twin][u"a.mov"] = 2;
    EXPECT_EQ(session->GetCopyDecisions()->size(), 2u);
    EXPECT_EQ(destination->GetRefCount(), 2u);
}

TEST(IngestDestinationCopy, DeepCopiesTheTranscodeSettingAndLeavesEnabledToTheCopier) {
    IngestDestinationRef source(new IngestDestination());
    source->SetDestinationPath(u"/dest/");
    source->SetSubFolder(u"day1");
    source->SetApplyMetadata(true);
    source->SetEnabled(true);
    auto setting = std::make_shared<QL::IngestTask::TranscodeSetting>();
    setting->enabled = true;
    setting->clips.push_back({u"/a.mov", false, u"", 0, 10, 1});
    source->SetTranscodeSetting(setting);

    IngestDestinationRef copy(new IngestDestination(*source));
    EXPECT_FALSE(copy->IsEnabled());
    EXPECT_EQ(copy->GetFullDestinationPath(), u"/dest/day1");
    EXPECT_TRUE(copy->IsApplyMetadata());
    ASSERT_TRUE(copy->GetTranscodeSetting());
    EXPECT_EQ(copy->GetTranscodeSetting()->clips.size(), 1u);
    copy->GetTranscodeSetting()->enabled = false;
    EXPECT_TRUE(setting->enabled);

    IngestDestination assigned;
    assigned.SetEnabled(true);
    assigned = *source;
    EXPECT_TRUE(assigned.IsEnabled());
    EXPECT_NE(assigned.GetTranscodeSetting(), setting);
}

TEST(FullPaths, JoinTheNormalisedBaseWithTheSubfolderOrTheItemsPaths) {
    IngestDestination destination;
    destination.SetDestinationPath(u"/media//dest/./");
    EXPECT_EQ(destination.GetFullDestinationPath(), u"/media/dest");
    destination.SetSubFolder(u"Shoot Day 1");
    EXPECT_EQ(destination.GetFullDestinationPath(), u"/media/dest/Shoot Day 1");

    boost::intrusive_ptr<SelectedFolderItem> folder(new SelectedFolderItem(u"CLIPS"));
    folder->AddExtraPath(u"CLIPS/a.mov");
    folder->AddExtraPath(u"CLIPS/sub/b.mov");
    EXPECT_EQ(folder->GetFullItemPath(u"/card//"), u"/card/CLIPS");
    std::vector<Fnd::WString> full{u"kept"};
    folder->GetFullExtraPaths(u"/card/", full);
    EXPECT_EQ(full, (std::vector<Fnd::WString>{u"kept", u"/card/CLIPS/a.mov", u"/card/CLIPS/sub/b.mov"}));
}

} // namespace
} // namespace igd::test
