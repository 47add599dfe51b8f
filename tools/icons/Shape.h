#pragma once
// The vocabulary every glyph is described in. Coordinates are in units of the image's base (1x)
// pixel grid, y pointing down, so one description serves the SVG and every PNG scale.
#include <variant>
#include <vector>

namespace icons {

struct Point {
    double x = 0;
    double y = 0;
};

struct Line {
    Point from;
    Point to;
};

// An open polyline, or a polygon when closed; a filled one is also stroked, so that it has the
// same rounded outline as its stroked neighbours.
struct Polyline {
    std::vector<Point> points;
    bool closed = false;
    bool filled = false;
};

struct Circle {
    Point centre;
    double radius = 0;
    bool filled = false;
};

// Angles in degrees, clockwise on screen from the positive x axis.
struct Arc {
    Point centre;
    double radius = 0;
    double startDegrees = 0;
    double sweepDegrees = 0;
};

struct RoundedRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    double cornerRadius = 0;
    bool filled = false;
};

using Shape = std::variant<Line, Polyline, Circle, Arc, RoundedRect>;
using Glyph = std::vector<Shape>;

} // namespace icons
