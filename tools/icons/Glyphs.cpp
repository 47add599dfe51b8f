#include "Glyphs.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace icons {
namespace {

// Each glyph sits on half-unit positions so that its strokes fall on whole pixels at 2x and
// stay balanced at 1x.

Glyph Add() { // 16 x 16
    return {Line{{8, 3}, {8, 13}}, Line{{3, 8}, {13, 8}}};
}

Glyph AddWithMenu() { // 18 x 18: a plus that opens a menu, hence the small triangle
    return {Line{{7, 2.5}, {7, 12.5}}, Line{{2, 7.5}, {12, 7.5}},
            Polyline{{{12.5, 12.5}, {16.5, 12.5}, {14.5, 15}}, true, true}};
}

Glyph Alert() { // 16 x 16
    return {Polyline{{{8, 1.75}, {14.75, 14}, {1.25, 14}}, true, false}, Line{{8, 6}, {8, 9.5}},
            Circle{{8, 11.75}, 0.6, true}};
}

Glyph Close() { // 13 x 13
    return {Line{{3.5, 3.5}, {9.5, 9.5}}, Line{{9.5, 3.5}, {3.5, 9.5}}};
}

Glyph Delete() { // 20 x 13: a minus in a pill, the shape of a removable row's button
    return {RoundedRect{1.75, 1.75, 16.5, 9.5, 4.75, false}, Line{{6.5, 6.5}, {13.5, 6.5}}};
}

Glyph Power() { // 16 x 16: the gap of the ring faces up, where the bar stands
    return {Arc{{8, 8.75}, 5.5, -50, 280}, Line{{8, 2}, {8, 8}}};
}

double HalfUnit(double value) {
    return std::round(value * 2) / 2;
}

Glyph DiskOutline(double left, double top, double size) {
    const double right = left + size;
    const double bottom = top + size;
    const double corner = HalfUnit(size * 0.25);
    const double shutterLeft = HalfUnit(left + size * 0.27);
    const double shutterRight = HalfUnit(right - size * 0.36);
    const double shutterBottom = HalfUnit(top + size * 0.33);
    return {
        Polyline{{{left, top}, {right - corner, top}, {right, top + corner}, {right, bottom}, {left, bottom}},
                 true,
                 false},
        Polyline{{{shutterLeft, top},
                  {shutterLeft, shutterBottom},
                  {shutterRight, shutterBottom},
                  {shutterRight, top}},
                 false,
                 false}};
}

Glyph Save() { // 20 x 20
    return DiskOutline(3, 3, 14);
}

Glyph SaveAs() { // 20 x 20: the disk of Save, smaller, with a plus for the new name
    Glyph glyph = DiskOutline(2, 2, 11);
    glyph.push_back(Line{{16, 12.5}, {16, 18.5}});
    glyph.push_back(Line{{13, 15.5}, {19, 15.5}});
    return glyph;
}

Glyph SortUp() { // 14 x 8
    return {Polyline{{{3, 6}, {7, 2}, {11, 6}}, false, false}};
}

Glyph SortDown() { // 14 x 8
    return {Polyline{{{3, 2}, {7, 6}, {11, 2}}, false, false}};
}

} // namespace

Glyph GlyphForFamily(std::string_view family) {
    if (family == "ADD")
        return Add();
    if (family == "ADDTRI")
        return AddWithMenu();
    if (family == "ALERT")
        return Alert();
    if (family == "CLOSE")
        return Close();
    if (family == "DELETE")
        return Delete();
    if (family == "POWER")
        return Power();
    if (family == "SAVE")
        return Save();
    if (family == "SAVEAS")
        return SaveAs();
    if (family == "SORTUP")
        return SortUp();
    if (family == "SORTDOWN")
        return SortDown();
    throw std::invalid_argument("no glyph for the family " + std::string(family));
}

} // namespace icons
