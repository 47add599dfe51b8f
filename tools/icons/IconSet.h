#pragma once
// Which files make the icon set: every family in its size class and states, as PNG at each
// scale and as the SVG masters.
#include <string>
#include <vector>

namespace icons {

struct ImageFile {
    std::string fileName; // the resource name and the extension
    std::string family;
    std::string state; // "N", "N_D", "S_D", ...
    double scale = 1;  // of the base size; SVGs are drawn for 2x
    int baseWidth = 0;
    int baseHeight = 0;
    int pixelWidth = 0;
    int pixelHeight = 0;
    double strokeWidth = 0; // in base units, one per size class
    bool svg = false;
};

std::vector<ImageFile> IconSetFiles();

// The colour a state is drawn in, as #RRGGBB.
std::string ColourForState(const std::string& state);

} // namespace icons
