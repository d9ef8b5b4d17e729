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

/// The scale that `day` is drawn on. One that is upside down is drawn upright. Equal limits, as
/// they are before anybody sets them, are replaced by the extremes of the readings, or if these
/// are no help, by one degree on either side.
/// @return nothing if the limits are beyond what can be drawn.
[[nodiscard]] std::optional<TempScale> DrawnScale(const DayTemps &day);

/// Position of an hour, 0..24, across `plot`: 0 is its left edge, 24 its right edge.
[[nodiscard]] double XOfHour(const QRectF &plot, int hour);

/// Position of a temperature along the height of `plot`, from the lower to the upper edge. A
/// temperature off the scale is outside `plot`, by at most a hundred times its height.
[[nodiscard]] double YOfTemp(const QRectF &plot, const TempScale &scale, double temperature);

/// Whether a temperature is on the scale, including its ends.
[[nodiscard]] bool IsOnScale(const TempScale &scale, double temperature);

/// The temperature of guide line `index`, 0 (bottom) to kTempLabels - 1 (top).
[[nodiscard]] double LabelTemp(const TempScale &scale, int index);

/// Decimals that the labels of a scale need: 0 if all of them are whole numbers, otherwise one, and
/// more if two labels would look alike.
[[nodiscard]] int LabelDecimals(const TempScale &scale);

/// "71.6" and the degree sign; from a million on in exponent form, which an ellipsis cannot turn
/// into another number.
[[nodiscard]] QString DegreesText(double temperature, int decimals);

/// "12 AM", "3 AM", ... of an hour 0..23.
[[nodiscard]] QString HourText(int hour);

/// Hours from one labelled hour to the next: 3, 6 or 12, so that texts of `textWidth` stay apart;
/// 24 (only the first) if they would not. `hourWidth` is the width of one hour.
[[nodiscard]] int HourStep(double hourWidth, double textWidth);

/// Which guide lines are labelled so that texts of `textHeight` stay apart: every one (1), every
/// second (2), the first and the last (4), or none (0).
[[nodiscard]] int LabelStep(double plotHeight, double textHeight);
