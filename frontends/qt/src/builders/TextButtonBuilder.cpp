#include <QPointer>
#include <QPushButton>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_TextButton.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_TextButton;

class TextButtonBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* button = new QPushButton(parent);
        button->setFocusPolicy(Qt::StrongFocus);
        // Return belongs to the toolkit's dialog, which presses its own default button; a Qt
        // dialog around the tree must not press another.
        button->setAutoDefault(false);
        QObject::connect(button, &QPushButton::clicked, button,
                         [ref = fluxui::ui::UI_NodeRef(&node), widget = QPointer<QPushButton>(button)] {
                             NodeAs<UI_TextButton>(*ref).Press();
                             // A click toggles a checkable button by itself; the model says whether
                             // it stays down (a mode button pressed again stays on).
                             if (widget)
                                 widget->setChecked(NodeAs<UI_TextButton>(*ref).IsDownState());
                         });
        return button;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_TextButton& model = NodeAs<UI_TextButton>(node);
        auto& button = static_cast<QPushButton&>(widget);
        button.setText(ToQString(model.GetText()));
        // The default look only: which button Return presses is the toolkit's decision.
        button.setDefault(model.HasDefaultAppearance());
        button.setFlat(false);
        // A button shown held down (the mode a pair of buttons switches between) stays pressed in.
        if (model.IsDownState())
            button.setCheckable(true);
        button.setChecked(model.IsDownState());
        ApplyFontSize(button, model);
    }
};

} // namespace

BuilderPtr MakeTextButtonBuilder() {
    return std::make_shared<TextButtonBuilder>();
}

} // namespace igd::qt
