#include "net/reply_headers.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::seconds kLongestPause = 1h;

// Larger counts of seconds become this one: 68 years are as good as for ever, and no sum overflows.
constexpr qint64 kMostSeconds = 2147483648;

constexpr qsizetype kLongestDate = 40; // the longest form has 33 characters

constexpr std::array<QByteArrayView, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

bool IsDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// The number in `text`, which must be digits only; at most kMostSeconds.
std::optional<qint64> Digits(QByteArrayView text)
{
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), IsDigit))
        return std::nullopt;
    qint64 value = 0;
    for (const char digit : text)
        value = std::min(value * 10 + (digit - '0'), kMostSeconds);
    return value;
}

/// The parts of `text` between blanks, commas and hyphens.
std::vector<QByteArrayView> Words(QByteArrayView text)
{
    constexpr QByteArrayView kBetween = " \t,-";
    std::vector<QByteArrayView> words;
    while (!text.isEmpty()) {
        const auto *const end = std::find_if(text.begin(), text.end(),
                                             [&](char byte) { return kBetween.contains(byte); });
        const qsizetype size = end - text.begin();
        if (size > 0)
            words.push_back(text.first(size));
        text = text.sliced(std::min(size + 1, text.size()));
    }
    return words;
}

/// A time such as "08:49:37"; invalid if it is none.
QTime TimeOf(QByteArrayView text)
{
    if (text.size() != 8 || text[2] != ':' || text[5] != ':')
        return {};
    const auto hour = Digits(text.first(2));
    const auto minute = Digits(text.sliced(3, 2));
    const auto second = Digits(text.sliced(6));
    return hour && minute && second ? QTime(int(*hour), int(*minute), int(*second)) : QTime();
}

struct DateWords
{
    QByteArrayView day = {};
    QByteArrayView month = {};
    QByteArrayView year = {};
    QByteArrayView time = {};
};

std::optional<QDateTime> MomentOf(const DateWords &words, const QDateTime &now)
{
    const auto *const month = std::find(kMonths.begin(), kMonths.end(), words.month);
    const auto day = words.day.size() <= 2 ? Digits(words.day) : std::nullopt;
    const bool isShort = words.year.size() == 2;
    auto year = isShort || words.year.size() == 4 ? Digits(words.year) : std::nullopt;
    if (month == kMonths.end() || !day || !year)
        return std::nullopt;

    if (isShort) { // no more than fifty years ahead
        const int thisYear = now.toUTC().date().year();
        *year += thisYear - thisYear % 100;
        if (*year > thisYear + 50)
            *year -= 100;
    }
    const QDate date(int(*year), int(month - kMonths.begin()) + 1, int(*day));
    const QTime time = TimeOf(words.time);
    return date.isValid() && time.isValid() ? std::optional(QDateTime(date, time, Qt::UTC))
                                            : std::nullopt;
}

/// A date in one of HTTP's three forms. The day of the week is ignored.
std::optional<QDateTime> HttpDate(QByteArrayView text, const QDateTime &now)
{
    if (text.size() > kLongestDate)
        return std::nullopt;
    const std::vector<QByteArrayView> words = Words(text);
    // "Sun, 06 Nov 1994 08:49:37 GMT" and "Sunday, 06-Nov-94 08:49:37 GMT"
    if (words.size() == 6 && (words[5] == "GMT" || words[5] == "UTC"))
        return MomentOf({.day = words[1], .month = words[2], .year = words[3], .time = words[4]},
                        now);
    // "Sun Nov  6 08:49:37 1994"
    if (words.size() == 5)
        return MomentOf({.day = words[2], .month = words[1], .year = words[4], .time = words[3]},
                        now);
    return std::nullopt;
}

/// Removes the first directive from `rest`, up to a comma that is not inside quotes, and returns
/// it.
QByteArrayView NextDirective(QByteArrayView &rest)
{
    bool isQuoted = false;
    qsizetype end = 0;
    for (; end < rest.size() && (isQuoted || rest[end] != ','); ++end) {
        if (rest[end] == '"')
            isQuoted = !isQuoted;
        else if (isQuoted && rest[end] == '\\')
            ++end;
    }
    end = std::min(end, rest.size()); // a backslash may be the last byte
    const QByteArrayView directive = rest.first(end).trimmed();
    rest = rest.sliced(std::min(end + 1, rest.size()));
    return directive;
}

QByteArrayView WithoutQuotes(QByteArrayView text)
{
    const bool isQuoted = text.size() >= 2 && text.startsWith('"') && text.endsWith('"');
    return isQuoted ? text.sliced(1, text.size() - 2) : text;
}

bool IsNamed(QByteArrayView directive, QByteArrayView name)
{
    return directive.compare(name, Qt::CaseInsensitive) == 0;
}

/// What a Cache-Control header says.
struct Caching
{
    bool isForbidden = false;
    bool isLimited = false;            ///< It has a max-age, readable or not.
    std::optional<qint64> maxAge = {}; ///< The first one's seconds.
};

Caching CachingOf(QByteArrayView cacheControl)
{
    Caching caching;
    while (!cacheControl.isEmpty()) {
        const QByteArrayView directive = NextDirective(cacheControl);
        const qsizetype equals = directive.indexOf('=');
        const QByteArrayView name =
            directive.first(equals < 0 ? directive.size() : equals).trimmed();
        if (IsNamed(name, "no-store") || IsNamed(name, "no-cache"))
            caching.isForbidden = true;
        if (!IsNamed(name, "max-age") || caching.isLimited)
            continue;
        caching.isLimited = true;
        if (equals >= 0)
            caching.maxAge = Digits(WithoutQuotes(directive.sliced(equals + 1).trimmed()));
    }
    return caching;
}

} // namespace

std::optional<std::chrono::seconds> RetryAfter(QByteArrayView text, const QDateTime &now)
{
    text = text.trimmed();
    if (const auto seconds = Digits(text))
        return std::min(std::chrono::seconds(*seconds), kLongestPause);
    const auto date = HttpDate(text, now);
    if (!date)
        return std::nullopt;
    // Rounded up: a moment too early would waste a request.
    const auto wait =
        std::chrono::ceil<std::chrono::seconds>(std::chrono::milliseconds(now.msecsTo(*date)));
    return std::clamp(wait, std::chrono::seconds(0), kLongestPause);
}

std::optional<QDateTime> FreshUntil(const ReplyHeaders &headers, const QDateTime &now)
{
    const Caching caching = CachingOf(headers.cacheControl);
    if (caching.isForbidden)
        return std::nullopt;
    if (!caching.isLimited)
        return HttpDate(QByteArrayView(headers.expires).trimmed(), now);
    if (!caching.maxAge)
        return std::nullopt;
    const qint64 age = Digits(QByteArrayView(headers.age).trimmed()).value_or(0);
    return now.toUTC().addSecs(*caching.maxAge - age);
}

void ApplyHeaders(const ReplyHeaders &headers, const QDateTime &now, Reply &reply)
{
    constexpr int kNotModified = 304;
    if (reply.error != 0)
        reply.retryAfter = RetryAfter(headers.retryAfter, now);
    if (reply.error != 0 && reply.status != kNotModified)
        return; // nobody needs the version of an error page
    // Latin-1 maps each byte to one character, so a later request sends the same bytes back.
    reply.validators = {.eTag = QString::fromLatin1(headers.eTag),
                        .lastModified = QString::fromLatin1(headers.lastModified)};
    reply.freshUntil = FreshUntil(headers, now);
}
