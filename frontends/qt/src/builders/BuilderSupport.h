#pragma once
// What several builders share: the node's look in Qt terms.
#include <QColor>
#include <QFont>
#include <QWidget>
#include <stdexcept>
#include <string>

#include "fluxui/controls/TextAlignment.h"
#include "fluxui/controls/UI_ControlView.h"
#include "fluxui/sketcher/Sketcher.h"

namespace igd::qt {

// The node as the class its builder was registered for; the registry's matcher guarantees it.
template <typename T> T& NodeAs(fluxui::ui::UI_Node& node) {
    auto* typed = dynamic_cast<T*>(&node);
    if (!typed)
        throw std::logic_error(std::string("igd::qt: a builder got a node of class ") +
                               node.UI_GetClassName());
    return *typed;
}

inline Qt::Alignment ToQtAlignment(fluxui::controls::TextAlignment alignment, Qt::Alignment byDefault) {
    switch (alignment) {
    case fluxui::controls::TextAlignment::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case fluxui::controls::TextAlignment::Center:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case fluxui::controls::TextAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case fluxui::controls::TextAlignment::Default:
        break;
    }
    return byDefault;
}

inline QColor ToQColor(const fluxui::sketcher::ColorRGBA& color) {
    return QColor::fromRgbF(color.red, color.green, color.blue, color.alpha);
}

// A control's own font size, in points; 0 keeps the dialog's font.
inline void ApplyFontSize(QWidget& widget, const fluxui::controls::UI_ControlView& control) {
    QFont font = widget.parentWidget() ? widget.parentWidget()->font() : widget.font();
    if (control.GetFontSize() > 0.0f)
        font.setPointSizeF(control.GetFontSize());
    if (font != widget.font())
        widget.setFont(font);
}

} // namespace igd::qt
