#include "controls/tabular_text.h"

#include "core/text.h"

#include <algorithm>

namespace {

QChar WidestDigit(const TextWidth &widthOf)
{
    constexpr QStringView digits = u"0123456789";
    return *std::max_element(digits.begin(), digits.end(), [&widthOf](QChar one, QChar other) {
        return widthOf(QString(one)) < widthOf(QString(other));
    });
}

} // namespace

QString WithWidestDigits(QString text, const TextWidth &widthOf)
{
    const QChar widest = WidestDigit(widthOf);
    std::replace_if(text.begin(), text.end(), IsDigit, widest);
    return text;
}

QList<PlacedText> PlaceTabular(const QString &line, const TextWidth &widthOf)
{
    const int digitWidth = widthOf(QString(WidestDigit(widthOf)));
    QList<PlacedText> pieces;
    int x = 0;
    for (auto begin = line.begin(); begin != line.end();) {
        const bool isDigit = IsDigit(*begin);
        const auto end = isDigit ? begin + 1 : std::find_if(begin, line.end(), IsDigit);
        const QString text(begin, end - begin);
        const int width = isDigit ? digitWidth : widthOf(text);
        pieces.append({text, x, width});
        x += width;
        begin = end;
    }
    return pieces;
}
