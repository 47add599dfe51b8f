#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

#include "IgdQt/NodePresenter.h"
#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_PicturePopup.h"

namespace igd::qt {
namespace {

using fluxui::controls::PictureState;
using fluxui::controls::UI_PicturePopup;

// A picture that opens the list of items: the person chooses from the menu, the model decides.
class PicturePopupBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* button = new QToolButton(parent);
        button->setAutoRaise(true);
        button->setPopupMode(QToolButton::InstantPopup);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setFocusPolicy(Qt::StrongFocus);
        auto* menu = new QMenu(button);
        button->setMenu(menu);
        QObject::connect(menu, &QMenu::triggered, button,
                         [this, button, &presenter, ref = fluxui::ui::UI_NodeRef(&node)](QAction* action) {
                             NodeAs<UI_PicturePopup>(*ref).ChooseByUser(action->data().toInt());
                             Sync(*ref, *button, presenter);
                         });
        return button;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_PicturePopup& model = NodeAs<UI_PicturePopup>(node);
        auto& button = static_cast<QToolButton&>(widget);
        const QSignalBlocker blocker(button);
        QMenu* menu = button.menu();
        menu->clear();
        const auto& items = model.GetItems();
        for (std::size_t i = 0; i < items.size(); ++i) {
            QAction* action = menu->addAction(ToQString(items[i].text));
            action->setData(static_cast<int>(i));
            action->setEnabled(!items[i].disabled);
            action->setCheckable(true);
            action->setChecked(!model.IsValueUnknown() && model.GetValue() == static_cast<int>(i));
        }
        const QPixmap picture = presenter.Pictures().Find(
            model.GetPictureMessage(PictureState::Normal, static_cast<float>(button.devicePixelRatioF())),
            button.devicePixelRatioF());
        if (!picture.isNull()) {
            button.setIcon(QIcon(picture));
            button.setIconSize(picture.deviceIndependentSize().toSize());
            button.setText({});
        } else {
            button.setIcon({});
            button.setText(QStringLiteral("+"));
        }
        ApplyFontSize(button, model);
    }
};

} // namespace

BuilderPtr MakePicturePopupBuilder() {
    return std::make_shared<PicturePopupBuilder>();
}

} // namespace igd::qt
