#include <QLabel>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_StaticText.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_StaticText;

class StaticTextBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* label = new QLabel(parent);
        // Paths and names are shown as they are, never read as markup.
        label->setTextFormat(Qt::PlainText);
        return label;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_StaticText& model = NodeAs<UI_StaticText>(node);
        auto& label = static_cast<QLabel&>(widget);
        label.setText(ToQString(model.GetValue()));
        label.setWordWrap(model.IsMultiLine());
        label.setAlignment(ToQtAlignment(model.GetAlignment(), model.IsMultiLine()
                                                                   ? Qt::AlignLeft | Qt::AlignTop
                                                                   : Qt::AlignLeft | Qt::AlignVCenter));
        ApplyFontSize(label, model);
    }
};

} // namespace

BuilderPtr MakeStaticTextBuilder() {
    return std::make_shared<StaticTextBuilder>();
}

} // namespace igd::qt
