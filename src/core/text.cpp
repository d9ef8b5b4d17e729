#include "core/text.h"

using namespace Qt::StringLiterals;

QString ReplaceAll(QStringView text, QStringView before, QStringView after)
{
    QString replaced;
    replaced.reserve(text.size());
    qsizetype from = 0;
    for (qsizetype at = text.indexOf(before); at >= 0; at = text.indexOf(before, from)) {
        replaced.append(text.sliced(from, at - from)).append(after);
        from = at + before.size();
    }
    return replaced.append(text.sliced(from));
}

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
