#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

/// Stands in the place of an hour's temperature when there is no reading of it.
inline constexpr double kNoReading = -1000;

/// A day of hourly temperatures and the scale they are shown on, all in one unit.
struct DayTemps
{
    DayTemps();

    std::array<double, 25> TempArray = {}; ///< Of the hours 0..23; the last entry is never set.
    double MaxTemp = 0;                    ///< Top of the scale.
    double MinTemp = 0;                    ///< Bottom of the scale.
};

/// The two ends of a day's readings.
struct DayExtremes
{
    double lowest = 0;
    double highest = 0;
};

/// Marks all 25 entries as being without a reading.
void ClearReadings(DayTemps &day);

/// Stores the temperature of the hours 0..23. Every other hour is ignored, 24 too: the entry behind
/// the last hour is cleared with the others but never takes a reading.
void StoreReading(DayTemps &day, double temperature, qint16 hour);

/// Whether `temperature` is one: neither the mark of a missing reading nor beyond all numbers.
[[nodiscard]] bool IsReading(double temperature);

/// Lowest and highest reading; nothing when there is none.
[[nodiscard]] std::optional<DayExtremes> FindExtremes(const DayTemps &day);

/// Top of the scale less its bottom; below 0 when the scale is upside down.
/// @throws std::overflow_error when that is no finite number: the program's one exception, the way
///         in which whoever hosts the graph learns that its scale is unusable.
[[nodiscard]] double ScaleRange(const DayTemps &day);
