// Every layout of the library, built from its archive and presented with Qt, is rendered to
// <build>/screenshots. Nothing may be clipped: each control's widget lies inside the image.
#include <QDir>
#include <QImage>
#include <QWidget>
#include <gtest/gtest.h>

#include "IGD/LayoutPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/TreeSnapshot.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_ControlView.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/controls/UI_SectionView.h"

namespace igd::test {
namespace {

constexpr float kDialogWidth = 360.0f;

igd::qt::PictureSource Pictures() {
    return igd::qt::PictureSource(IGD::IngestResourceManager());
}

// Controls shown in the tree whose widget leaves the root's rectangle.
void CollectClipped(const igd::qt::NodePresenter& presenter, const fluxui::ui::UI_Node& node,
                    const QRect& bounds, std::vector<std::string>& clipped) {
    if (!node.UI_IsShown())
        return;
    if (dynamic_cast<const fluxui::controls::UI_ControlView*>(&node)) {
        const QWidget* widget = presenter.WidgetFor(node);
        const QRect area(widget->mapTo(presenter.RootWidget(), QPoint(0, 0)), widget->size());
        if (!bounds.contains(area))
            clipped.push_back(node.UI_GetNodeID());
    }
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        CollectClipped(presenter, **child, bounds, clipped);
}

bool HasInk(const QImage& image) {
    // More than one colour: something was drawn on the background.
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != first)
                return true;
    return false;
}

TEST(LayoutScreenshotTest, EveryLayoutRendersWithNothingClipped) {
    EnsureQtApplication();
    const std::vector<std::string> names = IGD::LayoutNames();
    ASSERT_GE(names.size(), 32u);
    const QDir directory(QStringLiteral(IGD_SCREENSHOT_DIR));
    ASSERT_TRUE(QDir().mkpath(directory.path()));
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const IGD::LayoutPreview preview = IGD::BuildLayoutPreview(name, kDialogWidth);
        const QImage image = igd::qt::RenderTree(preview.root, Pictures());
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.width(), static_cast<int>(kDialogWidth));
        EXPECT_EQ(image.height(), static_cast<int>(preview.root->UI_GetLocalRectF().height + 0.5f));
        EXPECT_TRUE(
            image.save(directory.filePath(QString::fromStdString(name) + QStringLiteral(".png")), "PNG"));
        // The summary rows are empty until code fills their text.
        if (name.rfind("igdSummary", 0) != 0) {
            EXPECT_TRUE(HasInk(image)) << "a blank picture";
        }

        igd::qt::NodePresenter presenter(preview.root, nullptr, Pictures());
        std::vector<std::string> clipped;
        CollectClipped(presenter, *preview.root, QRect(QPoint(0, 0), image.size()), clipped);
        EXPECT_TRUE(clipped.empty()) << "clipped: " << ::testing::PrintToString(clipped);
    }
}

TEST(LayoutScreenshotTest, ASectionStackFoldsAndScrolls) {
    EnsureQtApplication();
    const float inner = kDialogWidth - fluxui::controls::UI_ScrollView::kScrollBarSize;
    std::vector<IGD::LayoutPreview> layouts;
    for (const char* name : {"igdLocalTransferHeader", "igdPathSetting", "igdVerifySetting",
                             "igdTranscodeSetting", "igdRenameTemplateHeader"})
        layouts.push_back(IGD::BuildLayoutPreview(name, inner));
    const fluxui::ui::UI_NodeRef root = IGD::BuildSectionStack(layouts, kDialogWidth, 200.0f);
    auto& scroll = dynamic_cast<fluxui::controls::UI_ScrollView&>(*root);
    igd::qt::NodePresenter presenter(root, nullptr, Pictures());
    ShowActive(*presenter.RootWidget());
    ASSERT_TRUE(scroll.GetScrollBarY().UI_IsShown()) << "five sections are taller than 200 units";
    const float tall = scroll.GetContentRectF().height;

    auto& stack = scroll.GetContentView();
    auto& first = dynamic_cast<fluxui::controls::UI_SectionView&>(**stack.ChildBegin());
    auto& second = dynamic_cast<fluxui::controls::UI_SectionView&>(**std::next(stack.ChildBegin()));
    QWidget* secondWidget = presenter.WidgetFor(second);
    const int secondTop = secondWidget->y();
    scroll.ScrollTo(1e6f);
    first.ToggleByUser();
    EXPECT_FALSE(first.GetOpened());
    EXPECT_LT(secondWidget->y(), secondTop) << "the sections below move up";
    EXPECT_LT(scroll.GetContentRectF().height, tall);
    EXPECT_EQ(scroll.GetContentRectF().Bottom(), 200.0f) << "scrolled to the end, the view stays in range";
    const QImage image = presenter.RootWidget()->grab().toImage();
    EXPECT_TRUE(
        image.save(QDir(QStringLiteral(IGD_SCREENSHOT_DIR)).filePath(QStringLiteral("sections.png")), "PNG"));
}

} // namespace
} // namespace igd::test
