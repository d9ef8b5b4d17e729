#pragma once

#include "core/number.h"
#include "core/number_picture.h"
#include "weather/date_time_text.h"
#include "weather/format_string.h"
#include "weather/node_value.h"
#include "weather/utc_to_local.h"

#include <QStringList>

#include <cmath>
#include <optional>

// GetNodeValue() written a second time, step by step, with whole texts and positions from 1 on:
// slow, but as plain as can be.

struct PlainQuery
{
    QString open = {};
    QString close = {};
    QString prefix = {};
    QString suffix = {};
    QString units = {};
    QString factor = {};
    QString format = {};
};

inline QString PlainTrim(QString text)
{
    while (text.startsWith(' '))
        text.remove(0, 1);
    while (text.endsWith(' '))
        text.chop(1);
    return text;
}

inline QString PlainLineEnd(const QString &close)
{
    if (close.isEmpty() || close == "%CRLF%")
        return "\r\n";
    return close == "%CR%" ? "\r" : close == "%LF%" ? "\n" : close;
}

/// The text after one item of a factor; nothing if the step fails.
inline std::optional<QString> PlainOperation(const QString &text, const QString &item,
                                             const QDateTime &now)
{
    const QString operand = item.mid(1);
    const std::optional<double> a = LeadingNumber(text);
    const std::optional<double> b = LeadingNumber(operand);
    const char operation = item.at(0).toLatin1();
    if (operation == '+' || operation == '*') {
        if (!a || !b || !std::isfinite(operation == '+' ? *a + *b : *a * *b))
            return std::nullopt;
        return NumberToText(operation == '+' ? *a + *b : *a * *b);
    }
    if (operation == 'N')
        return a ? std::optional(FormatNumber(*a, operand)) : std::nullopt;
    if (operation == 'F')
        return FormatString(text, operand);
    if (operation != 'D')
        return std::nullopt;
    const std::optional<Moment> utc = ParseDateTime(text, now.date().year());
    if (!utc || !IsWritable(ConvertUtcToLocal(*utc, now.offsetFromUtc())))
        return std::nullopt;
    return DateTimeText(ConvertUtcToLocal(*utc, now.offsetFromUtc()));
}

inline QString PlainFactor(QString text, const QString &factor, const QDateTime &now)
{
    if (factor.isEmpty() || factor == "0")
        return text;
    for (const QString &item : factor.split(',')) {
        if (!item.isEmpty())
            text = PlainOperation(text, item, now).value_or(text);
    }
    return text;
}

/// The text after the opening tag and the prefix.
inline QString PlainBehindTags(const QString &data, const PlainQuery &query)
{
    const qsizetype open = data.indexOf(query.open) + 1;
    const qsizetype length = data.size() - open - query.open.size() + 1;
    QString text = length < 0 ? QString() : PlainTrim(data.right(length));
    const qsizetype prefix = query.prefix.isEmpty() ? 0 : text.indexOf(query.prefix) + 1;
    if (prefix > 0)
        text = PlainTrim(text.right(text.size() - prefix - query.prefix.size() + 1));
    return text;
}

inline QString PlainNodeValue(QString data, const PlainQuery &query, const QDateTime &now)
{
    if (query.units == "?")
        return "Not Available From Service";
    if (query.open.isEmpty())
        return "N/A";
    QString text = PlainBehindTags(data.replace('\t', ' '), query);
    const qsizetype close = text.indexOf(PlainLineEnd(query.close)) + 1;
    if (close > 0) {
        text = PlainTrim(text.left(close - 1));
        const qsizetype last = query.suffix.isEmpty() ? 0 : text.lastIndexOf(query.suffix, -1) + 1;
        if (last > 0 && text.size() - last - 1 >= 0)
            text = text.right(text.size() - last - 1);
        text = PlainFactor(text, query.factor, now);
    }
    if (!query.format.isEmpty()) {
        if (const std::optional<double> number = LeadingNumber(text))
            text = FormatNumber(*number, query.format);
    }
    return text.isEmpty() ? "N/A" : text + query.units;
}
