#include "weather/format_string.h"

#include "core/text.h"
#include "core/trace.h"

#include <algorithm>

QString FormatString(QStringView text, QStringView picture)
{
    Trace(u"FormatString(", text, u" As String, ", picture, u" As String)");
    const qsizetype length = std::min(text.size(), picture.size());
    QString result;
    result.reserve(length);
    for (qsizetype i = 0; i < length; ++i) {
        const QChar t = text[i];
        const QChar f = picture[i];
        Trace(u"Analyzing ", text, u" at character ", text.sliced(i, 1), u" for format ",
              picture.sliced(i, 1));
        if (f == u'X')
            result.append(t);
        else if (f == u'#' || f == u'0')
            result.append(IsDigit(t) ? t : QChar(u'0'));
        else if (f != u'?')
            result.append(f);
    }
    Trace(u"returning ", result);
    return result;
}
