#include <QLabel>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_StaticText.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_StaticText;

// Layouts were measured with another face than the one a desktop draws with: a one-line label a
// little too narrow for its text is drawn condensed rather than cut off.
class FittingLabel : public QLabel {
public:
    using QLabel::QLabel;

    void Fit() {
        QFont font = this->font();
        font.setStretch(QFont::AnyStretch);
        if (!wordWrap() && !text().isEmpty()) {
            const int room = contentsRect().width();
            for (int stretch = 95;
                 stretch >= kNarrowest && QFontMetrics(font).horizontalAdvance(text()) > room; stretch -= 5)
                font.setStretch(stretch);
        }
        if (font != this->font())
            setFont(font);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        Fit();
    }

private:
    // Narrower is hard to read; such a label is cut off as it stands.
    static constexpr int kNarrowest = 80;
};

class StaticTextBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* label = new FittingLabel(parent);
        // Paths and names are shown as they are, never read as markup.
        label->setTextFormat(Qt::PlainText);
        return label;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_StaticText& model = NodeAs<UI_StaticText>(node);
        auto& label = static_cast<FittingLabel&>(widget);
        label.setText(ToQString(model.GetValue()));
        label.setWordWrap(model.IsMultiLine());
        label.setAlignment(ToQtAlignment(model.GetAlignment(), model.IsMultiLine()
                                                                   ? Qt::AlignLeft | Qt::AlignTop
                                                                   : Qt::AlignLeft | Qt::AlignVCenter));
        ApplyFontSize(label, model);
        label.Fit();
    }
};

} // namespace

BuilderPtr MakeStaticTextBuilder() {
    return std::make_shared<StaticTextBuilder>();
}

} // namespace igd::qt
