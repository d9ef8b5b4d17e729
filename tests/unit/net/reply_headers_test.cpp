#include "net/reply_headers.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::chrono_literals;

namespace {

const QDateTime kNow(QDate(2026, 11, 21), QTime(19, 5, 0), Qt::UTC); // a Saturday

QDateTime Utc(int year, int month, int day, int hour, int minute, int second)
{
    return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

// --- Retry-After

struct WaitCase
{
    const char *text = "";
    std::optional<std::chrono::seconds> wait = {};
};

TEST(RetryAfter, TakesSecondsUpToAnHour)
{
    for (const auto &[text, wait] :
         {WaitCase{"0", 0s}, WaitCase{"1", 1s}, WaitCase{"0120", 120s}, WaitCase{" 120\t", 120s},
          WaitCase{"3599", 3599s}, WaitCase{"3600", 1h}, WaitCase{"3601", 1h},
          WaitCase{"2147483648", 1h}, WaitCase{"9223372036854775807", 1h},
          WaitCase{"9223372036854775808", 1h},
          WaitCase{"99999999999999999999999999999999999999999", 1h}})
        EXPECT_EQ(RetryAfter(text, kNow), wait) << text;
}

TEST(RetryAfter, TakesTheTimeToADate)
{
    for (const auto &[text, wait] :
         {WaitCase{"Sat, 21 Nov 2026 19:06:30 GMT", 90s},
          WaitCase{"Saturday, 21-Nov-26 19:06:30 GMT", 90s},
          WaitCase{"Sat Nov 21 19:06:30 2026", 90s}, WaitCase{"Sat, 21 Nov 2026 19:05:00 GMT", 0s},
          WaitCase{"Sat, 21 Nov 2026 19:04:59 GMT", 0s},
          WaitCase{"Thu, 01 Jan 1970 00:00:00 GMT", 0s},
          WaitCase{"Sat, 21 Nov 2026 20:05:00 GMT", 1h},
          WaitCase{"Sat, 21 Nov 2026 20:05:01 GMT", 1h},
          WaitCase{"Fri, 31 Dec 9999 23:59:59 GMT", 1h}})
        EXPECT_EQ(RetryAfter(text, kNow), wait) << text;
}

TEST(RetryAfter, RoundsTheTimeToADateUp)
{
    EXPECT_EQ(RetryAfter("Sat, 21 Nov 2026 19:05:10 GMT", kNow.addMSecs(1)), 10s);
    EXPECT_EQ(RetryAfter("Sat, 21 Nov 2026 19:05:10 GMT", kNow.addMSecs(999)), 10s);
    EXPECT_EQ(RetryAfter("Sat, 21 Nov 2026 19:05:10 GMT", kNow.addMSecs(1000)), 9s);
}

TEST(RetryAfter, CountsFromNowInAnyTimeZone)
{
    const QDateTime inNewYork = kNow.toOffsetFromUtc(-5 * 3600);

    EXPECT_EQ(RetryAfter("Sat, 21 Nov 2026 19:06:30 GMT", inNewYork), 90s);
}

TEST(RetryAfter, IsNothingForOtherTexts)
{
    for (const char *text :
         {"", " ", "-1", "+5", "1.5", "1e3", "0x10", "120 s", "120, 240", "soon", ",", "-", "GMT",
          "Sat, 21 Nov 2026 19:06:30", "Sat, 21 Nov 2026 19:06:30 EST",
          "Sat, 21 Nov 2026 19:06:30 +0100", "Sat, 21 Nov 2026 19:06:30 GMT GMT",
          "Sat, 21 nov 2026 19:06:30 GMT", "Sat, 21 Nov 26 19:06:30 2026 GMT"})
        EXPECT_EQ(RetryAfter(text, kNow), std::nullopt) << text;
    EXPECT_EQ(RetryAfter(QByteArray(300000, ' ').append('x'), kNow), std::nullopt);
    EXPECT_EQ(RetryAfter(QByteArray("\xD9\xA1\xD9\xA2", 4), kNow), std::nullopt); // Arabic 12
    EXPECT_EQ(RetryAfter(QByteArray("12\0", 3), kNow), std::nullopt);
}

// --- FreshUntil

struct FreshCase
{
    const char *name = "";
    ReplyHeaders headers = {};
    std::optional<QDateTime> until = {};
};

void PrintTo(const FreshCase &c, std::ostream *out)
{
    *out << c.name;
}

class ReplyFreshness : public testing::TestWithParam<FreshCase>
{
};

TEST_P(ReplyFreshness, IsTheMomentInUtc)
{
    const auto until = FreshUntil(GetParam().headers, kNow);

    EXPECT_EQ(until, GetParam().until);
    EXPECT_TRUE(!until || until->timeSpec() == Qt::UTC);
}

const QByteArray kLater = "Sat, 21 Nov 2026 21:00:00 GMT";
const std::optional<QDateTime> kNothing;

const FreshCase kFreshCases[] = {
    {.name = "NothingSaid", .until = kNothing},
    {.name = "MaxAge",
     .headers = {.cacheControl = "max-age=600"},
     .until = Utc(2026, 11, 21, 19, 15, 0)},
    {.name = "MaxAgeLessAge",
     .headers = {.cacheControl = "public, max-age=600", .age = " 540 "},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "OlderThanItsMaxAge",
     .headers = {.cacheControl = "max-age=600", .age = "660"},
     .until = Utc(2026, 11, 21, 19, 4, 0)},
    {.name = "MaxAgeZero", .headers = {.cacheControl = "max-age=0"}, .until = kNow},
    {.name = "AgeThatIsNone",
     .headers = {.cacheControl = "max-age=60", .age = "-10"},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "BlanksAndCapitals",
     .headers = {.cacheControl = " ,, Public ,\tMAX-AGE = 60 ,"},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "Quoted",
     .headers = {.cacheControl = "max-age=\"60\""},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "TheFirstOfTwo",
     .headers = {.cacheControl = "max-age=60, max-age=600"},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "SharedCachesAlone",
     .headers = {.cacheControl = "s-maxage=60", .expires = kLater},
     .until = Utc(2026, 11, 21, 21, 0, 0)},
    {.name = "MaxAgeBeforeExpires",
     .headers = {.cacheControl = "max-age=60", .expires = kLater},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "NoStore",
     .headers = {.cacheControl = "max-age=600, no-store", .expires = kLater},
     .until = kNothing},
    {.name = "NoCache", .headers = {.cacheControl = "No-Cache", .expires = kLater}},
    {.name = "NoCacheForOneHeader",
     .headers = {.cacheControl = "no-cache=\"Set-Cookie\", max-age=60"}},
    {.name = "NoStoreInsideQuotes",
     .headers = {.cacheControl = R"(x="a\", no-store", max-age=60)"},
     .until = Utc(2026, 11, 21, 19, 6, 0)},
    {.name = "QuoteWithoutEnd", .headers = {.cacheControl = "x=\"a, max-age=60"}},
    {.name = "BackslashAtTheEnd", .headers = {.cacheControl = "x=\"a\\"}},
    {.name = "OneQuote", .headers = {.cacheControl = "max-age=\""}},
    {.name = "MaxAgeOfNothing", .headers = {.cacheControl = "max-age=", .expires = kLater}},
    {.name = "MaxAgeWithoutValue", .headers = {.cacheControl = "max-age", .expires = kLater}},
    {.name = "NegativeMaxAge", .headers = {.cacheControl = "max-age=-1", .expires = kLater}},
    {.name = "MaxAgeInWords", .headers = {.cacheControl = "max-age=hour", .expires = kLater}},
    // 2^31 seconds are 24855 days, 3 h, 14 min and 8 s.
    {.name = "MaxAgeForEver",
     .headers = {.cacheControl = "max-age=99999999999999999999"},
     .until = Utc(2094, 12, 9, 22, 19, 8)},
    {.name = "AgeForEver",
     .headers = {.cacheControl = "max-age=0", .age = "99999999999999999999"},
     .until = Utc(1958, 11, 3, 15, 50, 52)},
    {.name = "Expires", .headers = {.expires = kLater}, .until = Utc(2026, 11, 21, 21, 0, 0)},
    {.name = "ExpiredLongAgo",
     .headers = {.expires = "Sun, 06 Nov 1994 08:49:37 GMT"},
     .until = Utc(1994, 11, 6, 8, 49, 37)},
    {.name = "ExpiresAtZero", .headers = {.expires = "0"}},
    {.name = "ExpiresNever", .headers = {.expires = "never"}},
};

INSTANTIATE_TEST_SUITE_P(Table, ReplyFreshness, testing::ValuesIn(kFreshCases),
                         [](const auto &test) { return std::string(test.param.name); });

struct DateCase
{
    const char *text = "";
    QDateTime moment = {};
};

TEST(FreshUntil, ReadsTheThreeFormsOfADate)
{
    for (const auto &[text, moment] :
         {DateCase{"Sun, 06 Nov 1994 08:49:37 GMT", Utc(1994, 11, 6, 8, 49, 37)},
          DateCase{"Sunday, 06-Nov-94 08:49:37 GMT", Utc(1994, 11, 6, 8, 49, 37)},
          DateCase{"Wednesday, 09-Nov-94 08:49:37 GMT", Utc(1994, 11, 9, 8, 49, 37)},
          DateCase{"Sun Nov  6 08:49:37 1994", Utc(1994, 11, 6, 8, 49, 37)},
          DateCase{"Sun Nov 16 08:49:37 1994", Utc(1994, 11, 16, 8, 49, 37)},
          DateCase{"Sun, 06 Nov 1994 08:49:37 UTC", Utc(1994, 11, 6, 8, 49, 37)},
          DateCase{"  Thu, 29 Feb 2024 00:00:00 GMT ", Utc(2024, 2, 29, 0, 0, 0)},
          DateCase{"Fri, 31 Dec 9999 23:59:59 GMT", Utc(9999, 12, 31, 23, 59, 59)}})
        EXPECT_EQ(FreshUntil({.expires = text}, kNow), moment) << text;
}

TEST(FreshUntil, TakesTwoDigitsForAYearAtMostFiftyYearsAhead)
{
    EXPECT_EQ(FreshUntil({.expires = "Saturday, 21-Nov-76 19:05:00 GMT"}, kNow),
              Utc(2076, 11, 21, 19, 5, 0));
    EXPECT_EQ(FreshUntil({.expires = "Monday, 21-Nov-77 19:05:00 GMT"}, kNow),
              Utc(1977, 11, 21, 19, 5, 0));
    EXPECT_EQ(FreshUntil({.expires = "Sunday, 21-Nov-99 19:05:00 GMT"}, kNow),
              Utc(1999, 11, 21, 19, 5, 0));
}

TEST(FreshUntil, IsNothingForADateThatIsNone)
{
    for (const char *text : {"Sun, 31 Feb 2026 08:49:37 GMT",
                             "Sun, 00 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 24:00:00 GMT",
                             "Sun, 06 Nov 1994 08:60:37 GMT",
                             "Sun, 06 Nov 1994 08:49:60 GMT",
                             "Sun, 06 Nov 1994 8:49:37 GMT",
                             "Sun, 06 Nov 1994 08-49-37 GMT",
                             "Sun, 06 Nov 1994 -8:49:37 GMT",
                             "Sun, 006 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 0000 08:49:37 GMT",
                             "Sun, 06 Nov 19940 08:49:37 GMT",
                             "Sun, 06 Nov 994 08:49:37 GMT",
                             "Sun, 06 Now 1994 08:49:37 GMT",
                             "Sun, 06  1994 08:49:37 GMT",
                             "06 Nov 1994 08:49:37 GMT",
                             "Sun, 06 Nov 1994 08:49:37 GMT and a tail that goes on",
                             "1994-11-06T08:49:37Z",
                             "a b c d e",
                             "a b c d GMT",
                             "- - - - -",
                             ",,,,,,,,,,,"})
        EXPECT_EQ(FreshUntil({.expires = text}, kNow), std::nullopt) << text;
}

// --- ApplyHeaders

const ReplyHeaders kAll = {.retryAfter = "120",
                           .eTag = "W/\"a\xE4\"",
                           .lastModified = "Sat, 21 Nov 2026 18:54:00 GMT",
                           .cacheControl = "max-age=60",
                           .age = "",
                           .expires = ""};

TEST(ApplyHeaders, GivesAReceivedReplyItsVersionExactlyAsSent)
{
    Reply reply{.status = 200};

    ApplyHeaders(kAll, kNow, reply);

    EXPECT_EQ(reply.validators.eTag, u"W/\"a\u00E4\"");
    EXPECT_EQ(reply.validators.lastModified, "Sat, 21 Nov 2026 18:54:00 GMT");
    EXPECT_EQ(reply.freshUntil, Utc(2026, 11, 21, 19, 6, 0));
    EXPECT_EQ(reply.retryAfter, std::nullopt) << "nothing failed";
}

TEST(ApplyHeaders, GivesAFailedReplyItsWaitAlone)
{
    Reply reply{.error = 503, .status = 503};

    ApplyHeaders(kAll, kNow, reply);

    EXPECT_EQ(reply.retryAfter, 120s);
    EXPECT_EQ(reply.validators.eTag, "");
    EXPECT_EQ(reply.validators.lastModified, "");
    EXPECT_EQ(reply.freshUntil, std::nullopt);
}

TEST(ApplyHeaders, GivesAReplyThatHasNotChangedBoth)
{
    Reply reply{.error = 304, .status = 304};

    ApplyHeaders(kAll, kNow, reply);

    EXPECT_EQ(reply.retryAfter, 120s);
    EXPECT_EQ(reply.validators.eTag, u"W/\"a\u00E4\"");
    EXPECT_EQ(reply.freshUntil, Utc(2026, 11, 21, 19, 6, 0));
}

} // namespace
