// The shipped minimum-metadata panel as the person sees it: its view presented with Qt and
// written to <build>/screenshots/panel.png.
#include <QDir>
#include <QImage>
#include <QWidget>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "IgdQt/TreeSnapshot.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "QtTestApplication.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

TEST(PanelScreenshotTest, TheShippedPanelRendersWithEveryControlInside) {
    EnsureQtApplication();
    ScopedIgdHome home; // no panels of this machine's user
    auto host = PanelkitManager::MakeLocalPanelHost({{PanelkitManager::ShippedPanelsFolder()}});
    PanelkitManager::IExtensionRef panel;
    for (std::size_t i = 0; i < host->GetNumExtensions() && !panel; ++i)
        if (host->GetExtensionByIndex(i)->GetExtensionID().find("minimumMetadata") != std::string::npos)
            panel = host->GetExtensionByIndex(i);
    ASSERT_NE(panel, nullptr);
    panel->PrepareStage(false);
    PanelkitManager::IStageRef stage = host->GetStage(panel->GetStageID());
    const fluxui::ui::UI_NodeRef view = stage->CreateView(stage->GetBounds());

    const QImage image = igd::qt::RenderTree(view);
    ASSERT_EQ(image.size(), QSize(stage->GetBounds().width, stage->GetBounds().height));
    const QDir directory(QStringLiteral(IGD_SCREENSHOT_DIR));
    ASSERT_TRUE(QDir().mkpath(directory.path()));
    EXPECT_TRUE(image.save(directory.filePath(QStringLiteral("panel.png")), "PNG"));

    igd::qt::NodePresenter presenter(view, nullptr, {});
    const QRect bounds(QPoint(0, 0), image.size());
    for (auto child = view->ChildBegin(); child != view->ChildEnd(); ++child) {
        const QWidget* widget = presenter.WidgetFor(**child);
        ASSERT_NE(widget, nullptr) << (*child)->UI_GetNodeID();
        EXPECT_TRUE(bounds.contains(QRect(widget->mapTo(presenter.RootWidget(), QPoint(0, 0)), widget->size())))
            << (*child)->UI_GetNodeID();
    }
}

} // namespace
} // namespace igd::test
