#include "IconSet.h"

#include <cmath>
#include <stdexcept>

namespace icons {
namespace {

struct Family {
    const char* name;
    const char* sizeClass;
    int width;
    int height;
    std::vector<std::string> states;
};

// Every family has the dimmed normal look; the selected look exists where a button can show an
// on or active state; ALERT is a status sign and CLOSE only ever dismisses, so neither has one.
const std::vector<Family>& Families() {
    static const std::vector<Family> families = {
        {"ADD", "SM", 16, 16, {"N", "N_D", "S_D"}}, {"ADDTRI", "MD", 18, 18, {"N_D", "S_D"}},
        {"ALERT", "SM", 16, 16, {"N_D"}},           {"CLOSE", "XS", 13, 13, {"N", "N_D"}},
        {"DELETE", "WI", 20, 13, {"N_D", "S_D"}},   {"POWER", "SM", 16, 16, {"N_D", "S_D"}},
        {"SAVEAS", "MD", 20, 20, {"N_D", "S_D"}},   {"SORTDOWN", "XS", 14, 8, {"N_D", "S_D"}},
        {"SORTUP", "XS", 14, 8, {"N_D", "S_D"}},
    };
    return families;
}

struct Scale {
    double factor;
    const char* suffix;
};

const Scale kScales[] = {{1.0, ""}, {1.5, "_AT_3TO2X"}, {2.0, "_AT_2X"}};

// Small glyphs get a lighter line so that they do not close up.
double StrokeWidthForSizeClass(const std::string& sizeClass) {
    return sizeClass == "XS" ? 1.25 : 1.5;
}

ImageFile MakeFile(const std::string& family, const std::string& sizeClass, int width, int height,
                   const std::string& state, const Scale& scale, bool svg) {
    ImageFile file;
    const std::string stem = family + "_" + sizeClass + "_" + state + scale.suffix;
    file.fileName = svg ? "S_" + stem + ".svg" : "SP_" + stem + ".png";
    file.family = family;
    file.state = state;
    file.scale = scale.factor;
    file.baseWidth = width;
    file.baseHeight = height;
    file.pixelWidth = static_cast<int>(std::ceil(width * scale.factor));
    file.pixelHeight = static_cast<int>(std::ceil(height * scale.factor));
    file.strokeWidth = StrokeWidthForSizeClass(sizeClass);
    file.svg = svg;
    return file;
}

// Vector masters of each family's resting looks (N and N_D) and of the power switch's on state,
// which the dialog also shows at rest; pressed looks are raster only.
bool HasSvgMaster(const std::string& family, const std::string& state) {
    return state == "N_D" || state == "N" || (family == "POWER" && state == "S_D");
}

} // namespace

std::vector<ImageFile> IconSetFiles() {
    std::vector<ImageFile> files;
    for (const Family& family : Families()) {
        for (const std::string& state : family.states) {
            for (const Scale& scale : kScales) {
                // The plain plus is only drawn bare in small places; it has no in-between scale.
                if (std::string(family.name) == "ADD" && state == "N" && scale.factor == 1.5)
                    continue;
                files.push_back(MakeFile(family.name, family.sizeClass, family.width, family.height, state,
                                         scale, false));
            }
            if (HasSvgMaster(family.name, state))
                files.push_back(MakeFile(family.name, family.sizeClass, family.width, family.height, state,
                                         kScales[2], true));
        }
    }
    // Vector-only members: the Save disk and the full-strength power-on look.
    files.push_back(MakeFile("SAVE", "MD", 20, 20, "N_D", kScales[2], true));
    files.push_back(MakeFile("POWER", "SM", 16, 16, "S_N", kScales[2], true));
    return files;
}

std::string ColourForState(const std::string& state) {
    // N: a neutral grey that reads on light and mid-grey panels. S: the highlight. _D: the same
    // hue dimmed, the quiet look a button face shows at rest.
    if (state == "N")
        return "#5A5A5A";
    if (state == "N_D")
        return "#8A8A8A";
    if (state == "S_N")
        return "#1473E6";
    if (state == "S_D")
        return "#5B9BE8";
    throw std::invalid_argument("no colour for the state " + state);
}

} // namespace icons
