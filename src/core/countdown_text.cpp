#include "core/countdown_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;

QString TwoDigits(int number)
{
    return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

} // namespace

QString CountdownText(int seconds)
{
    const int hours = seconds / kSecondsPerHour;
    const int minutes = seconds / kSecondsPerMinute - hours * kSecondsPerMinute;
    const QString rest = TwoDigits(seconds % kSecondsPerMinute);
    if (hours < 1)
        return QString::number(minutes) + u':' + rest;
    return QString::number(hours) + u':' + TwoDigits(minutes) + u':' + rest;
}
