#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

/// Takes the place of an hour's temperature if there is no reading.
inline constexpr double kNoReading = -1000;

inline constexpr int kHoursPerDay = 24;

/// A day of hourly temperatures and the scale that they are shown on, all in one unit.
struct DayTemps
{
    DayTemps();

    std::array<double, 25> TempArray = {}; ///< Of hours 0..23; the last entry is never set.
    double MaxTemp = 0;                    ///< Top of the scale.
    double MinTemp = 0;                    ///< Bottom of the scale.
};

/// The two ends of a day's readings.
struct DayExtremes
{
    double lowest = 0;
    double highest = 0;
};

/// Marks all 25 entries as having no reading.
void ClearReadings(DayTemps &day);

/// Stores the temperature of an hour, 0..23. Any other hour is ignored, 24 too: the entry after the
/// last hour is cleared with the others but never takes a reading.
void StoreReading(DayTemps &day, double temperature, qint16 hour);

/// Whether `temperature` is a reading: neither kNoReading nor infinite nor NaN.
[[nodiscard]] bool IsReading(double temperature);

/// Lowest and highest reading; nothing if there is none.
[[nodiscard]] std::optional<DayExtremes> FindExtremes(const DayTemps &day);

/// Top of the scale less its bottom; below 0 if the scale is upside down.
/// @throws std::overflow_error if that is not finite: the program's only exception, by which the
///         host of the graph learns that its scale is unusable.
[[nodiscard]] double ScaleRange(const DayTemps &day);
