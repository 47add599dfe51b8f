// The session a host or the dialog fills: its identities, what Reset keeps, how a destination copies.
#include <gtest/gtest.h>

#include "IGD/SelectedClipItem.h"
#include "pipeline/session/IngestDialogData.h"
#include "support/PresetFields.h"

namespace igd::test {
namespace {

using namespace IGD;

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

TEST(IngestDialogDataState, ResetEmptiesTheListsAndKeepsEverythingElse) {
    IngestDialogDataRef session = NewSession();
    session->SetImportOnly(false);
    session->SetRenameEnabled(true);
    session->SetRenamePreset(Preset(QL::kQLPresetCategoryRename, {}));
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
}

} // namespace
} // namespace igd::test
