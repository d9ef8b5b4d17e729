#include "fuzz_input.h"
#include "net/reply_headers.h"

#include <algorithm>

namespace {

using namespace std::chrono_literals;

const QDateTime kNow(QDate(2026, 11, 21), QTime(19, 5), Qt::UTC);

/// Only digits, except for blanks at the ends.
bool IsCount(const QByteArray &text)
{
    const QByteArray digits = text.trimmed();
    return !digits.isEmpty()
        && std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// At most `most`; a number beyond 64 bits counts as that.
qint64 CountOf(const QByteArray &text, qint64 most)
{
    bool fits = false;
    const qint64 count = text.trimmed().toLongLong(&fits);
    return fits ? std::min(count, most) : most;
}

void CheckWait(const QByteArray &text)
{
    const auto wait = RetryAfter(text, kNow);

    Demand(!wait || (*wait >= 0s && *wait <= 1h), "never less than nothing, never above an hour");
    if (IsCount(text))
        Demand(wait == std::chrono::seconds(CountOf(text, 3600)), "the plain version's seconds");
    else if (wait)
        Demand(FreshUntil({.expires = text}, kNow).has_value(), "else a date");
}

void CheckFreshness(const ReplyHeaders &headers)
{
    constexpr qint64 kMost = 2147483648;
    const auto until = FreshUntil(headers, kNow);
    if (until)
        Demand(until->isValid() && until->timeSpec() == Qt::UTC, "a moment in UTC");

    ReplyHeaders forbidden = headers;
    forbidden.cacheControl.prepend("no-store,");
    Demand(!FreshUntil(forbidden, kNow), "what may not be kept is never fresh");

    if (headers.age.contains(',') || headers.age.contains('"'))
        return; // more than one value
    const auto limited = FreshUntil({.cacheControl = "max-age=" + headers.age}, kNow);
    Demand(limited.has_value() == IsCount(headers.age), "an age is digits alone");
    if (limited)
        Demand(kNow.secsTo(*limited) == CountOf(headers.age, kMost), "the plain version's moment");
}

} // namespace

// The contract: whatever the headers hold, a wait is between nothing and an hour, and a moment is
// in UTC.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const ReplyHeaders headers{.retryAfter = input.Line(),
                               .cacheControl = input.Line(),
                               .age = input.Line(),
                               .expires = input.Line()};

    CheckWait(headers.retryAfter);
    CheckWait(headers.expires);
    CheckFreshness(headers);
    return 0;
}
