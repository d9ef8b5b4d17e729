#include "forecast/forecast_text.h"

#include "core/text.h"

#include <algorithm>

namespace {

constexpr qsizetype kZoneCodeLength = 6;

/// What follows the zone code. It counts as six characters long whatever its length; where it does
/// not occur, the position is -1 and five characters go.
QStringView AfterZoneCode(QStringView product, const QString &zoneCode)
{
    const qsizetype cut = product.indexOf(zoneCode.toUpper()) + kZoneCodeLength;
    return product.sliced(std::min(cut, product.size()));
}

QStringView AfterLine(QStringView text)
{
    return text.sliced(text.indexOf(u'\n') + 1); // unchanged where no line ends
}

QStringView Before(QStringView text, qsizetype position)
{
    return position < 0 ? text : text.first(position);
}

/// The sentences of the product in paragraphs. A period leads each heading, three part it from what
/// follows.
QString Paragraphs(QStringView body)
{
    // Where the text has a carriage return already, it keeps that one as well.
    QString text = ReplaceAll(body, u"\n", u"\r\n");
    text = ReplaceAll(text, u"...", u". ");
    text = ReplaceAll(text, u"\r\n.", u"\r\n\r\n");
    return ReplaceAll(text, u". .", u"\r\n");
}

} // namespace

QString CleanForecast(QStringView product, const QString &zoneCode)
{
    const QString text = Paragraphs(AfterLine(AfterZoneCode(product, zoneCode)));
    const QStringView forecast = Before(text, text.indexOf(u"$$"));
    const qsizetype tables = forecast.indexOf(u"&&");
    // At the very front the mark does not count: everything would go.
    return Before(forecast, tables > 0 ? tables : -1).toString();
}
