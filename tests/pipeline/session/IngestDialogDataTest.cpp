// The session a host or the dialog fills: what Reset empties and what it keeps.
#include <gtest/gtest.h>

#include "IGD/SelectedClipItem.h"
#include "pipeline/session/IngestDialogData.h"
#include "support/PresetFields.h"

namespace igd::test {
namespace {

using namespace IGD;

TEST(IngestDialogDataState, ResetEmptiesTheListsAndKeepsEverythingElse) {
    IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
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
