#pragma once

#include "graph/day_temps.h"

#include <QRectF>
#include <QString>

#include <optional>

/// Number of the guide lines, each with its label: at the bottom of the scale, at the top, and at
/// equal distances between them.
inline constexpr int kTempLabels = 5;

/// The temperatures at the lower and the upper edge of the drawing; `bottom` < `top`.
struct TempScale
{
    double bottom = 0;
    double top = 0;
};

/// The scale that `day` is drawn on. One that is upside down is drawn upright. Limits that are
/// equal, as they are before anybody sets them, give way to the extremes of the readings, or
/// reach one degree to either side when these are no help.
/// @return nothing when the limits are beyond what can be drawn.
[[nodiscard]] std::optional<TempScale> DrawnScale(const DayTemps &day);

/// Place of an hour, 0..24, across `plot`: 0 is its left edge, 24 its right one.
[[nodiscard]] double XOfHour(const QRectF &plot, int hour);

/// Place of a temperature along the height of `plot`, from the lower to the upper edge. What is
/// off the scale lies outside of `plot`, at most a hundred times its height.
[[nodiscard]] double YOfTemp(const QRectF &plot, const TempScale &scale, double temperature);

/// Whether a temperature lies on the scale, its ends included.
[[nodiscard]] bool IsOnScale(const TempScale &scale, double temperature);

/// The temperature of guide line `index`, 0 (bottom) to kTempLabels - 1 (top).
[[nodiscard]] double LabelTemp(const TempScale &scale, int index);

/// Decimals that the labels of a scale need: 0 when all of them are whole numbers, else one, and
/// more where two labels would look alike.
[[nodiscard]] int LabelDecimals(const TempScale &scale);

/// "71.6" and the degree sign; from a million on in exponent form, which no elision can falsify.
[[nodiscard]] QString DegreesText(double temperature, int decimals);

/// "12 AM", "3 AM", ... of an hour 0..23.
[[nodiscard]] QString HourText(int hour);

/// How many hours lie between two hours that are named: 3, 6 or 12, so that texts of `textWidth`
/// stay apart; 24 (the first one alone) where they would not. `hourWidth` is that of one hour.
[[nodiscard]] int HourStep(double hourWidth, double textWidth);

/// Which guide lines are labelled so that texts of `textHeight` stay apart: each (1), every
/// second (2), the first and the last (4), or none (0).
[[nodiscard]] int LabelStep(double plotHeight, double textHeight);
