#include "SvgWriter.h"

#include <cmath>
#include <cstdio>
#include <numbers>
#include <sstream>

namespace icons {
namespace {

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", std::abs(value) < 1e-9 ? 0.0 : value);
    return text;
}

std::string Points(const std::vector<Point>& points) {
    std::string text;
    for (const Point& point : points) {
        if (!text.empty())
            text += ' ';
        text += Number(point.x) + "," + Number(point.y);
    }
    return text;
}

Point OnCircle(Point centre, double radius, double degrees) {
    const double radians = degrees * std::numbers::pi / 180.0;
    return {centre.x + radius * std::cos(radians), centre.y + radius * std::sin(radians)};
}

struct ElementWriter {
    std::ostringstream& out;
    const std::string& colour;

    std::string Fill(bool filled) const { return filled ? " fill=\"" + colour + "\"" : ""; }

    void operator()(const Line& line) const {
        out << "<line x1=\"" << Number(line.from.x) << "\" y1=\"" << Number(line.from.y) << "\" x2=\""
            << Number(line.to.x) << "\" y2=\"" << Number(line.to.y) << "\"/>\n";
    }
    void operator()(const Polyline& polyline) const {
        out << (polyline.closed ? "<polygon" : "<polyline") << " points=\"" << Points(polyline.points) << "\""
            << Fill(polyline.filled) << "/>\n";
    }
    void operator()(const Circle& circle) const {
        out << "<circle cx=\"" << Number(circle.centre.x) << "\" cy=\"" << Number(circle.centre.y)
            << "\" r=\"" << Number(circle.radius) << "\"" << Fill(circle.filled) << "/>\n";
    }
    void operator()(const Arc& arc) const {
        const Point start = OnCircle(arc.centre, arc.radius, arc.startDegrees);
        const Point end = OnCircle(arc.centre, arc.radius, arc.startDegrees + arc.sweepDegrees);
        const int largeArc = std::abs(arc.sweepDegrees) > 180 ? 1 : 0;
        const int clockwise = arc.sweepDegrees > 0 ? 1 : 0;
        out << "<path d=\"M" << Number(start.x) << "," << Number(start.y) << " A" << Number(arc.radius) << ","
            << Number(arc.radius) << " 0 " << largeArc << " " << clockwise << " " << Number(end.x) << ","
            << Number(end.y) << "\"/>\n";
    }
    void operator()(const RoundedRect& rect) const {
        out << "<rect x=\"" << Number(rect.left) << "\" y=\"" << Number(rect.top) << "\" width=\""
            << Number(rect.width) << "\" height=\"" << Number(rect.height) << "\" rx=\""
            << Number(rect.cornerRadius) << "\"" << Fill(rect.filled) << "/>\n";
    }
};

} // namespace

std::string WriteSvg(const Glyph& glyph, int baseWidth, int baseHeight, double strokeWidth,
                     const std::string& colour) {
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << baseWidth * 2 << "\" height=\""
        << baseHeight * 2 << "\" viewBox=\"0 0 " << baseWidth << " " << baseHeight << "\">\n"
        << "<g fill=\"none\" stroke=\"" << colour << "\" stroke-width=\"" << Number(strokeWidth)
        << "\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    const ElementWriter writer{out, colour};
    for (const Shape& shape : glyph)
        std::visit(writer, shape);
    out << "</g>\n</svg>\n";
    return out.str();
}

} // namespace icons
