#include <QRegularExpressionValidator>

#include "builders/BuilderSupport.h"
#include "builders/TextEditBuilder.h"
#include "fluxui/controls/UI_NumberEdit.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_NumberEdit;

// A field of digits, right-aligned as numbers are. The range is the model's to enforce: it
// clamps what it reads, so the field only keeps out what can never be a number.
class NumberEditBuilder : public TextEditBuilder {
protected:
    void Configure(fluxui::controls::UI_TextEdit& model, QLineEdit& edit) const override {
        const auto& number = NodeAs<UI_NumberEdit>(model);
        const QString sign = number.GetMinValue() < 0 ? QStringLiteral("-?") : QString();
        const QString fraction = number.GetDecimalPlaces() > 0
                                     ? QStringLiteral("([.,]\\d{0,%1})?").arg(number.GetDecimalPlaces())
                                     : QString();
        edit.setValidator(new QRegularExpressionValidator(
            QRegularExpression(sign + QStringLiteral("\\d*") + fraction), &edit));
    }
    Qt::Alignment DefaultAlignment() const override { return Qt::AlignRight | Qt::AlignVCenter; }
};

} // namespace

BuilderPtr MakeNumberEditBuilder() {
    return std::make_shared<NumberEditBuilder>();
}

} // namespace igd::qt
