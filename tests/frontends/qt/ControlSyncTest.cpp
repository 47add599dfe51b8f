// Each control kind keeps its widget and its model in step, both ways: what the program sets is
// shown, and what the person does reaches the model as the interactive notification a test of the
// views relies on.
#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_PicturePopup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/utility/ResourceManager.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;
using fluxui::ui::UI_NodeRef;
using fluxui::ui::UI_SubView;
using igd::qt::NodePresenter;

class ControlSyncTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        root_ = new UI_SubView;
        root_->UI_SetLocalRectF({0, 0, 300, 200});
    }

    template <typename T>
    boost::intrusive_ptr<T> Add(T* control, fluxcore::geom::RectF rect = {10, 10, 200, 22}) {
        boost::intrusive_ptr<T> ref(control);
        ref->UI_SetLocalRectF(rect);
        root_->ChildPushBack(ref);
        return ref;
    }
    template <typename W> W& Widget(const fluxui::ui::UI_Node& node) {
        auto* widget = dynamic_cast<W*>(presenter_->WidgetFor(node));
        if (!widget)
            throw std::logic_error("not presented as the expected widget");
        return *widget;
    }
    void Present(igd::qt::PictureSource pictures = {}) {
        presenter_ = std::make_unique<NodePresenter>(root_, nullptr, pictures);
        ShowActive(*presenter_->RootWidget());
    }

    boost::intrusive_ptr<UI_SubView> root_;
    std::unique_ptr<NodePresenter> presenter_;
};

TEST_F(ControlSyncTest, CheckboxFollowsTheModelAndAClickGoesThroughPress) {
    auto box = Add(new UI_Checkbox);
    box->SetText(u"Verify");
    Notifications heard(*box);
    Present();
    auto& widget = Widget<QCheckBox>(*box);
    EXPECT_EQ(widget.text(), QStringLiteral("Verify"));
    box->SetChecked(true);
    EXPECT_EQ(widget.checkState(), Qt::Checked);
    EXPECT_EQ(heard.interactive, 0) << "a change by the program is not the person's";

    box->SetValueUnknown();
    EXPECT_EQ(widget.checkState(), Qt::PartiallyChecked);
    // A click on a mixed box checks it, as the model decides; Qt would have cycled it.
    widget.click();
    EXPECT_TRUE(box->IsChecked());
    EXPECT_FALSE(box->IsValueUnknown());
    EXPECT_EQ(widget.checkState(), Qt::Checked);
    EXPECT_EQ(heard.interactive, 1);
    EXPECT_TRUE(heard.lastInteractive);

    widget.click();
    EXPECT_FALSE(box->IsChecked());
    EXPECT_EQ(heard.interactive, 2);
}

TEST_F(ControlSyncTest, PopupShowsItemsAndValueAndTheChoiceGoesThroughChooseByUser) {
    auto popup = Add(new UI_Popup);
    popup->AddItem(u"MD5 comparison");
    popup->AddItem(u"File size comparison");
    popup->AddItem(u"Bit-by-bit comparison");
    popup->SetValue(0);
    Notifications heard(*popup);
    Present();
    auto& combo = Widget<QComboBox>(*popup);
    ASSERT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.itemText(2), QStringLiteral("Bit-by-bit comparison"));
    EXPECT_EQ(combo.currentIndex(), 0);

    popup->SetValue(1);
    EXPECT_EQ(combo.currentIndex(), 1);

    Q_EMIT combo.activated(2);
    EXPECT_EQ(popup->GetValue(), 2);
    EXPECT_EQ(heard.interactive, 1);

    // A disabled item cannot be chosen: the widget goes back to what the model holds.
    popup->DisableItem(0, true);
    auto* items = qobject_cast<QStandardItemModel*>(combo.model());
    ASSERT_NE(items, nullptr);
    EXPECT_FALSE(items->item(0)->isEnabled());
    combo.setCurrentIndex(0);
    Q_EMIT combo.activated(0);
    EXPECT_EQ(popup->GetValue(), 2);
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_EQ(heard.interactive, 1);

    popup->DeleteAllItems();
    popup->AddItem(u"Only");
    EXPECT_EQ(combo.count(), 1);
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(ControlSyncTest, APopupTooNarrowForTextIsAMenuWithSeparators) {
    auto menu = Add(new UI_Popup, {10, 10, 19, 19});
    for (const char16_t* text : {u"New Preset", u"", u"Install Preset..."})
        menu->AddItem(text);
    menu->NotifyWhenChanged([&](auto&) { menu->SetValueUnknown(); });
    menu->SetValueUnknown();
    Present();
    auto& combo = Widget<QComboBox>(*menu);
    ASSERT_EQ(combo.count(), 3) << "item numbers stay the model's";
    EXPECT_EQ(combo.itemData(1, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("separator"));
    EXPECT_FALSE(dynamic_cast<QStandardItemModel&>(*combo.model()).item(1)->isEnabled());
    Q_EMIT combo.activated(2);
    EXPECT_EQ(combo.currentIndex(), -1) << "a menu shows no choice";
}

TEST_F(ControlSyncTest, PicturePopupChoosesFromItsMenu) {
    auto popup = Add(new UI_PicturePopup, {10, 10, 24, 22});
    popup->AddItem(u"Date");
    popup->AddItem(u"Clip Name");
    Notifications heard(*popup);
    Present();
    auto& button = Widget<QToolButton>(*popup);
    ASSERT_NE(button.menu(), nullptr);
    const QList<QAction*> actions = button.menu()->actions();
    ASSERT_EQ(actions.size(), 2);
    EXPECT_EQ(actions[1]->text(), QStringLiteral("Clip Name"));
    actions[1]->trigger();
    EXPECT_EQ(popup->GetValue(), 1);
    EXPECT_EQ(heard.interactive, 1);
    EXPECT_TRUE(button.menu()->actions()[1]->isChecked());
}

TEST_F(ControlSyncTest, TextEditTypingIsInteractiveAndEscapeCancelsThroughTheToolkit) {
    auto edit = Add(new UI_TextEdit);
    edit->SetValue(u"Day 1", false);
    Notifications heard(*edit);
    std::vector<EditEnd> ends;
    edit->NotifyWhenEditEnds([&ends](EditEnd how) { ends.push_back(how); });
    Present();
    auto& line = Widget<QLineEdit>(*edit);
    EXPECT_EQ(line.text(), QStringLiteral("Day 1"));

    edit->SetValue(u"Day 2", false);
    EXPECT_EQ(line.text(), QStringLiteral("Day 2"));

    line.setFocus();
    EXPECT_TRUE(edit->UI_HasKeyboardFocus()) << "the widget's focus is the model's";
    line.selectAll();
    QTest::keyClicks(&line, QStringLiteral("Set B"));
    EXPECT_EQ(edit->GetValue(), u"Set B");
    EXPECT_EQ(heard.interactive, 5) << "one interactive change per keystroke";
    EXPECT_TRUE(heard.lastInteractive);

    QTest::keyClick(&line, Qt::Key_Escape);
    ASSERT_EQ(ends.size(), 1u);
    EXPECT_EQ(ends[0], EditEnd::Cancel);
    EXPECT_EQ(edit->GetValue(), u"Day 2");
    EXPECT_EQ(line.text(), QStringLiteral("Day 2"));

    QTest::keyClicks(&line, QStringLiteral("!"));
    QTest::keyClick(&line, Qt::Key_Return);
    ASSERT_EQ(ends.size(), 2u);
    EXPECT_EQ(ends[1], EditEnd::Commit);
    EXPECT_EQ(edit->GetValue(), u"Day 2!");

    // An unknown value shows as the placeholder, and a custom colour as the text's.
    edit->SetUnknownStateText(u"<mixed>");
    edit->SetValueUnknown();
    edit->SetCustomTextColor({1.0f, 0.0f, 0.0f, 1.0f}, true);
    EXPECT_EQ(line.text(), QString());
    EXPECT_EQ(line.placeholderText(), QStringLiteral("<mixed>"));
    EXPECT_EQ(line.palette().color(QPalette::Text), QColor(Qt::red));
    edit->SetValueKnown();
    EXPECT_EQ(line.text(), QStringLiteral("Day 2!"));
    EXPECT_EQ(line.placeholderText(), QString());
}

TEST_F(ControlSyncTest, NumberEditTakesOnlyDigitsAndAlignsRight) {
    auto number = Add(new UI_NumberEdit, {10, 10, 60, 22});
    number->SetRange(1, 4294970000.0);
    number->SetNumber(1, false);
    Present();
    auto& line = Widget<QLineEdit>(*number);
    EXPECT_TRUE(line.alignment() & Qt::AlignRight);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, QStringLiteral("12a5"));
    EXPECT_EQ(number->GetValue(), u"125");
    EXPECT_DOUBLE_EQ(number->GetNumber(), 125.0);
}

TEST_F(ControlSyncTest, TextsFollowTheirValueAndAButtonClickPresses) {
    auto text = Add(new UI_StaticText(u"Sample:"));
    auto button = Add(new UI_TextButton(u"Add Destination"), {10, 40, 200, 22});
    const float natural =
        QFontMetricsF(QApplication::font()).horizontalAdvance(QStringLiteral("Custom Increment:"));
    auto tight = Add(new UI_StaticText(u"Custom Increment:"), {10, 70, natural * 0.92f, 22});
    Notifications heard(*button);
    Present();
    auto& label = Widget<QLabel>(*text);
    EXPECT_EQ(label.text(), QStringLiteral("Sample:"));
    // Layouts were measured with another face: a label a little too narrow is condensed, not cut.
    auto& fitted = Widget<QLabel>(*tight);
    EXPECT_LE(fitted.fontMetrics().horizontalAdvance(fitted.text()), fitted.contentsRect().width());
    EXPECT_EQ(label.font().stretch(), QFont::AnyStretch) << "a label with room keeps its face";
    text->SetValue(u"A001_C002.mov");
    EXPECT_EQ(label.text(), QStringLiteral("A001_C002.mov"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText) << "names are never read as markup";
    auto& push = Widget<QPushButton>(*button);
    EXPECT_EQ(push.text(), QStringLiteral("Add Destination"));
    button->SetDefaultAppearance(true);
    EXPECT_TRUE(push.isDefault());
    button->SetText(u"Browse for Location...");
    EXPECT_EQ(push.text(), QStringLiteral("Browse for Location..."));
    QTest::mouseClick(&push, Qt::LeftButton);
    EXPECT_EQ(heard.interactive, 1);
}

TEST_F(ControlSyncTest, PictureButtonDrawsTheSuppliedPictureElseAGlyph) {
    // A 2 x 2 PNG, the smallest picture the store could hold.
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    fluxui::utility::ResourceManager resources;
    resources.AddResource("PNG", "SP_DOT_XS_N",
                          std::string_view(png.constData(), static_cast<std::size_t>(png.size())));

    auto pictured = Add(new UI_PictureButton, {10, 10, 22, 22});
    pictured->SetImageName("DOT_XS_N");
    auto plain = Add(new UI_PictureButton, {40, 10, 22, 22});
    auto supplied = Add(new UI_PictureButton, {70, 10, 22, 22});
    supplied->SetImageSupplyFunction(std::make_shared<fluxui::controls::ImageSupplyFunction>(
        [](fluxui::controls::UI_PictureSupplyMessage& message) { message.imageName = "DOT_XS_N"; }));
    plain->UI_SetNodeID("UI_RemoveButton");
    Notifications heard(*plain);
    Present(igd::qt::PictureSource(&resources));

    auto& withPicture = Widget<QToolButton>(*pictured);
    EXPECT_FALSE(withPicture.icon().isNull());
    EXPECT_TRUE(withPicture.text().isEmpty());
    auto& withGlyph = Widget<QToolButton>(*plain);
    EXPECT_TRUE(withGlyph.icon().isNull());
    EXPECT_EQ(withGlyph.text(), QStringLiteral("\u2715"));

    withGlyph.click();
    EXPECT_EQ(heard.interactive, 1);
    plain->SetDisabled(true);
    withGlyph.click();
    EXPECT_EQ(heard.interactive, 1) << "a disabled button takes no press";

    // A supplier with one picture for every state: a disabled button greys it.
    const QIcon icon = Widget<QToolButton>(*supplied).icon();
    EXPECT_NE(icon.pixmap(2, QIcon::Disabled).toImage(), icon.pixmap(2, QIcon::Normal).toImage());
}

} // namespace
} // namespace igd::test
