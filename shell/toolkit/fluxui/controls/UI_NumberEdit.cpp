#include "fluxui/controls/UI_NumberEdit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace fluxui::controls {

void UI_NumberEdit::SetRange(double minValue, double maxValue) {
    if (minValue > maxValue)
        throw std::invalid_argument("UI_NumberEdit: the minimum is above the maximum");
    min_ = minValue;
    max_ = maxValue;
}

void UI_NumberEdit::SetDecimalPlaces(int places) {
    decimalPlaces_ = std::clamp(places, 0, 9);
}

double UI_NumberEdit::GetNumber() const {
    const std::string text = Fnd::ToUTF8(GetValue());
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (text.empty() || end == text.c_str() || !std::isfinite(number))
        return min_;
    return std::clamp(number, min_, max_);
}

void UI_NumberEdit::SetNumber(double number, bool notify) {
    SetValue(Format(std::clamp(number, min_, max_)), notify);
}

Fnd::WString UI_NumberEdit::Format(double number) const {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimalPlaces_, number);
    return Fnd::FromASCII(buffer);
}

} // namespace fluxui::controls
