#include "demo_host/zone_product.h"

#include "demo_host/reply_texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 7;
constexpr int kIssueHours = 3;                       ///< From one issue to the next.
constexpr qint64 kExpirySeconds = qint64{12} * 3600; ///< From the time of issue.

/// The weather of one day and the night after it.
struct DayPattern
{
    QStringView day = {};
    QStringView wind = {};
    QStringView night = {};
    int highShift = 0; ///< Degrees Fahrenheit from the state's mean.
    int lowShift = 0;
};

constexpr std::array<DayPattern, kDays> kPatterns{{
    {u"Sunny.", u"West winds around 5 mph.", u"Clear.", 3, -3},
    {u"Mostly sunny.", u"Southwest winds 5 to 10 mph.",
     u"Mostly clear in the evening, then "
     "partly cloudy.",
     6, 0},
    {u"Partly sunny with a slight chance of showers.",
     u"South winds 10 to 15 mph. Chance of rain 20 percent.", u"Mostly cloudy.", 5, 4},
    {u"Cloudy with rain, heavy at times.",
     u"South winds 10 to 20 mph with gusts up to 35 mph, becoming west later. Chance of "
     "rain 90 percent.",
     u"Cloudy with showers likely. Chance of rain 60 percent.", -2, 3},
    {u"Mostly cloudy, then clearing.", u"Northwest winds 15 to 20 mph.", u"Mostly clear. Colder.",
     -5, -5},
    {u"Sunny and breezy.", u"Northwest winds 10 to 15 mph.", u"Clear and cold.", -3, -8},
    {u"Increasing clouds.", u"Light winds.", u"Partly cloudy.", 0, -4},
}};

/// A shift in degrees Fahrenheit by the hour of issue.
constexpr std::array<int, 24 / kIssueHours> kDrift{0, -1, -1, 0, 1, 2, 2, 1};

/// "300 PM EST Sat Mar 14 2026".
QString IssueText(const ForecastState &state, const QDateTime &issued)
{
    return u"%1 %2 %3"_s.arg(Date(issued, u"hmm AP"_s), state.timeZone,
                             Date(issued, u"ddd MMM d yyyy"_s));
}

/// A temperature in the words of a forecast: "in the lower 60s".
QString Around(int fahrenheit)
{
    const int units = fahrenheit % 10;
    if (units == 0)
        return u"around %1"_s.arg(fahrenheit);
    const QStringView part = units < 4 ? u"lower" : units < 7 ? u"mid" : u"upper";
    return u"in the %1 %2s"_s.arg(part).arg(fahrenheit - units);
}

/// Collects the paragraphs of a product, one for each half day.
class Paragraphs
{
public:
    Paragraphs(const ForecastZone &zone, const QDateTime &issued)
        : m_zone(zone)
        , m_drift(kDrift[std::size_t(issued.time().hour() / kIssueHours)])
    {}

    void AddDay(const QString &name, QDate date)
    {
        const DayPattern &pattern = Pattern(date);
        const int high = m_zone.state->highF + pattern.highShift + m_drift;
        Add(name, u"%1 Highs %2. %3"_s.arg(pattern.day, Around(high), pattern.wind));
    }
    void AddNight(const QString &name, QDate date)
    {
        const DayPattern &pattern = Pattern(date);
        const int low = m_zone.state->lowF + pattern.lowShift + m_drift;
        Add(name, u"%1 Lows %2."_s.arg(pattern.night, Around(low)));
    }
    [[nodiscard]] QString Text() const { return m_text; }

private:
    [[nodiscard]] const DayPattern &Pattern(QDate date) const
    {
        return kPatterns[std::size_t(date.dayOfWeek() + m_zone.number) % kPatterns.size()];
    }
    void Add(const QString &name, const QString &sentences)
    {
        if (!m_zone.state->capitals) {
            m_text += Wrapped(u'.' + name + u"..."_s + sentences) + u'\n';
            return;
        }
        QString old = sentences.toUpper();
        old.replace(u", "_s, u"..."_s);
        m_text += Wrapped(u'.' + name + u"..."_s + old) + u" \n"_s;
    }

    const ForecastZone &m_zone;
    int m_drift = 0;
    QString m_text;
};

QString Weekday(QDate date)
{
    return QLocale::c().toString(date, u"dddd"_s).toUpper();
}

/// Seven days, beginning with what is left of the day of issue.
QString Periods(const ForecastZone &zone, const QDateTime &issued)
{
    const QDate today = issued.date();
    const int hour = issued.time().hour();
    Paragraphs paragraphs(zone, issued);
    if (hour < kIssueHours) {
        paragraphs.AddNight(u"REST OF TONIGHT"_s, today.addDays(-1));
        paragraphs.AddDay(Weekday(today), today);
        paragraphs.AddNight(Weekday(today) + u" NIGHT"_s, today);
    } else {
        if (hour < 18)
            paragraphs.AddDay(hour < 12 ? u"TODAY"_s : u"THIS AFTERNOON"_s, today);
        paragraphs.AddNight(u"TONIGHT"_s, today);
    }
    for (int day = 1; day < kDays; ++day) {
        const QDate date = today.addDays(day);
        paragraphs.AddDay(Weekday(date), date);
        paragraphs.AddNight(Weekday(date) + u" NIGHT"_s, date);
    }
    return paragraphs.Text();
}

/// A hazard, too long for one line.
QString Headline(const ForecastZone &zone, const QDateTime &issued)
{
    return Wrapped(u"...WIND ADVISORY IN EFFECT UNTIL 6 AM %1 %2 FOR OPEN WATER AND HIGH "
                   "BRIDGES..."_s.arg(zone.state->timeZone, Weekday(issued.date().addDays(1))))
         + u"\n\n"_s;
}

/// The contents of the table after the forecast.
QString Table(const ForecastZone &zone, const QDateTime &issued)
{
    return u"&&\n\n          %1\nHIGH        %2\nLOW         %3\n\n"_s.arg(
        Weekday(issued.date()), QString::number(zone.state->highF),
        QString::number(zone.state->lowF));
}

} // namespace

QDateTime IssueTime(const ForecastZone &zone, const QDateTime &utc)
{
    const QDateTime local = utc.toOffsetFromUtc(zone.state->utcOffsetMinutes * 60);
    const int hour = local.time().hour() / kIssueHours * kIssueHours;
    QDateTime issued = local;
    issued.setTime(QTime(hour, 0));
    return issued.addDays(-std::max(zone.ageDays, 0));
}

QString ZoneProduct(const ForecastZone &zone, const QDateTime &utc)
{
    const ForecastState &state = *zone.state;
    const QDateTime issued = IssueTime(zone, utc);
    const QDateTime expires = issued.addSecs(kExpirySeconds).toUTC();
    const auto cased = [&](const QString &text) { return state.capitals ? text.toUpper() : text; };
    const QString issueText = cased(IssueText(state, issued));

    QString text = u"Expires:%1;;%2\nFPUS51 %3 %4\nZFP%5\n\n"_s.arg(
        Date(expires, u"yyyyMMddHHmm"_s), QString::number(100'000 + zone.number), state.office,
        Date(issued.toUTC(), u"ddHHmm"_s), state.office.sliced(1));
    text += cased(u"Zone Forecast Product\n%1\n%2\n\n"_s.arg(state.officeName, issueText));
    text +=
        u"%1-%2-\n%3%4\n\n"_s.arg(zone.segment, Date(expires, u"ddHHmm"_s), zone.names, issueText);
    if (zone.hasHeadline)
        text += Headline(zone, issued);
    text += Periods(zone, issued) + u'\n';
    if (zone.endsInTable)
        text += Table(zone, issued);
    if (zone.hasEndMark)
        text += u"$$\n"_s;
    return text;
}
