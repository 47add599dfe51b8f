// The list control in Qt: rows and ticks shown, the person's ticks, selection and activation back
// in the node, a changed row redrawn alone, and pictures drawn in the icon grid.
#include <QBuffer>
#include <QImage>
#include <QListView>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_ListView.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;

std::shared_ptr<const std::vector<std::uint8_t>> SolidPng(QColor color) {
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::make_shared<const std::vector<std::uint8_t>>(bytes.begin(), bytes.end());
}

ListRow Row(const std::string& name, bool checkable = true) {
    ListRow row;
    row.key = name;
    row.cells = {Fnd::WString(name.begin(), name.end()), u"00:00:10:00"};
    row.checkable = checkable;
    return row;
}

class ListViewBuilderTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        root_ = Make<fluxui::ui::UI_SubView>();
        root_->UI_SetLocalRectF({0, 0, 480, 320});
        list_ = Make<UI_ListView>();
        list_->UI_SetLocalRectF({0, 0, 480, 320});
        list_->SetColumns({{"name", u"Name", 200}, {"duration", u"Duration", 120}});
        root_->ChildPushBack(list_);
    }
    void Present() {
        presenter_ = std::make_unique<igd::qt::NodePresenter>(root_);
        ShowActive(*presenter_->RootWidget());
        QApplication::processEvents();
    }
    QTreeView& Tree() { return *presenter_->WidgetFor(*list_)->findChild<QTreeView*>(); }
    QListView& Icons() { return *presenter_->WidgetFor(*list_)->findChild<QListView*>(); }

    // Where the view draws the tick box of a row, as its delegate works it out.
    QPoint TickCentre(QTreeView& view, int row) {
        const QModelIndex index = view.model()->index(row, 0);
        QStyleOptionViewItem option;
        option.initFrom(&view);
        option.rect = view.visualRect(index);
        option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay |
                          QStyleOptionViewItem::HasDecoration;
        option.decorationSize = view.iconSize();
        return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view).center();
    }

    boost::intrusive_ptr<fluxui::ui::UI_SubView> root_;
    boost::intrusive_ptr<UI_ListView> list_;
    std::unique_ptr<igd::qt::NodePresenter> presenter_;
};

TEST_F(ListViewBuilderTest, ShowsRowsColumnsAndTicksAndFollowsAppendedRows) {
    std::vector<ListRow> rows{Row("A001"), Row("A002"), Row("Folder", false)};
    rows[1].checked = true;
    list_->SetRows(rows);
    Present();
    QAbstractItemModel& model = *Tree().model();
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Duration"));
    EXPECT_EQ(model.index(0, 1).data().toString(), QStringLiteral("00:00:10:00"));
    EXPECT_EQ(model.index(1, 0).data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
    EXPECT_FALSE(model.index(2, 0).data(Qt::CheckStateRole).isValid()) << "a row that cannot be ticked has no box";
    EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull())
        << "a row without a picture draws its kind's standard one";

    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    list_->AppendRows({Row("A003"), Row("A004")});
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 3);
    EXPECT_EQ(inserted[0][2].toInt(), 4);
    EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(ListViewBuilderTest, AClickOnATickBoxReachesTheNodeAsThePersonsTick) {
    list_->SetRows({Row("A001"), Row("A002")});
    std::vector<std::pair<std::size_t, bool>> heard;
    list_->NotifyWhenChecked([&](std::size_t row, bool checked) { heard.emplace_back(row, checked); });
    bool interactive = false;
    list_->NotifyWhenChanged([&](const UI_ControlMessage& message) { interactive = message.IsInteractive(); });
    Present();
    QTreeView& tree = Tree();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, TickCentre(tree, 1));
    EXPECT_EQ(heard, (std::vector<std::pair<std::size_t, bool>>{{1, true}}));
    EXPECT_TRUE(interactive);
    EXPECT_TRUE(list_->GetRows()[1].checked);
    EXPECT_EQ(tree.model()->index(1, 0).data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
}

TEST_F(ListViewBuilderTest, AnUpdatedRowIsRedrawnAloneAmongThousands) {
    std::vector<ListRow> rows;
    for (int i = 0; i < 5000; ++i)
        rows.push_back(Row("clip" + std::to_string(i)));
    list_->SetRows(std::move(rows));
    Present();
    QAbstractItemModel& model = *Tree().model();
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

    ListRow row = list_->GetRows()[1234];
    row.cells[1] = u"00:01:00:00";
    list_->UpdateRow(1234, row);
    list_->SetRowChecked(1235, true);
    ASSERT_EQ(changed.count(), 2);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1234);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 1234);
    EXPECT_EQ(changed[1][0].toModelIndex().row(), 1235);
    EXPECT_EQ(reset.count(), 0);
    EXPECT_EQ(model.index(1234, 1).data().toString(), QStringLiteral("00:01:00:00"));
    list_->SetColumns({{"name", u"Name", 200}});
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(model.columnCount(), 1);
}

TEST_F(ListViewBuilderTest, SelectionActivationAndVisibleRowsGoBothWays) {
    std::vector<ListRow> rows;
    for (int i = 0; i < 200; ++i)
        rows.push_back(Row("clip" + std::to_string(i)));
    list_->SetRows(std::move(rows));
    std::size_t activated = 999;
    list_->NotifyWhenActivated([&](std::size_t row) { activated = row; });
    Present();
    QTreeView& tree = Tree();

    list_->SetSelection({3, 4});
    EXPECT_EQ(tree.selectionModel()->selectedRows().size(), 2);
    const QRect second = tree.visualRect(tree.model()->index(2, 1));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(list_->GetSelection(), std::vector<std::size_t>{2});
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(activated, 2u);

    QApplication::processEvents();
    EXPECT_EQ(list_->GetFirstVisibleRow(), 0u);
    const std::size_t onScreen = list_->GetVisibleRowCount();
    EXPECT_GT(onScreen, 3u);
    EXPECT_LT(onScreen, 60u) << "only the rows that fit are reported";
    tree.scrollTo(tree.model()->index(150, 0), QAbstractItemView::PositionAtTop);
    QApplication::processEvents();
    EXPECT_EQ(list_->GetFirstVisibleRow(), 150u);
}

TEST_F(ListViewBuilderTest, IconModeDrawsEachRowsPicture) {
    std::vector<ListRow> rows{Row("red"), Row("blue")};
    rows[0].picture = SolidPng(Qt::red);
    rows[1].picture = SolidPng(Qt::blue);
    list_->SetRows(rows);
    list_->SetIconSize(64);
    list_->SetMode(ListViewMode::Icons);
    Present();
    QListView& icons = Icons();
    ASSERT_TRUE(icons.isVisible());
    EXPECT_FALSE(Tree().isVisible());

    const auto countPixels = [](const QImage& image, QColor color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == color;
        return count;
    };
    QImage shot = icons.viewport()->grab().toImage();
    EXPECT_GT(countPixels(shot, Qt::red), 64 * 40);
    EXPECT_GT(countPixels(shot, Qt::blue), 64 * 40);

    // A new picture of a row replaces the one drawn.
    ListRow row = list_->GetRows()[1];
    row.picture = SolidPng(Qt::green);
    list_->UpdateRow(1, row);
    QApplication::processEvents();
    shot = icons.viewport()->grab().toImage();
    EXPECT_EQ(countPixels(shot, Qt::blue), 0);
    EXPECT_GT(countPixels(shot, Qt::green), 64 * 40);
}

} // namespace
} // namespace igd::test
