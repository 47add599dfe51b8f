#pragma once
#include "fluxui/controls/UI_TextEdit.h"

namespace fluxui::controls {

// The numeric form of a text edit: its text is its number, clamped to the range, with a fixed
// count of decimal places.
class UI_NumberEdit : public UI_TextEdit {
public:
    UI_NumberEdit() = default;
    const char* UI_GetClassName() const override { return "UI_NumberEdit"; }

    void SetRange(double minValue, double maxValue);
    double GetMinValue() const { return min_; }
    double GetMaxValue() const { return max_; }
    void SetDecimalPlaces(int places);
    int GetDecimalPlaces() const { return decimalPlaces_; }

    // The text read as a number within the range; the minimum when it is no number.
    double GetNumber() const;
    void SetNumber(double number, bool notify);

private:
    Fnd::WString Format(double number) const;

    double min_ = 0.0;
    double max_ = 4294967295.0;
    int decimalPlaces_ = 0;
};

} // namespace fluxui::controls
