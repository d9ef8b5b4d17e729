#include "weather/date_time_text.h"

#include "weather/date_time_tokens.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFirstJulianDay = 2415019; // 30 December 1899
constexpr qint64 kSecondsPerDay = 86400;
constexpr int kFirstYearOf1900s = 50; // two-digit years from here on are 19xx

using Token = DateTimeToken;

constexpr std::array<QStringView, 12> kMonths{u"january",   u"february", u"march",    u"april",
                                              u"may",       u"june",     u"july",     u"august",
                                              u"september", u"october",  u"november", u"december"};

int MonthOf(const Token &token)
{
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
        if (token.IsWord(kMonths[i]) || token.IsWord(kMonths[i].first(3)))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

bool IsHalfDay(const Token &token)
{
    return token.IsWord(u"AM") || token.IsWord(u"PM");
}

/// Reads the parts of a date-time from a list of tokens, one after the other.
class Reader
{
public:
    explicit Reader(const DateTimeTokens &tokens) : m_tokens(tokens) {}

    [[nodiscard]] bool AtEnd() const { return m_at == m_tokens.size(); }

    /// True when a time comes next: a number followed by ":", "." or AM/PM.
    [[nodiscard]] bool AtTime() const { return IsTimeAt(0); }

    /// True when a comma comes next, and a time right after it.
    [[nodiscard]] bool AtCommaAndTime() const
    {
        return !AtEnd() && Peek(0)->Is(u',') && IsTimeAt(1);
    }

    void SkipComma() { ++m_at; }

    std::optional<int> ReadTime();
    std::optional<QDate> ReadDate(int currentYear);

private:
    [[nodiscard]] const Token *Peek(std::size_t ahead) const
    {
        return m_at + ahead < m_tokens.size() ? &m_tokens[m_at + ahead] : nullptr;
    }
    [[nodiscard]] bool IsTimeAt(std::size_t ahead) const
    {
        const Token *next = Peek(ahead + 1);
        return IsNumber(Peek(ahead)) && next != nullptr
            && (next->Is(u':') || next->Is(u'.') || IsHalfDay(*next));
    }
    [[nodiscard]] static bool IsNumber(const Token *token)
    {
        return token != nullptr && token->kind == Token::Kind::Number;
    }

    /// Reads ":" or, if `pointToo`, "." and the number after it; -1 without them.
    int ReadTimePart(bool pointToo);
    std::optional<int> HourInHalfDay(int hour);

    const DateTimeTokens &m_tokens;
    std::size_t m_at = 0;
};

int Reader::ReadTimePart(bool pointToo)
{
    const Token *separator = Peek(0);
    if (separator == nullptr || !(separator->Is(u':') || (pointToo && separator->Is(u'.'))))
        return -1;
    const Token *number = Peek(1);
    if (!IsNumber(number) || number->text.size() > 2)
        return -1;
    m_at += 2;
    return number->number;
}

std::optional<int> Reader::HourInHalfDay(int hour)
{
    const Token *word = Peek(0);
    if (word == nullptr || !IsHalfDay(*word))
        return hour;
    ++m_at;
    if (word->IsWord(u"PM"))
        return hour < 12 ? hour + 12 : hour; // "21:07 PM" means 21:07
    if (hour > 12)
        return std::nullopt;
    return hour == 12 ? 0 : hour;
}

std::optional<int> Reader::ReadTime()
{
    const Token &first = m_tokens[m_at++];
    if (first.text.size() > 2)
        return std::nullopt;
    const int minute = std::max(ReadTimePart(true), 0);
    const int second = std::max(ReadTimePart(false), 0);
    const std::optional<int> hour = HourInHalfDay(first.number);
    if (!hour || *hour > 23 || first.number > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return (*hour * 60 + minute) * 60 + second;
}

/// The year that one, two or four digits mean; 0, which is in no calendar, for three.
int FullYear(const Token &year)
{
    if (year.text.size() > 2)
        return year.text.size() == kMostDigits ? year.number : 0;
    return year.number < kFirstYearOf1900s ? 2000 + year.number : 1900 + year.number;
}

std::optional<QDate> ValidDate(int year, int month, int day)
{
    const QDate date(year, month, day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// "Nov 5 2019", "5 Nov 2019", "2019 Nov 5", and without the year.
std::optional<QDate> NamedDate(const std::vector<Token> &parts, int currentYear)
{
    const std::size_t name = MonthOf(parts[0]) != 0 ? 0 : 1;
    const int month = MonthOf(parts[name]);
    if (month == 0)
        return std::nullopt;
    const Token &first = parts[name == 0 ? 1 : 0];
    if (first.kind != Token::Kind::Number)
        return std::nullopt;
    if (parts.size() == 2)
        return first.text.size() > 2 ? std::nullopt : ValidDate(currentYear, month, first.number);
    const Token &last = parts[2];
    if (last.kind != Token::Kind::Number)
        return std::nullopt;
    if (first.text.size() == kMostDigits)
        return last.text.size() > 2 ? std::nullopt : ValidDate(first.number, month, last.number);
    return ValidDate(FullYear(last), month, first.number);
}

/// "11/5/2019", "2019-11-05", and where the first number cannot be a month, "20/11/2019".
std::optional<QDate> NumberedDate(const std::vector<Token> &parts, int currentYear)
{
    if (parts.size() == 3 && parts[0].text.size() == kMostDigits)
        return ValidDate(parts[0].number, parts[1].number, parts[2].number);
    if (parts[0].text.size() > 2 || parts[1].text.size() > 2)
        return std::nullopt;
    const int year = parts.size() == 3 ? FullYear(parts[2]) : currentYear;
    const int first = parts[0].number;
    const int second = parts[1].number;
    return first > 12 ? ValidDate(year, second, first) : ValidDate(year, first, second);
}

std::optional<QDate> Reader::ReadDate(int currentYear)
{
    std::vector<Token> parts;
    bool named = false;
    bool comma = false;
    bool separated = false; // the last one was a separator, and a part must follow
    while (parts.size() < 3 && !AtEnd() && !AtTime() && !AtCommaAndTime()) {
        const Token &token = m_tokens[m_at];
        if (token.kind == Token::Kind::Separator) {
            if (separated || parts.empty() || !(token.Is(u'/') || token.Is(u'-') || token.Is(u',')))
                return std::nullopt;
            separated = true;
            comma = comma || token.Is(u',');
        } else {
            named = named || token.kind == Token::Kind::Word;
            parts.push_back(token);
            separated = false;
        }
        ++m_at;
    }
    if (parts.size() < 2 || separated || (comma && !named))
        return std::nullopt;
    return named ? NamedDate(parts, currentYear) : NumberedDate(parts, currentYear);
}

QString TimeText(qint64 secondOfDay)
{
    const qint64 hour = secondOfDay / 3600;
    const auto twoDigits = [](qint64 n) { return QString::number(n).rightJustified(2, u'0'); };
    return QString::number((hour + 11) % 12 + 1) + u':' + twoDigits(secondOfDay / 60 % 60) + u':'
         + twoDigits(secondOfDay % 60) + (hour < 12 ? " AM"_L1 : " PM"_L1);
}

} // namespace

std::optional<Moment> ParseDateTime(QStringView text, int currentYear)
{
    const std::optional<DateTimeTokens> tokens = TokenizeDateTime(text);
    if (!tokens || tokens->empty())
        return std::nullopt;

    Reader reader(*tokens);
    std::optional<int> time;
    if (reader.AtTime() && !(time = reader.ReadTime()))
        return std::nullopt;
    if (time && reader.AtEnd())
        return Moment{*time};

    const std::optional<QDate> date = reader.ReadDate(currentYear);
    if (!date)
        return std::nullopt;
    if (reader.AtCommaAndTime())
        reader.SkipComma();
    if (!time && reader.AtTime() && !(time = reader.ReadTime()))
        return std::nullopt;
    if (!reader.AtEnd())
        return std::nullopt;
    return Moment{(date->toJulianDay() - kFirstJulianDay) * kSecondsPerDay + time.value_or(0)};
}

bool IsWritable(Moment moment)
{
    static const qint64 first = QDate(1, 1, 1).toJulianDay() - kFirstJulianDay;
    static const qint64 end = QDate(9999, 12, 31).toJulianDay() - kFirstJulianDay + 1;
    return moment.seconds >= first * kSecondsPerDay && moment.seconds < end * kSecondsPerDay;
}

QString DateTimeText(Moment moment)
{
    qint64 second = moment.seconds % kSecondsPerDay;
    if (second < 0)
        second += kSecondsPerDay;
    const qint64 day = (moment.seconds - second) / kSecondsPerDay;
    if (day == 0)
        return TimeText(second);

    const QDate date = QDate::fromJulianDay(kFirstJulianDay + day);
    const QString text = QString::number(date.month()) + u'/' + QString::number(date.day()) + u'/'
                       + QString::number(date.year()).rightJustified(kMostDigits, u'0');
    return second == 0 ? text : text + u' ' + TimeText(second);
}

Moment ToMoment(const QDateTime &dateTime)
{
    const qint64 milliseconds = dateTime.time().msecsSinceStartOfDay();
    const qint64 day = dateTime.date().toJulianDay() - kFirstJulianDay;
    return Moment{day * kSecondsPerDay + milliseconds / 1000};
}
