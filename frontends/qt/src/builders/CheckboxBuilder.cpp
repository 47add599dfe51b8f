#include <QCheckBox>
#include <QSignalBlocker>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_Checkbox.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_Checkbox;

class CheckboxBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* box = new QCheckBox(parent);
        box->setFocusPolicy(Qt::StrongFocus);
        // The model decides the new state (a mixed box becomes checked); the widget then shows
        // whatever the model holds, also when the model refused the click.
        QObject::connect(box, &QCheckBox::clicked, box,
                         [this, box, &presenter, ref = fluxui::ui::UI_NodeRef(&node)](bool) {
                             NodeAs<UI_Checkbox>(*ref).Press();
                             Sync(*ref, *box, presenter);
                         });
        return box;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_Checkbox& model = NodeAs<UI_Checkbox>(node);
        auto& box = static_cast<QCheckBox&>(widget);
        const QSignalBlocker blocker(box);
        box.setText(ToQString(model.GetText()));
        box.setTristate(model.IsValueUnknown());
        box.setCheckState(model.IsValueUnknown() ? Qt::PartiallyChecked
                          : model.IsChecked()    ? Qt::Checked
                                                 : Qt::Unchecked);
        ApplyFontSize(box, model);
    }
};

} // namespace

BuilderPtr MakeCheckboxBuilder() {
    return std::make_shared<CheckboxBuilder>();
}

} // namespace igd::qt
