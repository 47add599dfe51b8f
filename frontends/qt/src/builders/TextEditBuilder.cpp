#include "builders/TextEditBuilder.h"

#include <QPalette>
#include <QSignalBlocker>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"

namespace igd::qt {

using fluxui::controls::UI_TextEdit;

QWidget* TextEditBuilder::Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const {
    auto* edit = new QLineEdit(parent);
    edit->setFocusPolicy(Qt::StrongFocus);
    Configure(NodeAs<UI_TextEdit>(node), *edit);
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [ref = fluxui::ui::UI_NodeRef(&node)](const QString& text) {
                         NodeAs<UI_TextEdit>(*ref).TypeText(FromQString(text));
                     });
    return edit;
}

void TextEditBuilder::Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const {
    const UI_TextEdit& model = NodeAs<UI_TextEdit>(node);
    auto& edit = static_cast<QLineEdit&>(widget);
    const QSignalBlocker blocker(edit);
    // An unknown value shows its unknown-state text as a placeholder: greyed, and gone the
    // moment the person starts typing, which is what the model expects of it.
    const QString placeholder = model.IsValueUnknown() ? ToQString(model.GetUnknownStateText()) : QString();
    if (edit.placeholderText() != placeholder)
        edit.setPlaceholderText(placeholder);
    const QString text = model.IsValueUnknown() ? QString() : ToQString(model.GetValue());
    // Set only when it differs, so that the cursor stays where the person is typing.
    if (edit.text() != text)
        edit.setText(text);
    edit.setAlignment(ToQtAlignment(model.GetAlignment(), DefaultAlignment()));
    QPalette palette = edit.parentWidget() ? edit.parentWidget()->palette() : edit.palette();
    if (const auto& color = model.GetCustomTextColor())
        palette.setColor(QPalette::Text, ToQColor(*color));
    edit.setPalette(palette);
    ApplyFontSize(edit, model);
}

BuilderPtr MakeTextEditBuilder() {
    return std::make_shared<TextEditBuilder>();
}

} // namespace igd::qt
