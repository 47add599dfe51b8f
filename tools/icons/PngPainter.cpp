#include "PngPainter.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>

namespace icons {
namespace {

QPointF ToQt(Point point) {
    return {point.x, point.y};
}

struct ShapePainter {
    QPainter& painter;
    QColor colour;

    void SetFilled(bool filled) const { painter.setBrush(filled ? QBrush(colour) : QBrush(Qt::NoBrush)); }

    void operator()(const Line& line) const { painter.drawLine(ToQt(line.from), ToQt(line.to)); }
    void operator()(const Polyline& polyline) const {
        QPolygonF polygon;
        for (const Point& point : polyline.points)
            polygon << ToQt(point);
        SetFilled(polyline.filled);
        if (polyline.closed)
            painter.drawPolygon(polygon);
        else
            painter.drawPolyline(polygon);
    }
    void operator()(const Circle& circle) const {
        SetFilled(circle.filled);
        painter.drawEllipse(ToQt(circle.centre), circle.radius, circle.radius);
    }
    void operator()(const Arc& arc) const {
        // Qt counts angles counter-clockwise; the shapes count them clockwise on screen.
        const QRectF bounds(arc.centre.x - arc.radius, arc.centre.y - arc.radius, 2 * arc.radius,
                            2 * arc.radius);
        QPainterPath path;
        path.arcMoveTo(bounds, -arc.startDegrees);
        path.arcTo(bounds, -arc.startDegrees, -arc.sweepDegrees);
        SetFilled(false);
        painter.drawPath(path);
    }
    void operator()(const RoundedRect& rect) const {
        SetFilled(rect.filled);
        painter.drawRoundedRect(QRectF(rect.left, rect.top, rect.width, rect.height), rect.cornerRadius,
                                rect.cornerRadius);
    }
};

} // namespace

QImage PaintPng(const Glyph& glyph, int baseWidth, int baseHeight, double scale, int pixelWidth,
                int pixelHeight, double strokeWidth, const std::string& colour) {
    QImage image(pixelWidth, pixelHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QColor qtColour(QString::fromStdString(colour));
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.translate((pixelWidth - baseWidth * scale) / 2.0, (pixelHeight - baseHeight * scale) / 2.0);
        painter.scale(scale, scale);
        QPen pen(qtColour, strokeWidth);
        pen.setCapStyle(Qt::RoundCap);
        pen.setJoinStyle(Qt::RoundJoin);
        painter.setPen(pen);
        const ShapePainter shapePainter{painter, qtColour};
        for (const Shape& shape : glyph)
            std::visit(shapePainter, shape);
    }
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace icons
