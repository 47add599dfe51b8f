#pragma once
#include <QLineEdit>

#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd::qt {

// A one-line field. Each keystroke is the person typing (the interactive notification); Return,
// Escape and leaving the field end the edit through the toolkit, as its keyboard handling says.
class TextEditBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override;
    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override;

protected:
    // What a kind of field adds to the plain one.
    virtual void Configure(fluxui::controls::UI_TextEdit& model, QLineEdit& edit) const {}
    virtual Qt::Alignment DefaultAlignment() const { return Qt::AlignLeft | Qt::AlignVCenter; }
};

} // namespace igd::qt
