#include <gtest/gtest.h>

#include "fluxui/ui/UI_Dialog.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxui::ui::OS_Window;
using fluxui::ui::UI_Dialog;

// A host that installed no interaction driver has no one to answer a dialog: it is cancelled,
// never taken as the response it was prepared with.
TEST(ModalRun, WithoutADriverADialogIsCancelled) {
    auto dialog = Make<UI_Dialog>(nullptr, u"Options");
    dialog->SetResponse(fluxui::ui::kDialogResponseOK);
    EXPECT_EQ(dialog->RunModal(), fluxui::ui::kDialogResponseCancel);
    EXPECT_FALSE(dialog->IsRunningModal());
}

TEST(DialogPlacement, CentresOverItsParentAndKeepsItsMinimumSize) {
    auto parent = Make<OS_Window>();
    parent->UI_SetGlobalStructureRect({100, 100, 800, 600});
    auto dialog = Make<UI_Dialog>(nullptr, u"Child", fluxcore::geom::PointF{1, 1}, parent.get());
    dialog->SetMinimumSize({300, 200});
    dialog->UI_SetGlobalStructureRect({0, 0, 400, 300});
    dialog->Position();
    EXPECT_EQ(dialog->UI_GetGlobalStructureRect(), (fluxcore::geom::RectI{300, 250, 400, 300}));
    dialog->SetContentSize({100, 500});
    EXPECT_EQ(dialog->UI_GetLocalRect(), (fluxcore::geom::RectI{0, 0, 300, 500}));
}

} // namespace
} // namespace igd::test
