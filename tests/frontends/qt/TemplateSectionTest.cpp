// The rename section in edit mode, as the gallery builds it, worked through its widgets: rows
// move and go under the person's hand, and the widgets and arrows follow at once.
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"
#include "IGD/TemplateSectionPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/QtRunLoop.h"
#include "QL/FilePresetService.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "support/ScopedIgdHome.h"
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"
#include "templates/section/PresetManagementSection.h"

namespace igd::test {
namespace {

class TemplateSectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        QL::SetPresetService(std::make_shared<QL::FilePresetService>(QL::DefaultPresetFolders()));
        // The rows refresh their arrows once a button's handler has ended, through the run loop.
        loop_ = igd::qt::QtRunLoop::Install();
    }
    void TearDown() override {
        Fnd::SetRunLoop(nullptr);
        QL::SetPresetService(nullptr);
    }

    ScopedIgdHome home_;
    std::shared_ptr<igd::qt::QtRunLoop> loop_;
};

TEST_F(TemplateSectionTest, EditRowsMoveAndGoThroughTheirButtons) {
    const fluxui::ui::UI_NodeRef root = IGD::BuildTemplateSectionPreview(
        IGD::TemplateSectionKind::Rename, IGD::TemplateSectionMode::Edit, 360.0f, 480.0f);
    auto& section = dynamic_cast<IGD::PresetManagementSection&>(
        dynamic_cast<fluxui::controls::UI_ScrollView&>(*root).GetContentView());
    igd::qt::NodePresenter presenter(root);
    ShowActive(*presenter.RootWidget());
    QCoreApplication::processEvents();
    const auto rows = [&] { return section.GetEditFields().GetRows(); };
    const auto widget = [&](const fluxui::ui::UI_Node& node) { return presenter.WidgetFor(node); };
    // Camera roll: the file name, "_" and a counter.
    const std::vector<IGD::PresetManagementEditModeField*> shipped = rows();
    ASSERT_EQ(shipped.size(), 3u);

    QWidget* moving = widget(*shipped[2]);
    QWidget* up = widget(shipped[2]->GetMoveUpButton());
    const int middleTop = widget(*shipped[1])->y();
    QTest::mouseClick(up, Qt::LeftButton);
    EXPECT_EQ(rows(), (std::vector{shipped[0], shipped[2], shipped[1]}));
    EXPECT_EQ(widget(*shipped[2]), moving) << "moved, not built again";
    EXPECT_EQ(moving->y(), middleTop);
    EXPECT_TRUE(up->hasFocus()) << "the keyboard stays on the arrow that was pressed";
    QCoreApplication::processEvents();
    EXPECT_FALSE(widget(shipped[1]->GetMoveDownButton())->isEnabled()) << "now last";
    EXPECT_TRUE(widget(shipped[2]->GetMoveDownButton())->isEnabled());

    const QPointer<QWidget> removed = moving;
    QTest::mouseClick(widget(shipped[2]->GetRemoveButton()), Qt::LeftButton);
    EXPECT_FALSE(removed->isVisible());
    EXPECT_EQ(widget(*shipped[1])->y(), middleTop) << "the row below moves up at once";
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(removed.isNull()) << "its widget goes once the handler has ended";
    EXPECT_EQ(rows(), (std::vector{shipped[0], shipped[1]}));
}

} // namespace
} // namespace igd::test
