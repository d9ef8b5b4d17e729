#include "forecast/forecast_text.h"

#include "core/text.h"

#include <algorithm>

namespace {

constexpr qsizetype kCountedLength = 6;

/// What follows the zone code, which counts as six characters long whatever its length. If it does
/// not occur, the first five characters of the text go.
QStringView AfterZoneCode(QStringView product, const QString &zoneCode)
{
    const qsizetype cut = product.indexOf(zoneCode.toUpper()) + kCountedLength;
    return product.sliced(std::min(cut, product.size()));
}

QStringView AfterLine(QStringView text)
{
    return text.sliced(text.indexOf(u'\n') + 1); // unchanged if no line ends
}

QStringView Before(QStringView text, qsizetype position)
{
    return position < 0 ? text : text.first(position);
}

/// The characters that ends of sentences and lines are made of; no others are replaced.
bool IsReplaced(QChar character)
{
    return character == u'\n' || character == u'\r' || character == u'.' || character == u' ';
}

/// The front of `text`, `kPiece` characters or more: it ends where no replacement can reach across.
QStringView Piece(QStringView text)
{
    constexpr qsizetype kPiece = 16'384; // all stages of a piece stay in the processor's cache
    const auto from = text.begin() + std::min(kPiece, text.size());
    return text.first(std::find_if_not(from, text.end(), IsReplaced) - text.begin());
}

/// A piece with its sentences in paragraphs. A period precedes each heading, three separate it from
/// what follows.
QString ParagraphsOf(QStringView body)
{
    // A carriage return that is there already stays, too.
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
    // At the very front the mark does not count, or nothing would be left.
    return Before(forecast, tables > 0 ? tables : -1).toString();
}
