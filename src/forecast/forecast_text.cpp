#include "forecast/forecast_text.h"

#include "core/text.h"

#include <algorithm>

namespace {

constexpr qsizetype kCountedLength = 6;

/// What follows the zone code. It counts as six characters long whatever its length; where it does
/// not occur, the position is -1 and five characters go.
QStringView AfterZoneCode(QStringView product, const QString &zoneCode)
{
    const qsizetype cut = product.indexOf(zoneCode.toUpper()) + kCountedLength;
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

/// What the sentences' ends and the lines' ends are made of: all that is replaced, and nothing
/// else.
bool IsReplaced(QChar character)
{
    return character == u'\n' || character == u'\r' || character == u'.' || character == u' ';
}

/// The front of `text`, `kPiece` characters or more: no place to be replaced reaches over its end.
QStringView Piece(QStringView text)
{
    constexpr qsizetype kPiece = 16'384; // all its stages stay in the processor's cache
    const auto from = text.begin() + std::min(kPiece, text.size());
    return text.first(std::find_if_not(from, text.end(), IsReplaced) - text.begin());
}

/// The sentences of a piece in paragraphs. A period leads each heading, three part it from what
/// follows.
QString ParagraphsOf(QStringView body)
{
    // Where the text has a carriage return already, it keeps that one as well.
    QString text = ReplaceAll(body, u"\n", u"\r\n");
    text = ReplaceAll(text, u"...", u". ");
    text = ReplaceAll(text, u"\r\n.", u"\r\n\r\n");
    return ReplaceAll(text, u". .", u"\r\n");
}

QString Paragraphs(QStringView body)
{
    QString text;
    text.reserve(body.size() + body.size() / 8); // for the carriage returns
    while (!body.isEmpty()) {
        const QStringView piece = Piece(body);
        text.append(ParagraphsOf(piece));
        body = body.sliced(piece.size());
    }
    return text;
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
