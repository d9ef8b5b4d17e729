#include "weather/raw_data_text.h"

using namespace Qt::StringLiterals;

QString RawDataText(QStringView reply)
{
    constexpr QLatin1StringView kTab = "     "_L1;
    QString text;
    text.reserve(reply.size() + reply.count(u'\n') + reply.count(u'\t') * (kTab.size() - 1));
    for (const QChar c : reply) {
        if (c == u'\n')
            text.append("\r\n"_L1);
        else if (c == u'\t')
            text.append(kTab);
        else if (c != u'\r')
            text.append(c);
    }
    return text;
}
