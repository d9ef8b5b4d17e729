#include "support/gzip.h"
#include "transfer_support.h"

using namespace std::chrono_literals;

namespace {

/// The reply of a server that sends `bytes` and ends the connection.
Reply ReplyTo(const std::string &bytes)
{
    return GetScripted(SendsAndCloses(bytes)).reply;
}

Reply ReplyWith(const std::string &headers, const std::string &status = "200 OK")
{
    return ReplyTo("HTTP/1.1 " + status + "\r\nContent-Length: 2\r\n" + headers + "\r\nhi");
}

// --- complete

struct EndCase
{
    const char *name = "";
    std::string sent = {};
    bool complete = false;
    const char *text = "TEMP 21";
};

void PrintTo(const EndCase &c, std::ostream *out)
{
    *out << c.name;
}

class ReplyEnd : public testing::TestWithParam<EndCase>
{
};

TEST_P(ReplyEnd, IsCompleteWhenSomethingMarkedIt)
{
    const Reply reply = ReplyTo("HTTP/1.1 200 OK\r\n" + GetParam().sent);

    EXPECT_EQ(reply.error, 0) << reply.errorText.toStdString();
    EXPECT_EQ(reply.text, GetParam().text);
    EXPECT_EQ(reply.complete, GetParam().complete);
}

const std::string kChunks = "7\r\nTEMP 21\r\n0\r\n\r\n";

const EndCase kEnds[] = {
    {.name = "Length", .sent = "Content-Length: 7\r\n\r\nTEMP 21", .complete = true},
    {.name = "LengthZero", .sent = "Content-Length: 0\r\n\r\n", .complete = true, .text = ""},
    {.name = "LastChunk", .sent = "Transfer-Encoding: chunked\r\n\r\n" + kChunks, .complete = true},
    {.name = "LastChunkInCapitals",
     .sent = "TRANSFER-ENCODING:  Chunked \r\n\r\n" + kChunks,
     .complete = true},
    {.name = "Gzip", .sent = "Content-Encoding: gzip\r\n\r\n" + Gzip("TEMP 21"), .complete = true},
    {.name = "GzipWithoutAByte", .sent = "Content-Encoding: gzip\r\n\r\n", .text = ""},
    {.name = "Connection", .sent = "\r\nTEMP 21"},
    {.name = "ConnectionThatSaysSo", .sent = "Connection: close\r\n\r\nTEMP 21"},
    {.name = "ConnectionAtOnce", .sent = "\r\n", .text = ""},
    {.name = "LengthThatIsTooLarge", .sent = "Content-Length: 99999999999999999999\r\n\r\nTEMP 21"},
    {.name = "LengthInAnotherHeader", .sent = "X-Content-Length: 7\r\n\r\nTEMP 21"},
};

INSTANTIATE_TEST_SUITE_P(Table, ReplyEnd, testing::ValuesIn(kEnds),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ReplyFields, AreCompleteForAStatusThatHasNoBody)
{
    const Reply reply = ReplyTo("HTTP/1.1 204 No Content\r\n\r\n");

    EXPECT_EQ(reply.error, 0);
    EXPECT_EQ(reply.status, 204);
    EXPECT_TRUE(reply.complete);
}

TEST(ReplyFields, KnowTheEndOfTheLastReplyAlone)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        if (head.find("GET /old ") == 0) {
            connection.Redirect("/new"); // with a length
        } else {
            connection.Send("HTTP/1.1 200 OK\r\n\r\nTEMP 21");
            connection.CloseAfterwards();
        }
    });

    EXPECT_FALSE(Get(server.Url("/old")).reply.complete);
}

// --- status

TEST(ReplyFields, NameTheStatusOfTheLastAnswer)
{
    EXPECT_EQ(ReplyWith("").status, 200);
    EXPECT_EQ(ReplyWith("", "201 Created").status, 201);
    EXPECT_EQ(ReplyWith("", "404 Not Found").status, 404);
    EXPECT_EQ(ReplyWith("", "302 Found").status, 302);
    EXPECT_EQ(ReplyWith("Location: ftp://127.0.0.1/\r\n", "301 Moved").status, 301);
    EXPECT_EQ(ReplyTo("HTTP/1.1 103 Early Hints\r\n\r\nHTTP/1.1 404 Gone\r\n\r\n").status, 404);
}

TEST(ReplyFields, HaveNoStatusWithoutAnAnswer)
{
    EXPECT_EQ(ReplyTo("").status, 0);
    EXPECT_EQ(Get("http://127.0.0.1:1/").reply.status, 0);
}

TEST(ReplyFields, KeepTheStatusOfTheRedirectWhenNoAnswerFollowsIt)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        if (head.find("GET /old ") == 0)
            connection.Redirect("/silent");
        else
            connection.CloseAfterwards();
    });

    const Reply reply = Get(server.Url("/old")).reply;

    EXPECT_EQ(reply.error, 52);
    EXPECT_EQ(reply.status, 301);
}

TEST(ReplyFields, KeepTheStatusOfABodyThatBreaksOff)
{
    const Reply reply = ReplyTo("HTTP/1.1 200 OK\r\nContent-Length: 100\r\nETag: \"a\"\r\n\r\nTEM");

    EXPECT_EQ(reply.error, 18);
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.validators.eTag, "");
}

TEST(ReplyFields, KeepTheStatusOfAServerThatFallsSilent)
{
    const Outcome outcome = GetScripted(
        [](Connection &connection, const std::string &) {
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nTEM");
            connection.Hold();
        },
        {.idleTimeout = 50ms});

    EXPECT_EQ(outcome.reply.error, 28);
    EXPECT_EQ(outcome.reply.status, 200);
}

// --- took

TEST(ReplyFields, TookAsLongAsAllAnswersTogether)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        connection.Pause(60);
        if (head.find("GET /old ") == 0)
            connection.Redirect("/new");
        else
            connection.Reply("arrived");
    });
    CurlTransfers transfers;

    const auto begin = std::chrono::steady_clock::now();
    const Outcome outcome = GetFrom(transfers, server.Url("/old"));
    const auto passed = std::chrono::steady_clock::now() - begin;

    ExpectReceived(outcome, u"arrived");
    EXPECT_GE(outcome.reply.took, 120ms);
    EXPECT_LE(outcome.reply.took, passed);
}

TEST(ReplyFields, TookUntilTheTimeOut)
{
    const Outcome outcome = GetScripted(Hold, {.idleTimeout = 50ms});

    EXPECT_GE(outcome.reply.took, 50ms);
    EXPECT_LT(outcome.reply.took, 10s);
}

// --- retryAfter

TEST(ReplyFields, SayHowLongAFailedServiceWantsToBeLeftAlone)
{
    for (const char *status : {"429 Too Many Requests", "503 Service Unavailable", "404 Not Found"})
        EXPECT_EQ(ReplyWith("Retry-After: 120\r\n", status).retryAfter, 120s) << status;
    EXPECT_EQ(ReplyWith("Retry-After: 86400\r\n", "503 Busy").retryAfter, 1h);
    EXPECT_EQ(ReplyWith("Retry-After: Fri, 31 Dec 9999 23:59:59 GMT\r\n", "503 Busy").retryAfter,
              1h);
    EXPECT_EQ(ReplyWith("Retry-After: Sun, 06 Nov 1994 08:49:37 GMT\r\n", "503 Busy").retryAfter,
              0s);
    EXPECT_EQ(ReplyWith("Retry-After: 7\r\nRetry-After: 8\r\n", "503 Busy").retryAfter, 7s);
}

TEST(ReplyFields, SayNothingOfWaitingWhenNothingReadableWasSent)
{
    EXPECT_EQ(ReplyWith("", "503 Busy").retryAfter, std::nullopt);
    EXPECT_EQ(ReplyWith("Retry-After: later\r\n", "503 Busy").retryAfter, std::nullopt);
    EXPECT_EQ(ReplyWith("Retry-After: 120\r\n").retryAfter, std::nullopt) << "it was received";
}

TEST(ReplyFields, TakeNoWaitFromARedirect)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        if (head.find("GET /old ") == 0)
            connection.Reply("", "Retry-After: 9\r\nLocation: /new\r\n", "302 Found");
        else if (head.find("GET /new ") == 0)
            connection.Reply("", {}, "503 Busy");
        else
            connection.Reply("", "Retry-After: 9\r\nLocation: ftp://127.0.0.1/\r\n", "302 Found");
    });

    EXPECT_EQ(Get(server.Url("/old")).reply.retryAfter, std::nullopt);
    EXPECT_EQ(Get(server.Url("/refused")).reply.retryAfter, std::nullopt);
}

// --- validators

TEST(ReplyFields, HoldTheVersionExactlyAsSent)
{
    const Reply reply = ReplyWith("ETag: W/\"\xE4 b\"\r\n"
                                  "Last-Modified: Sat, 21 Nov 2026 18:54:00 GMT\r\n");

    EXPECT_EQ(reply.validators.eTag, u"W/\"\u00E4 b\"");
    EXPECT_EQ(reply.validators.lastModified, "Sat, 21 Nov 2026 18:54:00 GMT");
}

TEST(ReplyFields, HoldNoVersionThatWasNotSent)
{
    const Reply reply = ReplyWith("");

    EXPECT_EQ(reply.validators.eTag, "");
    EXPECT_EQ(reply.validators.lastModified, "");
    EXPECT_EQ(reply.freshUntil, std::nullopt);
}

TEST(ReplyFields, HoldWhatTheLastAnswerSaysAlone)
{
    const std::string version =
        "ETag: \"old\"\r\nLast-Modified: old\r\nExpires: Sun, 06 Nov 1994 08:49:37 GMT\r\n";
    const LoopbackServer server([&version](Connection &connection, const std::string &head) {
        if (head.find("GET /old ") == 0) {
            connection.Reply("", version + "Location: /new\r\n", "302 Found");
        } else {
            connection.Send("HTTP/1.1 103 Early Hints\r\n" + version + "\r\n");
            connection.Reply("new");
        }
    });

    const Reply reply = Get(server.Url("/old")).reply;

    EXPECT_EQ(reply.text, "new");
    EXPECT_EQ(reply.validators.eTag, "");
    EXPECT_EQ(reply.validators.lastModified, "");
    EXPECT_EQ(reply.freshUntil, std::nullopt);
}

// --- freshUntil

TEST(ReplyFields, SayUntilWhenTheReplyIsFresh)
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const Reply reply = ReplyWith("Cache-Control: public\r\nCache-Control: max-age=600\r\n"
                                  "Age: 100\r\nExpires: Sun, 06 Nov 1994 08:49:37 GMT\r\n");
    const QDateTime after = QDateTime::currentDateTimeUtc();

    ASSERT_TRUE(reply.freshUntil);
    EXPECT_GE(*reply.freshUntil, before.addSecs(500));
    EXPECT_LE(*reply.freshUntil, after.addSecs(500));
    EXPECT_EQ(ReplyWith("Expires: Sun, 06 Nov 1994 08:49:37 GMT\r\n").freshUntil,
              QDateTime(QDate(1994, 11, 6), QTime(8, 49, 37), Qt::UTC));
    EXPECT_EQ(ReplyWith("Cache-Control: max-age=60\r\nCache-Control: no-store\r\n").freshUntil,
              std::nullopt);
}

TEST(ReplyFields, SurviveAHeadFullOfNonsense)
{
    std::string lines;
    for (int i = 0; i < 3000; ++i)
        lines += "Cache-Control: max-age=\"\\,=\r\n";
    const auto begin = std::chrono::steady_clock::now();

    const Reply received = ReplyWith(lines + "Age: " + std::string(90000, '9') + "\r\n");
    const Reply failed =
        ReplyWith(lines + "Retry-After: " + std::string(90000, '9') + "\r\n", "503 Busy");

    EXPECT_EQ(received.error, 0) << received.errorText.toStdString();
    EXPECT_EQ(received.freshUntil, std::nullopt);
    EXPECT_EQ(failed.error, 503);
    EXPECT_EQ(failed.retryAfter, 1h);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

} // namespace
