#include "weather/node_value.h"

#include "core/number.h"
#include "core/number_picture.h"
#include "core/text.h"
#include "core/trace.h"
#include "core/value_texts.h"
#include "weather/date_time_text.h"
#include "weather/format_string.h"
#include "weather/utc_to_local.h"

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Replaces a closing tag that stands for a line end by that line end. Only the whole tag counts.
void ResolveLineEnd(QString &closeTag)
{
    if (closeTag.isEmpty() || closeTag == "%CRLF%"_L1)
        closeTag = u"\r\n"_s;
    else if (closeTag == "%CR%"_L1)
        closeTag = u"\r"_s;
    else if (closeTag == "%LF%"_L1)
        closeTag = u"\n"_s;
}

/// Everything after the opening tag. The position is not checked: a missing tag counts as one that
/// begins just before the data. If the tag is longer than what is there, nothing is left.
QStringView AfterOpening(QStringView data, QStringView openTag)
{
    const qsizetype open = IndexOf(data, openTag);
    Trace(u"nodeOpenPos=", open + 1, u" nodeOpenLen=", openTag.size());
    const qsizetype behind = open + openTag.size();
    const QStringView text =
        behind <= data.size() ? TrimSpaces(data.sliced(behind)) : QStringView();
    Trace(u"text is now ", text);
    return text;
}

/// What follows the prefix, or the whole text where it does not occur.
QStringView AfterPrefix(QStringView text, QStringView prefix)
{
    Trace(u"nodePrefixLen=", prefix.size());
    if (prefix.isEmpty())
        return text;

    Trace(u"nodePrefixLen length is > 0 so I will search for the specified prefix in the text");
    const qsizetype at = IndexOf(text, prefix);
    Trace(u"nodePrefixPos=", at + 1);
    if (at < 0) {
        Trace(u"nodePrefixPos is = 0 so I must not have found the prefix in the string");
        return text;
    }
    Trace(u"nodePrefixPos is > 0 so I must have found the prefix in the string");
    const QStringView rest = TrimSpaces(text.sliced(at + prefix.size()));
    Trace(u"...so now the text is ", rest);
    return rest;
}

/// Drops everything up to the first character of the last suffix, and one more. If there is no such
/// further character, the cut is impossible and the text stays.
QStringView AfterSuffix(QStringView text, QStringView suffix)
{
    // -1 is the last character. By default Qt 6.4 starts one place past the end of the view, on the
    // first character of the closing tag.
    const qsizetype last = suffix.isEmpty() ? -1 : text.lastIndexOf(suffix, -1);
    if (last < 0)
        return text;
    const QStringView rest = last + 2 <= text.size() ? text.sliced(last + 2) : text;
    Trace(u"...found nodeSuffixPos, so string is now ", rest);
    return rest;
}

/// `left` `operation` `right` as text; nothing if one of them or the result is beyond a double.
std::optional<QString> Calculated(QStringView left, QChar operation, QStringView right)
{
    const std::optional<double> a = LeadingNumber(left);
    const std::optional<double> b = LeadingNumber(right);
    if (!a || !b)
        return std::nullopt;
    const double result = operation == u'+' ? *a + *b : *a * *b;
    if (!std::isfinite(result))
        return std::nullopt;
    return NumberToText(result);
}

std::optional<QString> Pictured(QStringView value, QStringView picture)
{
    const std::optional<double> number = LeadingNumber(value);
    if (!number)
        return std::nullopt;
    return FormatNumber(*number, picture);
}

std::optional<QString> InLocalTime(QStringView value, const QDateTime *now)
{
    if (now == nullptr)
        return std::nullopt;
    const std::optional<Moment> moment = ParseDateTime(value, now->date().year());
    if (!moment)
        return std::nullopt;
    const Moment local = ConvertUtcToLocal(*moment, now->offsetFromUtc());
    if (!IsWritable(local))
        return std::nullopt;
    return DateTimeText(local);
}

/// Applies one item of a factor. An unknown or impossible operation changes nothing.
QString ApplyOperation(const QString &value, QStringView item, const QDateTime *now)
{
    const QChar operation = item.front();
    const QStringView operand = item.sliced(1);
    std::optional<QString> result;
    if (operation == u'+' || operation == u'*')
        result = Calculated(value, operation, operand);
    else if (operation == u'D')
        result = InLocalTime(value, now);
    else if (operation == u'F')
        result = FormatString(value, operand);
    else if (operation == u'N')
        result = Pictured(value, operand);
    return result ? *result : value;
}

QString ApplyFactor(QString value, const NodeQuery &query)
{
    if (query.factor == u"0")
        return value;
    for (const QStringView item : query.factor.tokenize(u',', Qt::SkipEmptyParts))
        value = ApplyOperation(value, item, query.now);
    return value;
}

/// The text between the tags, cut at the suffix; all of `text` if the closing tag is missing.
struct Extract
{
    QStringView text = {};
    bool closed = false;
};

Extract UpToClosing(QStringView text, const NodeQuery &query)
{
    const qsizetype close = IndexOf(text, query.closeTag);
    Trace(u"nodeClosePos=", close + 1);
    if (close < 0) {
        // Despite what the trace line says, everything after the opening tag is kept.
        Trace(u"...since nodeClosePos = 0, so I must not have found the close so the string is "
              u"empty");
        return {text, false};
    }
    Trace(u"...since nodeClosePos > 0 I must have found the close");
    const QStringView inside = TrimSpaces(text.first(close));
    Trace(u"...so now the string is ", inside);
    return {AfterSuffix(inside, query.suffix), true};
}

} // namespace

QString GetNodeValue(QString &data, const NodeQuery &query)
{
    if (query.units != u"?" && !query.openTag.isEmpty())
        data.replace(u'\t', u' ');
    return GetNodeValueWithoutTabs(data, query);
}

QString GetNodeValueWithoutTabs(QStringView data, const NodeQuery &query)
{
    if (query.units == u"?")
        return kNotAvailableFromService.toString();
    if (query.openTag.isEmpty())
        return kNotAvailable.toString();

    ResolveLineEnd(query.closeTag);
    Trace(u"Looking for O:", query.openTag, u" P:", query.prefix, u" C:", query.closeTag, u" in ",
          data);

    // Views of `data`: nothing is copied before the one toString() below.
    const QStringView behindTag = AfterPrefix(AfterOpening(data, query.openTag), query.prefix);
    const Extract extract = UpToClosing(behindTag, query);

    QString value = extract.text.toString();
    if (extract.closed)
        value = ApplyFactor(std::move(value), query);
    if (!query.format.isEmpty())
        value = Pictured(value, query.format).value_or(value);
    if (value.isEmpty())
        return kNotAvailable.toString();
    return value.append(query.units);
}

NodePlace FindNode(QStringView data, const NodeQuery &query)
{
    NodePlace place;
    if (query.openTag.isEmpty())
        return place;
    place.open = IndexOf(data, query.openTag);
    if (place.open < 0)
        return place;

    ResolveLineEnd(query.closeTag);
    const QStringView behindTag = TrimSpaces(data.sliced(place.open + query.openTag.size()));
    const qsizetype prefix = query.prefix.isEmpty() ? -1 : IndexOf(behindTag, query.prefix);
    const QStringView text =
        prefix < 0 ? behindTag : TrimSpaces(behindTag.sliced(prefix + query.prefix.size()));
    const qsizetype close = IndexOf(text, query.closeTag);
    if (close < 0)
        return place;
    place.close = text.data() - data.data() + close;
    place.text = TrimSpaces(text.first(close));
    return place;
}
