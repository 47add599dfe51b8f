#include <QToolButton>

#include "IgdQt/NodePresenter.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_PictureButton.h"

namespace igd::qt {
namespace {

using fluxui::controls::PictureState;
using fluxui::controls::UI_PictureButton;

// Without a picture a button still has to say what it does: a glyph chosen by its id.
QString GlyphFor(const std::string& id) {
    const auto has = [&id](const char* word) { return id.find(word) != std::string::npos; };
    if (has("Up"))
        return QStringLiteral("\u25B2");
    if (has("Down"))
        return QStringLiteral("\u25BC");
    if (has("Remove") || has("Delete") || has("Close"))
        return QStringLiteral("\u2715");
    if (has("Cancel"))
        return QStringLiteral("\u21B6");
    if (has("SaveAs"))
        return QStringLiteral("\u2026");
    if (has("Save"))
        return QStringLiteral("\u2713");
    return QStringLiteral("+");
}

class PictureButtonBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* button = new QToolButton(parent);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setFocusPolicy(Qt::StrongFocus);
        QObject::connect(button, &QToolButton::clicked, button,
                         [ref = fluxui::ui::UI_NodeRef(&node)] { NodeAs<UI_PictureButton>(*ref).Press(); });
        return button;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_PictureButton& model = NodeAs<UI_PictureButton>(node);
        auto& button = static_cast<QToolButton&>(widget);
        button.setAutoRaise(!model.DisplaysBorderAlways());
        const qreal ratio = button.devicePixelRatioF();
        const PictureSource& pictures = presenter.Pictures();
        const auto normalMessage = model.GetPictureMessage(PictureState::Normal, static_cast<float>(ratio));
        QPixmap normal = pictures.Find(normalMessage, ratio);
        if (normal.isNull())
            normal = pictures.Find(model.GetImageName(), ratio);
        if (normal.isNull()) {
            button.setIcon({});
            button.setText(GlyphFor(model.UI_GetNodeID()));
        } else {
            QIcon icon(normal);
            // A dimmed picture of its own, when the supplier has one, instead of Qt's greying; a
            // supplier that hands out one picture for every state leaves the greying to Qt.
            const auto disabledMessage =
                model.GetPictureMessage(PictureState::Disabled, static_cast<float>(ratio));
            if (disabledMessage.resourceName != normalMessage.resourceName ||
                disabledMessage.imageName != normalMessage.imageName) {
                const QPixmap disabled = pictures.Find(disabledMessage, ratio);
                if (!disabled.isNull())
                    icon.addPixmap(disabled, QIcon::Disabled);
            }
            button.setIcon(icon);
            button.setIconSize(normal.deviceIndependentSize().toSize());
            button.setText({});
        }
        ApplyFontSize(button, model);
    }
};

} // namespace

BuilderPtr MakePictureButtonBuilder() {
    return std::make_shared<PictureButtonBuilder>();
}

} // namespace igd::qt
