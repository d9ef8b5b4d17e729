#include "store/min_max_store.h"

#include "core/number.h"
#include "core/trace.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// What a pair holds before its first reading: every temperature is below the one and above the
// other.
constexpr double kNeutralMin = 1000;
constexpr double kNeutralMax = -1000;

constexpr QStringView kGeneral = u"GENERAL";
constexpr QStringView kCurrentDay = u"CURRDAY";
constexpr QStringView kPreviousDay = u"PREVDAY";

QString DaySection(qint16 day)
{
    return u"DAY"_s + QString::number(day);
}

void WriteDay(IniFile &file, qint16 day, double min, double max)
{
    WriteIniValue(file, DaySection(day), u"MIN", NumberToText(min), true);
    WriteIniValue(file, DaySection(day), u"MAX", NumberToText(max), true);
}

/// Reads the pair of a day. A number beyond a double leaves its value as it is.
void ReadDay(const IniFile &file, qint16 day, double &min, double &max)
{
    const QString section = DaySection(day);
    min = LeadingNumber(ReadIniValue(file, section, u"MIN", u"1000")).value_or(min);
    max = LeadingNumber(ReadIniValue(file, section, u"MAX", u"-1000")).value_or(max);
}

/// A day number in the file; 0 if its text is not a whole number of 16 bits.
qint16 ReadDayNumber(const IniFile &file, QStringView key)
{
    const auto number = WholeTextNumber(ReadIniValue(file, kGeneral, key, u"-1000"));
    return number ? ToInt16(*number).value_or(0) : qint16(0);
}

/// Widens today's pair by a reading of the same day.
void WidenToday(MinMaxTemps &minMax, IniFile &file, double temp)
{
    minMax.TodayMaxTemp = std::max(minMax.TodayMaxTemp, temp);
    minMax.TodayMinTemp = std::min(minMax.TodayMinTemp, temp);
    WriteDay(file, minMax.MinMaxDay, minMax.TodayMinTemp, minMax.TodayMaxTemp);
}

/// Today's pair becomes the previous one, and the reading begins the new day `currDay`.
void RollOver(MinMaxTemps &minMax, IniFile &file, qint16 currDay, double temp)
{
    // The old day's section gets the pair of the day before it. Its own pair, which each of its
    // readings has written there, is only in memory from now on.
    WriteDay(file, minMax.MinMaxDay, minMax.PrevMinTemp, minMax.PrevMaxTemp);
    minMax.PrevMinTemp = minMax.TodayMinTemp;
    minMax.PrevMaxTemp = minMax.TodayMaxTemp;
    minMax.TodayMinTemp = temp;
    minMax.TodayMaxTemp = temp;
    WriteDay(file, currDay, temp, temp);
    WriteIniValue(file, kGeneral, kPreviousDay, QString::number(minMax.MinMaxDay), true);
    WriteIniValue(file, kGeneral, kCurrentDay, QString::number(currDay), true);
}

bool IsDayBefore(qint16 day, QDate today)
{
    if (today.day() == 1)
        return day == DaysInPreviousMonth(static_cast<qint16>(today.month()), today.year());
    return day == today.day() - 1;
}

} // namespace

void CheckMinMaxTemp(MinMaxTemps &minMax, const IniPath &path, QDate today, double temp)
{
    const auto currDay = static_cast<qint16>(today.day());
    IniFile file(path);

    if (currDay == minMax.MinMaxDay)
        WidenToday(minMax, file, temp);
    else
        RollOver(minMax, file, currDay, temp);
    file.Commit();

    Trace(u"CheckMinMaxTemp(", temp, u") currDay=", currDay, u" MinMaxDay=", minMax.MinMaxDay,
          u" TodayMin=", minMax.TodayMinTemp, u" TodayMax=", minMax.TodayMaxTemp, u" PrevMin=",
          minMax.PrevMinTemp, u" PrevMax=", minMax.PrevMaxTemp);
    minMax.MinMaxDay = currDay;
}

void LoadMinMaxTemps(MinMaxTemps &minMax, const IniPath &path, QDate today)
{
    minMax = {.TodayMinTemp = kNeutralMin,
              .TodayMaxTemp = kNeutralMax,
              .PrevMinTemp = kNeutralMin,
              .PrevMaxTemp = kNeutralMax,
              .MinMaxDay = static_cast<qint16>(today.day())};
    IniFile file(path);
    const qint16 storedDay = ReadDayNumber(file, kCurrentDay);
    const qint16 storedPreviousDay = ReadDayNumber(file, kPreviousDay);

    if (storedDay >= 1 && storedDay == minMax.MinMaxDay) {
        ReadDay(file, storedDay, minMax.TodayMinTemp, minMax.TodayMaxTemp);
        if (storedPreviousDay >= 1)
            ReadDay(file, storedPreviousDay, minMax.PrevMinTemp, minMax.PrevMaxTemp);
    } else if (storedDay >= 1 && IsDayBefore(storedDay, today)) {
        ReadDay(file, storedDay, minMax.PrevMinTemp, minMax.PrevMaxTemp);
    }

    WriteIniValue(file, kGeneral, kCurrentDay, QString::number(minMax.MinMaxDay), true);
    file.Commit();
}

void ResetTodayMinMax(MinMaxTemps &minMax, const IniPath &path)
{
    minMax.TodayMinTemp = kNeutralMin;
    minMax.TodayMaxTemp = kNeutralMax;
    IniFile file(path);
    WriteDay(file, minMax.MinMaxDay, minMax.TodayMinTemp, minMax.TodayMaxTemp);
    file.Commit();
}

qint16 DaysInPreviousMonth(qint16 month, int year)
{
    constexpr qint16 kFebruary = 2;
    constexpr std::array<qint16, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    const qint16 previous = month == 1 ? qint16(12) : static_cast<qint16>(month - 1);
    // No century rule: a wrong 29 in 2100 costs the previous day's pair after one restart.
    if (previous == kFebruary && year % 4 == 0)
        return 29;
    return kDays[static_cast<std::size_t>(previous - 1)];
}
