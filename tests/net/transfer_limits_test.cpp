#include "support/gzip.h"
#include "transfer_support.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

using namespace std::chrono_literals;

namespace {

constexpr size_t kLimit = 16777216; // 16 MiB

Outcome GetPacked(const std::string &body, const TransferOptions &options = {},
                  const std::string &encoding = "gzip")
{
    return GetScripted(Replies(body, "Content-Encoding: " + encoding + "\r\n"), options);
}

// --- size

TEST(TransferLimits, TakesABodyOfExactlyTheLimit)
{
    const std::string body(kLimit, 'x');

    const Outcome outcome = GetScripted(Replies(body));

    EXPECT_EQ(outcome.result, 1) << outcome.error.toStdString();
    EXPECT_EQ(outcome.text.size(), 16777216);
    EXPECT_EQ(outcome.text.count(u'x'), 16777216);
}

TEST(TransferLimits, RefusesOneByteMore)
{
    const std::string body(kLimit + 1, 'x');

    ExpectFailed(GetScripted(Replies(body)), "Maximum file size exceeded");
}

TEST(TransferLimits, CountsChunksToo)
{
    const TransferOptions options = {.bodyLimit = 7};
    const auto script = [](const std::string &last) {
        return [last](Connection &connection, const std::string &) {
            connection.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nTEMP\r\n");
            connection.Send(last);
        };
    };

    ExpectReceived(GetScripted(script("3\r\n 21\r\n0\r\n\r\n"), options), u"TEMP 21");
    ExpectFailed(GetScripted(script("4\r\n 21C\r\n0\r\n\r\n"), options));
}

TEST(TransferLimits, RefusesAHeadWithoutEnd)
{
    ExpectFailed(GetScripted([](Connection &connection, const std::string &) {
                     connection.Send("HTTP/1.1 200 OK\r\n");
                     const std::string line = "X-Filler: " + std::string(1000, 'x') + "\r\n";
                     while (connection.Send(line)) {
                     }
                 }),
                 "Maximum file size exceeded");
}

TEST(TransferLimits, EndsAnErrorPageWithoutEnd)
{
    ExpectFailed(GetScripted([](Connection &connection, const std::string &) {
                     connection.Send("HTTP/1.1 500 Internal Server Error\r\n\r\n");
                     const std::string block(65536, 'x');
                     while (connection.Send(block)) {
                     }
                 }),
                 "HTTP 500");
}

// --- gzip

TEST(TransferLimits, UnpacksGzip)
{
    ExpectReceived(GetPacked(Gzip("TEMP 21 C")), u"TEMP 21 C");
    ExpectReceived(GetPacked(Gzip("TEMP 21 C"), {}, "X-GZIP"), u"TEMP 21 C");
    ExpectReceived(GetPacked(Gzip("")), u"");
    ExpectReceived(GetPacked(""), u"");
    ExpectReceived(GetPacked("plain", {}, "identity"), u"plain");
}

TEST(TransferLimits, UnpacksGzipThatComesInSmallPieces)
{
    const std::string packed = Gzip("TEMP 21 C");

    ExpectReceived(GetScripted([&packed](Connection &connection, const std::string &) {
                       connection.Send("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n"
                                       "Transfer-Encoding: chunked\r\n\r\n");
                       for (const char byte : packed)
                           connection.Send("1\r\n" + std::string(1, byte) + "\r\n");
                       connection.Send("0\r\n\r\n");
                   }),
                   u"TEMP 21 C");
}

TEST(TransferLimits, PutsGzipMembersTogetherAndIgnoresWhatIsNone)
{
    ExpectReceived(GetPacked(Gzip("TEMP ") + Gzip("21 C")), u"TEMP 21 C");
    ExpectReceived(GetPacked(Gzip("TEMP 21 C") + std::string(20, '\0')), u"TEMP 21 C");
}

TEST(TransferLimits, FailsForGzipThatBreaksOff)
{
    const std::string packed = Gzip("TEMP 21 C");
    for (size_t size = 1; size < packed.size(); ++size) {
        SCOPED_TRACE(size);
        ExpectFailed(GetPacked(packed.substr(0, size)),
                     "Unrecognized or bad HTTP Content or Transfer-Encoding");
    }
}

TEST(TransferLimits, FailsForBrokenGzip)
{
    std::string packed = Gzip("TEMP 21 C");
    packed[packed.size() - 5] ^= 1; // a bit of the checksum

    ExpectFailed(GetPacked(packed));
    ExpectFailed(GetPacked("no gzip at all"));
}

TEST(TransferLimits, FailsForAnEncodingThatWasNotAskedFor)
{
    ExpectFailed(GetPacked("x", {}, "br"));
    ExpectFailed(GetPacked(Gzip(Gzip("x")), {}, "gzip, gzip"));
    ExpectFailed(GetPacked(Gzip("x"), {}, "gzip\r\nContent-Encoding: gzip"));
}

TEST(TransferLimits, CountsTheBodyAfterUnpacking)
{
    const TransferOptions options = {.bodyLimit = 100000};

    const Outcome whole = GetPacked(Gzip(std::string(100000, 'x')), options);
    EXPECT_EQ(whole.result, 1) << whole.error.toStdString();
    EXPECT_EQ(whole.text, QString(100000, u'x'));

    ExpectFailed(GetPacked(Gzip(std::string(100001, 'x')), options), "Maximum file size exceeded");
}

TEST(TransferLimits, StopsAGzipBomb)
{
    const std::string bomb = Gzip(std::string(4 * kLimit, '\0'));

    ExpectFailed(GetPacked(bomb), "Maximum file size exceeded");
}

// --- time

TEST(TransferLimits, GivesUpAServerThatSaysNothing)
{
    ExpectFailed(GetScripted(Hold, {.idleTimeout = 50ms}), "No data received for 50 milliseconds");
}

TEST(TransferLimits, GivesUpAServerThatStopsInTheHead)
{
    ExpectFailed(GetScripted(
                     [](Connection &connection, const std::string &) {
                         connection.Send("HTTP/1.1 200 OK\r\nContent-Len");
                         connection.Hold();
                     },
                     {.idleTimeout = 50ms}),
                 "No data received for 50 milliseconds");
}

TEST(TransferLimits, GivesUpAServerThatStopsInTheBody)
{
    ExpectFailed(GetScripted(
                     [](Connection &connection, const std::string &) {
                         connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nTEMP 2");
                         connection.Hold();
                     },
                     {.idleTimeout = 50ms}),
                 "No data received for 50 milliseconds");
}

TEST(TransferLimits, WaitsForASlowServerThatGoesOn)
{
    // The whole reply takes longer than the idle time, but no gap in it does.
    ExpectReceived(GetScripted(
                       [](Connection &connection, const std::string &) {
                           connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n");
                           for (int i = 0; i < 20; ++i) {
                               connection.Pause(50);
                               connection.Send("x");
                           }
                       },
                       {.idleTimeout = 900ms}),
                   u"xxxxxxxxxxxxxxxxxxxx");
}

TEST(TransferLimits, GivesUpAServerThatNeverComesToAnEnd)
{
    const Outcome outcome = GetScripted(
        [](Connection &connection, const std::string &) {
            connection.Send("HTTP/1.1 200 OK\r\n\r\n");
            while (connection.IsOpen()) {
                connection.Pause(5);
                connection.Send("x");
            }
        },
        {.totalTimeout = 200ms});

    ExpectFailed(outcome);
    EXPECT_TRUE(outcome.error.contains("timed out")) << outcome.error.toStdString();
}

TEST(TransferLimits, CountsRedirectsIntoTheWholeTime)
{
    const auto begin = std::chrono::steady_clock::now();

    ExpectFailed(GetScripted(
        [](Connection &connection, const std::string &) {
            connection.Pause(150);
            connection.Redirect("/");
        },
        {.totalTimeout = 400ms, .maxRedirects = 1000}));

    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

/// A listener whose queue is full: the system answers no further connection.
class FullListener
{
public:
    FullListener() : m_listener(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto *const plain = reinterpret_cast<sockaddr *>(&address);
        EXPECT_EQ(bind(m_listener, plain, size), 0);
        EXPECT_EQ(listen(m_listener, 0), 0);
        EXPECT_EQ(getsockname(m_listener, plain, &size), 0);
        port = ntohs(address.sin_port);
        for (int &waiting : m_waiting) {
            waiting = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            // The first ones are queued, the rest wait like any other: the result says nothing.
            [[maybe_unused]] const int result = connect(waiting, plain, size);
        }
    }
    ~FullListener()
    {
        for (const int waiting : m_waiting)
            close(waiting);
        close(m_listener);
    }
    Q_DISABLE_COPY_MOVE(FullListener)

    int port = 0;

private:
    int m_listener;
    std::array<int, 4> m_waiting = {};
};

TEST(TransferLimits, GivesUpAServerThatAcceptsNobody)
{
    const FullListener listener;

    const Outcome outcome =
        Get("http://127.0.0.1:" + std::to_string(listener.port) + "/", {.connectTimeout = 100ms});

    ExpectFailed(outcome);
    EXPECT_TRUE(outcome.error.contains("timed out", Qt::CaseInsensitive)
                || outcome.error.contains("timeout", Qt::CaseInsensitive))
        << outcome.error.toStdString();
}

} // namespace
