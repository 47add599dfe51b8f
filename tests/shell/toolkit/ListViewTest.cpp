#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

#include "fluxui/controls/UI_ListView.h"
#include "fluxui/ui/UI_NodeObserver.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;
using fluxui::ui::NodeChange;

struct ChangeCounter : fluxui::ui::UI_NodeObserver {
    void UI_NodeChanged(fluxui::ui::UI_Node&, NodeChange change) override { ++counts[change]; }
    std::map<NodeChange, int> counts;
};

ListRow Row(std::string key, bool checkable = true) {
    ListRow row;
    row.cells = {Fnd::WString(key.begin(), key.end())};
    row.key = std::move(key);
    row.checkable = checkable;
    return row;
}

std::vector<ListRow> Rows(int count) {
    std::vector<ListRow> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back(Row("row" + std::to_string(i)));
    return rows;
}

struct ListViewTest : ::testing::Test {
    ListViewTest() { list->UI_SetObserver(&observer); }
    boost::intrusive_ptr<UI_ListView> list = Make<UI_ListView>();
    ChangeCounter observer;
};

TEST_F(ListViewTest, RowChangesAreTakenOnceAndAResetCoversEverything) {
    EXPECT_TRUE(list->TakeRowChanges().reset) << "a new list has never been presented";
    list->SetRows(Rows(5));
    list->UpdateRow(3, Row("three"));
    ListRowChanges changes = list->TakeRowChanges();
    EXPECT_TRUE(changes.reset);
    EXPECT_TRUE(changes.rows.empty()) << "a reset presents every row anyway";

    EXPECT_FALSE(list->TakeRowChanges().reset);
    list->UpdateRow(4, Row("four"));
    list->AppendRows(Rows(2));
    list->UpdateRow(1, Row("one"));
    list->UpdateRow(4, Row("four again"));
    changes = list->TakeRowChanges();
    EXPECT_FALSE(changes.reset);
    EXPECT_EQ(changes.rows, (std::vector<std::size_t>{1, 4, 5, 6})) << "ascending, each row once";
    EXPECT_TRUE(list->TakeRowChanges().rows.empty()) << "changes are taken once";
    EXPECT_EQ(list->GetRows()[4].key, "four again");
    EXPECT_EQ(list->GetRowCount(), 7u);
}

TEST_F(ListViewTest, SettersTellThePresenterWhatChanged) {
    list->SetMode(ListViewMode::Icons);
    list->SetIconSize(64);
    list->SetShowsHeader(false);
    list->SetColumns({{"name", u"Name", 200}});
    EXPECT_EQ(observer.counts[NodeChange::Appearance], 4);
    list->SetMode(ListViewMode::Icons);
    list->SetColumns({{"name", u"Name", 200}});
    EXPECT_EQ(observer.counts[NodeChange::Appearance], 4) << "unchanged settings are silent";
    list->SetColumns({{"name", u"Name", 180}});
    EXPECT_EQ(observer.counts[NodeChange::Appearance], 5) << "a new width is a change";

    list->SetRows(Rows(2));
    list->AppendRows(Rows(1));
    list->UpdateRow(0, Row("zero"));
    list->UpdateRow(0, Row("zero"));
    list->AppendRows({});
    EXPECT_EQ(observer.counts[NodeChange::Value], 3) << "an equal row and no rows tell nobody";
}

TEST_F(ListViewTest, TicksReachTheCheckFunctionWhoeverMadeThem) {
    std::vector<ListRow> rows = Rows(3);
    rows[2].checkable = false;
    list->SetRows(std::move(rows));
    list->TakeRowChanges();
    std::vector<std::pair<std::size_t, bool>> heard;
    list->NotifyWhenChecked([&](std::size_t row, bool checked) { heard.emplace_back(row, checked); });
    int interactive = 0;
    list->NotifyWhenChanged([&](const UI_ControlMessage& message) { interactive += message.IsInteractive(); });

    list->SetRowChecked(0, true, true);
    list->SetRowChecked(1, true);
    list->SetRowChecked(1, true);  // already ticked
    list->SetRowChecked(2, true);  // not checkable
    list->SetRowChecked(0, false, true);
    EXPECT_EQ(heard, (std::vector<std::pair<std::size_t, bool>>{{0, true}, {1, true}, {0, false}}));
    EXPECT_EQ(interactive, 2);
    EXPECT_FALSE(list->GetRows()[0].checked);
    EXPECT_TRUE(list->GetRows()[1].checked);
    EXPECT_FALSE(list->GetRows()[2].checked);
    EXPECT_EQ(list->TakeRowChanges().rows, (std::vector<std::size_t>{0, 1})) << "the presenter redraws the ticks";
}

TEST_F(ListViewTest, SelectionIsSortedUniqueAndClearedByNewRows) {
    list->SetRows(Rows(6));
    int changes = 0;
    list->NotifyWhenSelectionChanged([&] { ++changes; });
    list->SetSelection({4, 1, 4, 2}, true);
    EXPECT_EQ(list->GetSelection(), (std::vector<std::size_t>{1, 2, 4}));
    list->SetSelection({2, 1, 4});
    EXPECT_EQ(changes, 1) << "the same selection in another order is no change";
    list->SetRows(Rows(2));
    EXPECT_TRUE(list->GetSelection().empty());
    EXPECT_EQ(changes, 2);
}

TEST_F(ListViewTest, ARowPastTheEndIsAProgrammingFault) {
    list->SetRows(Rows(3));
    EXPECT_THROW(list->UpdateRow(3, Row("x")), std::out_of_range);
    EXPECT_THROW(list->SetRowChecked(3, true), std::out_of_range);
    EXPECT_THROW(list->SetSelection({0, 3}), std::out_of_range);
    EXPECT_THROW(list->Activate(7), std::out_of_range);
    EXPECT_TRUE(list->GetSelection().empty());
}

} // namespace
} // namespace igd::test
