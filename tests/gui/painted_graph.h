#pragma once

#include "graph/weather_graph.h"
#include "gui/contrast.h"

#include <QImage>
#include <QPalette>

#include <algorithm>

inline constexpr QSize kGraphSize(560, 300);
inline constexpr QRgb kCurve = qRgb(214, 122, 0); // on a light background

/// Readings of all hours from 50 at midnight to 73 at 11 PM, on a scale from 40 to 80.
inline void FillDay(WeatherGraph &graph)
{
    graph.resize(kGraphSize);
    graph.MinTemp(40);
    graph.MaxTemp(80);
    for (qint16 hour = 0; hour < 24; ++hour)
        graph.TempArray(50 + hour, hour);
}

inline QPalette PaletteOf(bool dark)
{
    QPalette palette(dark ? QColor(49, 54, 59) : QColor(239, 240, 241));
    palette.setColor(QPalette::Base, dark ? QColor(35, 38, 41) : QColor(255, 255, 255));
    palette.setColor(QPalette::Text, dark ? QColor(239, 240, 241) : QColor(0, 0, 0));
    return palette;
}

/// The graph as a screen with `ratio` pixels to a logical one shows it.
inline QImage Painted(WeatherGraph &graph, double ratio = 1)
{
    static_cast<void>(graph.grab()); // lays the control out, as showing it does
    QImage image((QSizeF(graph.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta); // for what is left unpainted
    graph.render(&image);
    return image;
}

inline bool HasColor(const QImage &image, const QRect &area, QRgb color)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixel(x, y) == color)
                return true;
        }
    }
    return false;
}

/// The best contrast to `ground` that any pixel of `area` has: that of a text's strokes.
inline double BestContrast(const QImage &image, const QRectF &area, const QColor &ground)
{
    double best = 1;
    const QRect pixels = area.toAlignedRect() & image.rect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            best = std::max(best, ContrastRatio(image.pixelColor(x, y), ground));
    }
    return best;
}

inline qsizetype MarkersInSight(const WeatherGraph &graph)
{
    const auto &markers = graph.Elements().cirTemp;
    return std::count_if(markers.begin(), markers.end(),
                         [](const GraphCircle &marker) { return marker.visible; });
}
