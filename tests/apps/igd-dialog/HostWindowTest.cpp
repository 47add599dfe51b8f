// The host window over a project: its bins and their items as the tree shows them, and the bin an
// ingest goes to as the person chooses it.
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "AppFrame/Workspace.h"
#include "HostWindow.h"
#include "Mid/Project.h"
#include "Proj/Project.h"
#include "frontends/qt/QtTestApplication.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

Proj::ProjectItem Item(const std::string& path, const std::string& bin) {
    Proj::ProjectItem item;
    item.path = Fnd::FromUTF8(path);
    item.name = Fnd::FromUTF8(path.substr(path.rfind('/') + 1));
    item.bin = Fnd::FromUTF8(bin);
    return item;
}

TEST(HostWindow, ShowsTheProjectsBinsAndStandsAsTheWorkspacesMainWindow) {
    EnsureQtApplication();
    ScopedIgdHome home;
    const std::string path = home.Path() + "/Feature.igdproj";
    Proj::Project::Open(path)->ImportItems(
        {Item("/m/A001.MP4", ""), Item("/m/B001.MP4", "Day 1"), Item("/m/B002.MP4", "Day 1")});
    Mid::SetProject(Proj::MakeProjectOfFile(path));
    {
        dialog::HostWindow window(path);
        EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Feature")));
        QTreeWidget& tree = window.BinTree();
        ASSERT_EQ(tree.topLevelItemCount(), 2);
        EXPECT_EQ(tree.topLevelItem(0)->text(0), QStringLiteral("Feature"));
        EXPECT_EQ(tree.topLevelItem(0)->childCount(), 1);
        QTreeWidgetItem* day = tree.topLevelItem(1);
        EXPECT_EQ(day->text(0), QStringLiteral("Day 1"));
        ASSERT_EQ(day->childCount(), 2);
        EXPECT_EQ(day->child(1)->text(0), QStringLiteral("B002.MP4"));

        EXPECT_EQ(window.ChosenBin(), u"");
        day->child(0)->setSelected(true);
        EXPECT_EQ(window.ChosenBin(), u"Day 1");

        // The dialog is placed over the host's window: the toolkit's stand-in has its size.
        window.resize(1000, 700);
        const fluxui::ui::OS_Window* main = AppFrame::Workspace::Instance()->GetPtr()->GetMainTopLevelWindow();
        ASSERT_NE(main, nullptr);
        EXPECT_GE(main->UI_GetGlobalStructureRect().width, 1000);
        EXPECT_GE(main->UI_GetGlobalStructureRect().height, 700);
    }
    EXPECT_EQ(AppFrame::Workspace::Instance(), nullptr);
    Mid::SetProject({});
}

} // namespace
} // namespace igd::test
