#include "controls/muted_color.h"

#include "controls/mixed_color.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastContrast = 4.5; // as the accessibility guidelines require
constexpr double kStep = 0.1;

/// The share of one colour channel in the perceived brightness.
double Linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor &color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF())
         + 0.0722 * Linear(color.blueF());
}

} // namespace

double Contrast(const QColor &text, const QColor &background)
{
    const auto [darker, lighter] = std::minmax({Luminance(text), Luminance(background)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor MutedColor(const QPalette &palette, QPalette::ColorRole text, QPalette::ColorRole background)
{
    const QColor full = palette.color(text);
    const QColor behind = palette.color(background);
    const QColor placeholder = palette.color(QPalette::PlaceholderText);
    const QColor wanted = Mixed(placeholder, behind, double(placeholder.alphaF()));
    QColor muted = wanted;
    for (double share = 0; share < 1 && Contrast(muted, behind) < kLeastContrast; share += kStep)
        muted = Mixed(full, wanted, std::min(share + kStep, 1.0));
    return muted;
}
