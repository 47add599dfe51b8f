// The rename section in edit mode, as the gallery builds it, worked through its widgets: rows
// move and go under the person's hand, and the arrows and the sample line follow.
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"
#include "IGD/TemplateSectionPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/QtRunLoop.h"
#include "QL/PresetService.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "support/ScopedIgdHome.h"
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"
#include "templates/rename/RenameTemplateSampleSection.h"
#include "templates/rename/RenameTemplateSection.h"

namespace igd::test {
namespace {

using IGD::PresetManagementEditModeField;

class TemplateSectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        loop_ = igd::qt::QtRunLoop::Install();
    }
    void TearDown() override {
        Fnd::SetRunLoop(nullptr);
        QL::SetPresetService(nullptr);
    }
    static QStringList Texts(QWidget& widget) {
        QStringList texts;
        for (const QLabel* label : widget.findChildren<QLabel*>())
            if (label->isVisible())
                texts << label->text();
        return texts;
    }

    ScopedIgdHome home_;
    std::shared_ptr<igd::qt::QtRunLoop> loop_;
};

TEST_F(TemplateSectionTest, EditRowsMoveAndGoThroughTheirButtons) {
    const fluxui::ui::UI_NodeRef root = IGD::BuildTemplateSectionPreview(
        IGD::TemplateSectionKind::Rename, IGD::TemplateSectionMode::Edit, 360.0f, 480.0f);
    auto& section = dynamic_cast<IGD::RenameTemplateSection&>(
        dynamic_cast<fluxui::controls::UI_ScrollView&>(*root).GetContentView());
    igd::qt::NodePresenter presenter(root);
    ShowActive(*presenter.RootWidget());
    QCoreApplication::processEvents();
    const auto rows = [&] { return section.GetEditFields().GetRows(); };
    const auto widget = [&](const fluxui::ui::UI_Node& node) { return presenter.WidgetFor(node); };
    QWidget& sample = *widget(section.GetSampleSection());
    // Camera roll: the file name, "_" and a counter.
    const std::vector<PresetManagementEditModeField*> shipped = rows();
    ASSERT_EQ(shipped.size(), 3u);
    EXPECT_TRUE(Texts(sample).contains(QStringLiteral("File Name_001")));
    EXPECT_FALSE(widget(shipped[0]->GetMoveUpButton())->isEnabled());
    EXPECT_FALSE(widget(shipped[2]->GetMoveDownButton())->isEnabled());

    const int middleTop = widget(*shipped[1])->y();
    QTest::mouseClick(widget(shipped[2]->GetMoveUpButton()), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows(), (std::vector{shipped[0], shipped[2], shipped[1]}));
    EXPECT_EQ(widget(*shipped[2])->y(), middleTop);
    EXPECT_TRUE(Texts(sample).contains(QStringLiteral("File Name001_")))
        << Texts(sample).join(u'|').toStdString();
    EXPECT_FALSE(widget(shipped[1]->GetMoveDownButton())->isEnabled()) << "now last";
    EXPECT_TRUE(widget(shipped[2]->GetMoveDownButton())->isEnabled());

    const QPointer<QWidget> removed = widget(*shipped[2]);
    QTest::mouseClick(widget(shipped[2]->GetRemoveButton()), Qt::LeftButton);
    EXPECT_FALSE(removed->isVisible());
    EXPECT_EQ(widget(*shipped[1])->y(), middleTop) << "the row below moves up at once";
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(removed.isNull());
    EXPECT_EQ(rows(), (std::vector{shipped[0], shipped[1]}));
    EXPECT_TRUE(Texts(sample).contains(QStringLiteral("File Name_")));
}

} // namespace
} // namespace igd::test
