#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_Popup.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_Popup;

// A combo box that lets the wheel scroll the page around it unless the popup allows mouse
// scrolling and has the focus: turning the wheel over a form must not change its settings.
//
// Too narrow for any text, it is a menu button: it draws only its arrow, and its list (which Qt
// opens as wide as its rows need) reads as the menu of that button.
class PopupWidget : public QComboBox {
public:
    using QComboBox::QComboBox;
    bool allowWheel = true;

    bool IsArrowOnly() const {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect field =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        return field.width() < fontMetrics().horizontalAdvance(QLatin1Char('M'));
    }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (allowWheel && hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }

    void paintEvent(QPaintEvent* event) override {
        if (!IsArrowOnly()) {
            QComboBox::paintEvent(event);
            return;
        }
        QStylePainter painter(this);
        QStyleOptionButton button;
        button.initFrom(this);
        if (view()->isVisible())
            button.state |= QStyle::State_Sunken;
        else
            button.state |= QStyle::State_Raised;
        painter.drawPrimitive(QStyle::PE_PanelButtonCommand, button);
        QStyleOption arrow;
        arrow.initFrom(this);
        const int side = std::max(5, std::min(width(), height()) / 2);
        arrow.rect = QRect(0, 0, side, side);
        arrow.rect.moveCenter(rect().center());
        painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, arrow);
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = rect().adjusted(2, 2, -2, -2);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }
};

class PopupBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* combo = new PopupWidget(parent);
        combo->setFocusPolicy(Qt::StrongFocus);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QObject::connect(combo, &QComboBox::activated, combo,
                         [this, combo, &presenter, ref = fluxui::ui::UI_NodeRef(&node)](int index) {
                             NodeAs<UI_Popup>(*ref).ChooseByUser(index);
                             Sync(*ref, *combo, presenter);
                         });
        return combo;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_Popup& model = NodeAs<UI_Popup>(node);
        auto& combo = static_cast<PopupWidget&>(widget);
        const QSignalBlocker blocker(combo);
        SyncItems(model, combo);
        combo.setCurrentIndex(model.IsValueUnknown() ? -1 : model.GetValue());
        combo.allowWheel = model.GetAllowMouseScroll();
        ApplyFontSize(combo, model);
    }

private:
    // Rebuilt only when the list differs, so that an open list is not torn down by a value change.
    // An item without text is a separator: drawn as a line, never chosen, and still counted, so
    // that item numbers stay those of the model.
    static void SyncItems(const UI_Popup& model, QComboBox& combo) {
        const auto& items = model.GetItems();
        bool same = combo.count() == static_cast<int>(items.size());
        for (int i = 0; same && i < combo.count(); ++i)
            same = combo.itemText(i) == ToQString(items[static_cast<std::size_t>(i)].text);
        if (!same) {
            combo.clear();
            for (const UI_Popup::Item& item : items) {
                if (item.text.empty())
                    combo.insertSeparator(combo.count());
                else
                    combo.addItem(ToQString(item.text));
            }
        }
        if (auto* list = qobject_cast<QStandardItemModel*>(combo.model()))
            for (int i = 0; i < combo.count(); ++i) {
                const UI_Popup::Item& item = items[static_cast<std::size_t>(i)];
                if (!item.text.empty())
                    list->item(i)->setEnabled(!item.disabled);
            }
    }
};

} // namespace

BuilderPtr MakePopupBuilder() {
    return std::make_shared<PopupBuilder>();
}

} // namespace igd::qt
