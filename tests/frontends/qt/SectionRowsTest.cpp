// Rows of a section list move and go away under the person's hand: the widgets follow the model
// at once, a moved row keeps its widget, and a row removed by its own button goes without a crash.
// Popups show rows without text as separators and, when too narrow for text, act as a menu button.
#include <QAbstractItemView>
#include <QComboBox>
#include <QPointer>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"
#include "IGD/LayoutPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/QtRunLoop.h"
#include "QtTestApplication.h"
#include "fluxcore/Threads.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_Popup.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_PictureButton;
using fluxui::controls::UI_Popup;
using igd::qt::NodePresenter;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;

class SectionRowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        loop_ = igd::qt::QtRunLoop::Install();
        list_ = new SectionViewEx(u"", "");
        list_->UI_SetLocalRectF({0, 0, 360, 0});
        wrangler::ui::BuildSectionTree(*list_, *IGD::IngestResourceManager(), nullptr);
        for (int i = 0; i < 3; ++i)
            AddRow();
        list_->UpdateSectionLayout();
    }
    void TearDown() override { Fnd::SetRunLoop(nullptr); }

    // A row with the arrows and remove button of an edit row, wired as the template rows are: the
    // arrows are refreshed once the handler has ended.
    void AddRow() {
        SectionViewExRef row(new SectionViewEx(u"", "igdMetadataTemplateEditModeField"));
        list_->InsertChildSection(row);
        list_->BuildAddedSection(*row);
        SectionViewEx* raw = row.get();
        const auto after = [this](bool moved) {
            if (moved)
                fluxcore::threads::AsyncCallFromMainThread([this] { RefreshArrows(); });
        };
        Button(*raw, "UI_MoveUpwardButton").NotifyWhenChanged([=, this](auto&) {
            after(list_->MoveChildSectionUp(raw));
        });
        Button(*raw, "UI_MoveDownwardButton").NotifyWhenChanged([=, this](auto&) {
            after(list_->MoveChildSectionDown(raw));
        });
        Button(*raw, "UI_RemoveButton").NotifyWhenChanged([=, this](auto&) {
            raw->UI_Show(false);
            after(list_->RemoveChildSection(raw));
        });
    }
    void RefreshArrows() {
        for (const SectionViewExRef& row : list_->GetChildSections()) {
            Button(*row, "UI_MoveUpwardButton").SetDisabled(list_->IsFirstChildSection(row.get()));
            Button(*row, "UI_MoveDownwardButton").SetDisabled(list_->IsLastChildSection(row.get()));
        }
    }
    static UI_PictureButton& Button(const SectionViewEx& row, const char* id) {
        return *row.BindControl<UI_PictureButton>(id);
    }
    QWidget* Widget(NodePresenter& presenter, const SectionViewEx& row, const char* id = nullptr) {
        return id ? presenter.WidgetFor(Button(row, id)) : presenter.WidgetFor(row);
    }

    std::shared_ptr<igd::qt::QtRunLoop> loop_;
    SectionViewExRef list_;
};

TEST_F(SectionRowsTest, AMovedRowKeepsItsWidgetAndTheArrowsFollow) {
    NodePresenter presenter(list_);
    ShowActive(*presenter.RootWidget());
    const std::vector<SectionViewExRef> rows = list_->GetChildSections();
    QWidget* lastRow = Widget(presenter, *rows[2]);
    const int middleTop = Widget(presenter, *rows[1])->y();
    QWidget* up = Widget(presenter, *rows[2], "UI_MoveUpwardButton");

    QTest::mouseClick(up, Qt::LeftButton);
    ASSERT_EQ(list_->GetChildSections()[1], rows[2]);
    EXPECT_EQ(Widget(presenter, *rows[2]), lastRow) << "moved, not built again";
    EXPECT_TRUE(lastRow->isVisible());
    EXPECT_EQ(lastRow->y(), middleTop);
    EXPECT_GT(Widget(presenter, *rows[1])->y(), middleTop);
    EXPECT_TRUE(up->hasFocus()) << "the keyboard stays on the arrow that was pressed";

    QTest::mouseClick(up, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(lastRow->y(), 0);
    EXPECT_FALSE(up->isEnabled()) << "the first row cannot go up";
    EXPECT_FALSE(Widget(presenter, *rows[1], "UI_MoveDownwardButton")->isEnabled());
    EXPECT_TRUE(Widget(presenter, *rows[0], "UI_MoveUpwardButton")->isEnabled());
}

TEST_F(SectionRowsTest, ARowRemovedByItsOwnButtonGoesAtOnce) {
    NodePresenter presenter(list_);
    ShowActive(*presenter.RootWidget());
    std::vector<SectionViewExRef> rows = list_->GetChildSections();
    const QPointer<QWidget> removed = Widget(presenter, *rows[1]);
    const int removedTop = removed->y();
    QWidget* remove = Widget(presenter, *rows[1], "UI_RemoveButton");
    rows.erase(rows.begin() + 1); // the list holds the last reference

    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_FALSE(removed->isVisible());
    EXPECT_EQ(Widget(presenter, *rows[1])->y(), removedTop) << "the row below takes its place";
    EXPECT_EQ(presenter.RootWidget()->height(), static_cast<int>(list_->UI_GetLocalRectF().height + 0.5f));
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(removed.isNull()) << "its widget goes once the handler has ended";
    EXPECT_FALSE(Widget(presenter, *rows[1], "UI_MoveDownwardButton")->isEnabled());
}

// Opens the list and clicks a row, as the person does.
void ClickRow(QComboBox& combo, int row) {
    combo.showPopup();
    QAbstractItemView* view = combo.view();
    const QPoint centre = view->visualRect(view->model()->index(row, 0)).center();
    QTest::mouseMove(view->viewport(), centre);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
}

TEST_F(SectionRowsTest, ANarrowPopupIsAMenuWithSeparatorsAndGreyedRows) {
    boost::intrusive_ptr<UI_Popup> menu(new UI_Popup);
    for (const char16_t* text : {u"New Preset", u"Edit", u"", u"Install Preset..."})
        menu->AddItem(text);
    menu->DisableItem(1, true);
    menu->UI_SetLocalRectF({0, 0, 19, 19});
    std::vector<int> chosen;
    menu->NotifyWhenChanged([&](auto&) {
        chosen.push_back(menu->GetValue());
        menu->SetValueUnknown();
    });
    menu->SetValueUnknown();
    NodePresenter presenter(menu);
    ShowActive(*presenter.RootWidget());
    auto& combo = dynamic_cast<QComboBox&>(*presenter.WidgetFor(*menu));
    ASSERT_EQ(combo.count(), 4) << "item numbers stay the model's";
    auto& items = dynamic_cast<QStandardItemModel&>(*combo.model());
    EXPECT_FALSE(items.item(1)->isEnabled());
    EXPECT_FALSE(items.item(2)->isEnabled());
    EXPECT_EQ(combo.itemData(2, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("separator"));

    ClickRow(combo, 3);
    EXPECT_GE(combo.view()->width(),
              combo.fontMetrics().horizontalAdvance(QStringLiteral("Install Preset...")))
        << "the list is as wide as its rows, not as the button";
    ClickRow(combo, 1);
    ClickRow(combo, 2);
    combo.hidePopup();
    EXPECT_EQ(chosen, std::vector<int>{3}) << "a greyed row and a separator choose nothing";
    EXPECT_EQ(combo.currentIndex(), -1);
}

} // namespace
} // namespace igd::test
