#pragma once

#include "profiles/weather_profile.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

/// What a profile extracts from one reply.
struct CheckedReply
{
    QString name = {}; ///< File or address, as given.
    bool parsed = false;
    QString status = {};       ///< What the program's status line would show; empty: nothing.
    WeatherValues values = {}; ///< Empty texts if the reply was refused.
    QStringList places = {};   ///< Where each value comes from, in words.
};

/// Parses `reply` as the program does, with a neutral min/max store and without touching a file.
/// @param now local date and time, shown if the reply has no observation time.
[[nodiscard]] CheckedReply CheckReply(WeatherProfile profile, const QString &name,
                                      const QString &reply, const QDateTime &now);

/// The reply's values as a table for people: quantity, value, where its tags were found. Characters
/// that would control a terminal are shown as "?".
[[nodiscard]] QString TableText(const CheckedReply &reply);

/// The reply's values as a section of an INI file, with line feeds, escaped like the output file.
[[nodiscard]] QString IniText(const CheckedReply &reply);
