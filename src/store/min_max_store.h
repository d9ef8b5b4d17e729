#pragma once

#include "store/ini_file.h"

#include <QDate>

/// The lowest and highest temperature of today and of the day before, in the profile's own unit.
struct MinMaxTemps
{
    double TodayMinTemp = 1000; ///< 1000 until a reading comes in.
    double TodayMaxTemp = -1000;
    double PrevMinTemp = 1000;
    double PrevMaxTemp = -1000;
    qint16 MinMaxDay = 0; ///< Day of the month, 1..31, that the "today" pair belongs to.
};

/// Enters a new reading `temp` into the store and the file. A new day of the month rolls the pairs
/// over, however many days have passed.
void CheckMinMaxTemp(MinMaxTemps &minMax, const IniPath &path, QDate today, double temp);

/// Fills the store from the file at start-up: today's pair if the file is from today, yesterday's
/// if it is from yesterday, neutral values otherwise. Writes today as the file's current day.
void LoadMinMaxTemps(MinMaxTemps &minMax, const IniPath &path, QDate today);

/// Makes today's pair neutral again, here and in the file; the previous day's pair is kept.
void ResetTodayMinMax(MinMaxTemps &minMax, const IniPath &path);

/// Days of the month before `month` (1..12; anything else: 0). For March, every year that is
/// divisible by 4 counts as a leap year.
[[nodiscard]] qint16 DaysInPreviousMonth(qint16 month, int year);
