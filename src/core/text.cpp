#include "core/text.h"

using namespace Qt::StringLiterals;

QStringView TrimSpaces(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString WithYear(QString text, int year)
{
    return text.replace("%YEAR%"_L1, QString::number(year));
}
