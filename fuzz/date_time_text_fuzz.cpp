#include "core/text.h"
#include "fuzz_input.h"
#include "weather/date_time_text.h"
#include "weather/utc_to_local.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kThisYear = 2026;
const QDate kFirstDay(1899, 12, 30);

QDateTime PlainDateTime(Moment moment)
{
    return QDateTime(kFirstDay, QTime(0, 0), Qt::UTC).addSecs(moment.seconds);
}

QString PlainText(Moment moment)
{
    const QDateTime dateTime = PlainDateTime(moment);
    QStringList parts;
    if (dateTime.date() != kFirstDay)
        parts.append(QLocale::c().toString(dateTime.date(), "M/d/yyyy"));
    if (parts.isEmpty() || dateTime.time() != QTime(0, 0))
        parts.append(QLocale::c().toString(dateTime.time(), "h:mm:ss AP"));
    return parts.join(' ');
}

void CheckMoment(Moment moment)
{
    if (!IsWritable(moment))
        return;
    const QString text = DateTimeText(moment);
    Demand(text == PlainText(moment), "the plain version's text");
    Demand(ParseDateTime(text, kThisYear) == moment, "a moment's text denotes it");
}

/// A text of one common form: month, day, year, hour, minute.
std::optional<Moment> PlainMoment(const QRegularExpressionMatch &match)
{
    const QDate date(match.captured(3).toInt(), match.captured(1).toInt(),
                     match.captured(2).toInt());
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt());
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    return Moment{
        QDateTime(kFirstDay, QTime(0, 0), Qt::UTC).secsTo(QDateTime(date, time, Qt::UTC))};
}

void CheckText(const QString &text)
{
    static const QRegularExpression common(
        u"^(0?[1-9]|1[0-2])/([0-9]{1,2})/([0-9]{4}),? ([0-9]{1,2}):([0-9]{2})$"_s);
    static const QRegularExpression never(
        u"[^ -~]|[;=+*\"'<>\\[\\](){}&%$#@!?~^|_\\\\`]|[0-9]{5}|T[0-9]|Z$|^ *[0-9]* *$"_s);
    const std::optional<Moment> moment = ParseDateTime(text, kThisYear);
    if (const QRegularExpressionMatch match = common.match(text); match.hasMatch())
        Demand(moment == PlainMoment(match), "the plain version's moment");
    Demand(!moment || !never.match(WithoutLoneSurrogates(text)).hasMatch(),
           "what is no date-time is none");
    Demand(ParseDateTime(" " + QString(text).replace(" ", "  ") + " ", kThisYear) == moment,
           "blanks in a row are one");
    if (!moment)
        return;
    static const QRegularExpression commaAndTime(u", *([0-9]{1,2} *([:.]|[ap]m)[^,]*)$"_s,
                                                 QRegularExpression::CaseInsensitiveOption);
    Demand(ParseDateTime(QString(text).replace(commaAndTime, u" \\1"_s), kThisYear) == moment,
           "a comma ahead of the time says nothing");
    Demand(ParseDateTime(text.toUpper(), kThisYear) == moment, "capitals make no difference");
    Demand(ParseDateTime(text.toLower(), kThisYear) == moment, "small letters neither");
    Demand(IsWritable(*moment), "what is read can be written");
    CheckMoment(*moment);
    for (const int utcOffset : {-43200, -18000, 19800, 50400})
        CheckMoment(ConvertUtcToLocal(*moment, utcOffset));
}

} // namespace

// The contract: the moment that a text denotes can be written and read again as the same; case and
// the number of blanks do not matter. Each line is a text; as a number it is a moment in seconds.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    while (!input.Rest().isEmpty()) {
        const QByteArray line = input.Line();
        CheckText(TextOf(line));
        CheckMoment(Moment{line.toLongLong() % 1'000'000'000'000});
    }
    return 0;
}
