#pragma once

#include "store/settings_file.h"

#include <QString>
#include <QStringView>

#include <array>

// What the station and the main window decide, as functions of settings and boxes.

/// One choice of how often the current weather is requested.
struct CheckInterval
{
    QStringView caption = {};
    qint16 seconds = 0;
};

/// The choices in the order of the option buttons; the first is the default.
inline constexpr std::array<CheckInterval, 4> kCheckIntervals{{
    {u"15 Minutes", 900},
    {u"30 Minutes", 1800},
    {u"1 Hour", 3600},
    {u"3 Hours", 10800},
}};

/// Seconds between two requests; the first choice's if no other button is selected.
[[nodiscard]] qint16 CheckIntervalSeconds(const std::array<bool, 4> &selected);

/// Seconds between two requests by the settings; the first choice's if they name none.
[[nodiscard]] qint16 CheckIntervalOf(const Settings &settings);

/// How soon something just chosen is requested.
inline constexpr qint16 kSecondsToNewProfile = 5;
inline constexpr qint16 kSecondsToNewLocation = 5;
inline constexpr qint16 kMillisecondsToNewZone = 5000;

/// One location box as the user sees it.
struct LocationBox
{
    bool shown = false; ///< Whether the selected profile uses it.
    QString text = {};
};

/// True when a location that the selected profile uses has not been filled in.
[[nodiscard]] bool IsLocationMissing(const std::array<LocationBox, 4> &boxes);

/// What the port box shows once it is left: the leading number, rounded (halves to even), if it is
/// a port, 1 to 65535; else "80".
[[nodiscard]] QString HttpPortText(QStringView text);

/// The profile to show out of `count` in the list: `index` if it names one, else the first.
/// @return -1 if there is none.
[[nodiscard]] qint16 UsableProfileIndex(qint16 index, int count);
