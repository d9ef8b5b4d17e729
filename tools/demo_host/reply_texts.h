#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

// Values as the replies write them, in every language's machine the same.

[[nodiscard]] inline QString Number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

[[nodiscard]] inline QString Date(const QDateTime &time, const QString &picture)
{
    return QLocale::c().toString(time, picture);
}
