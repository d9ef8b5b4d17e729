#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// Relative luminance of a colour, 0 (black) to 1 (white).
inline double Luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
         + 0.0722 * linear(color.blueF());
}

/// Contrast ratio of two colours, 1 to 21. Texts need 4.5, shapes 3.
inline double ContrastRatio(const QColor &one, const QColor &other)
{
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}
