#pragma once

#include "profiles/weather_profile.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

/// What a profile makes of one reply.
struct CheckedReply
{
    QString name = {}; ///< File or address, as given.
    bool parsed = false;
    QString status = {};       ///< What the program's status line would say; empty: nothing.
    WeatherValues values = {}; ///< Empty texts when the reply was refused.
    QStringList places = {};   ///< For each value field, where it comes from, in words.
};

/// Parses `reply` as the program does, with a neutral min/max store and without touching a file.
/// @param now local date and time, shown where the reply has no observation time.
[[nodiscard]] CheckedReply CheckReply(WeatherProfile profile, const QString &name,
                                      const QString &reply, const QDateTime &now);

/// The reply's values as a table for people: quantity, value, where its tags were found. Characters
/// that would steer a terminal are shown as "?".
[[nodiscard]] QString TableText(const CheckedReply &reply);

/// The reply's values as a section of an INI file, with line feeds, escaped as the output file is.
[[nodiscard]] QString IniText(const CheckedReply &reply);
