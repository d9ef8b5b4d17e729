#include "transfer_support.h"

#include <array>
#include <atomic>
#include <vector>

namespace {

TEST(TransferReply, DeliversTheBody)
{
    const LoopbackServer server(Replies("TEMP 21 C\r\nWIND calm\r\n"));

    ExpectReceived(Get(server.Url("/obs?id=KBOS")), u"TEMP 21 C\r\nWIND calm\r\n");

    ASSERT_EQ(server.Heads().size(), 1U);
    EXPECT_EQ(server.Heads()[0].find("GET /obs?id=KBOS HTTP/1.1\r\n"), 0U);
}

TEST(TransferReply, SaysWhoAsksAndTakesGzip)
{
    const LoopbackServer server(Replies("x"));

    ExpectReceived(Get(server.Url()), u"x");

    const std::string head = server.Heads().at(0);
    EXPECT_NE(head.find("\r\nUser-Agent: TavrinWeatherUtility/1.0.1\r\n"), std::string::npos);
    EXPECT_NE(head.find("\r\nAccept-Encoding: gzip\r\n"), std::string::npos);
}

TEST(TransferReply, NamesTheContactOfTheEnvironmentOnOneLine)
{
    const LoopbackServer server(Replies("x"));
    qputenv("TAVRIN_CONTACT", "radio@example.org\r\nX-Injected: yes");

    const Outcome outcome = Get(server.Url());
    qunsetenv("TAVRIN_CONTACT");

    ExpectReceived(outcome, u"x");
    EXPECT_NE(
        server.Heads().at(0).find(
            "\r\nUser-Agent: TavrinWeatherUtility/1.0.1 (radio@example.orgX-Injected: yes)\r\n"),
        std::string::npos);
    EXPECT_EQ(server.Heads().at(0).find("\nX-Injected"), std::string::npos);
}

TEST(TransferReply, SendsAnAddressWithBlanksAndLettersOutsideAsciiEncoded)
{
    const LoopbackServer server(Replies("x"));

    ExpectReceived(Get(server.Url("/S\xC3\xA3o Paulo%20BR\r\nX-Injected: yes")), u"x");

    EXPECT_EQ(
        server.Heads().at(0).find("GET /S%C3%A3o%20Paulo%20BR%0D%0AX-Injected:%20yes HTTP/1.1\r\n"),
        0U);
}

TEST(TransferReply, DeliversAnEmptyBodyAsASuccess)
{
    ExpectReceived(GetScripted(Replies("")), u"");
    ExpectReceived(GetScripted([](Connection &connection, const std::string &) {
                       connection.Send("HTTP/1.1 204 No Content\r\n\r\n");
                   }),
                   u"");
}

TEST(TransferReply, PutsChunksTogether)
{
    ExpectReceived(GetScripted([](Connection &connection, const std::string &) {
                       connection.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
                       connection.Send("4\r\nTEMP\r\n");
                       connection.Send("3\r\n 21\r\n0\r\n\r\n");
                   }),
                   u"TEMP 21");
}

TEST(TransferReply, PassesOverAnInterimReply)
{
    ExpectReceived(GetScripted([](Connection &connection, const std::string &) {
                       connection.Send("HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n");
                       connection.Reply("TEMP 21");
                   }),
                   u"TEMP 21");
}

TEST(TransferReply, TakesABodyThatEndsWithTheConnection)
{
    ExpectReceived(GetScripted(SendsAndCloses("HTTP/1.0 200 OK\r\n\r\nold style")), u"old style");
}

TEST(TransferReply, KeepsNulBytes)
{
    const std::array<char16_t, 5> expected = {u'a', 0, u'b', 0, u'c'};

    ExpectReceived(GetScripted(Replies(std::string("a\0b\0c", 5))),
                   QStringView(expected.data(), 5));
}

TEST(TransferReply, ReadsTheCharsetOfTheHeader)
{
    ExpectReceived(GetScripted(Replies("21 \xB0"
                                       "C",
                                       "Content-Type: text/plain; charset=ISO-8859-1\r\n")),
                   u"21 \u00B0C");
}

TEST(TransferReply, ReadsUtf8AndElseWindows1252WhenNothingIsSaid)
{
    ExpectReceived(GetScripted(Replies("21 \xC2\xB0"
                                       "C")),
                   u"21 \u00B0C");
    ExpectReceived(GetScripted(Replies("\x80 21 \xB0")), u"\u20AC 21 \u00B0");
}

struct StatusCase
{
    const char *name;
    const char *status;
    const char *error;
};

void PrintTo(const StatusCase &c, std::ostream *out)
{
    *out << c.name;
}

class TransferStatus : public testing::TestWithParam<StatusCase>
{
};

TEST_P(TransferStatus, FailsWithoutTheErrorPage)
{
    const StatusCase &c = GetParam();

    const Outcome outcome =
        GetScripted(Replies("<html>TEMP 99</html>", "Content-Type: text/html\r\n", c.status));

    ExpectFailed(outcome, c.error);
}

const StatusCase kStatusCases[] = {
    {.name = "NotFound", .status = "404 Not Found", .error = "HTTP 404"},
    {.name = "ServerError", .status = "500 Internal Server Error", .error = "HTTP 500"},
    {.name = "Forbidden", .status = "403 Forbidden", .error = "HTTP 403"},
    {.name = "MultipleChoices", .status = "300 Multiple Choices", .error = "HTTP 300"},
    {.name = "NotModified", .status = "304 Not Modified", .error = "HTTP 304"},
    {.name = "RedirectWithoutLocation", .status = "302 Found", .error = "HTTP 302"},
    {.name = "PartNobodyAskedFor", .status = "206 Partial Content", .error = "HTTP 206"},
    {.name = "DifferenceNobodyAskedFor", .status = "226 IM Used", .error = "HTTP 226"},
};

INSTANTIATE_TEST_SUITE_P(Table, TransferStatus, testing::ValuesIn(kStatusCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(TransferReply, TakesOtherStatusesThatMeanSuccess)
{
    for (const char *status : {"201 Created", "203 Non-Authoritative Information",
                               "205 Reset Content", "207 Multi-Status", "225 x", "299 x"}) {
        SCOPED_TRACE(status);
        ExpectReceived(GetScripted(Replies("TEMP 21", {}, status)), u"TEMP 21");
    }
}

TEST(TransferReply, FailsWhenTheBodyIsShorterThanSaid)
{
    ExpectFailed(
        GetScripted(SendsAndCloses("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nTEMP 2")));
}

TEST(TransferReply, TakesNoMoreThanTheLengthSaid)
{
    ExpectReceived(
        GetScripted(SendsAndCloses("HTTP/1.1 200 OK\r\nContent-Length: 7\r\n\r\nTEMP 21 and more")),
        u"TEMP 21");
}

TEST(TransferReply, FailsWhenTheChunksBreakOff)
{
    ExpectFailed(GetScripted(
        SendsAndCloses("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nTEMP\r\n")));
}

TEST(TransferReply, FailsWhenTheConnectionEndsInTheHead)
{
    for (const char *head :
         {"HTTP/1.1 200 OK", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\nContent-Le",
          "HTTP/1.1 200 OK\r\nServer: x\r\n", "HTTP/1.1 100 Continue\r\n\r\n",
          "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n"}) {
        SCOPED_TRACE(head);
        ExpectFailed(GetScripted(SendsAndCloses(head)));
    }
}

TEST(TransferReply, FailsWhenTheConnectionIsReset)
{
    ExpectFailed(
        GetScripted([](Connection &connection, const std::string &) { connection.Reset(); }));
    ExpectFailed(GetScripted([](Connection &connection, const std::string &) {
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nTEMP 2");
        connection.Reset();
    }));
}

TEST(TransferReply, FailsWhenTheAnswerIsNoHttp)
{
    ExpectFailed(GetScripted(SendsAndCloses("220 mail.example.org ready\r\n")));
}

TEST(TransferReply, FailsWhenNobodyListens)
{
    std::string url;
    {
        const LoopbackServer server([](Connection &, const std::string &) {});
        url = server.Url();
    }

    ExpectFailed(Get(url));
}

TEST(TransferReply, GoesThroughTheProxyOfTheEnvironment)
{
    const LoopbackServer proxy(Replies("by proxy"));
    qputenv("http_proxy", QByteArray::fromStdString(proxy.Url()));

    const Outcome outcome = Get("http://weather.example/obs");
    qunsetenv("http_proxy");

    ExpectReceived(outcome, u"by proxy");
    EXPECT_EQ(proxy.Heads().at(0).find("GET http://weather.example/obs HTTP/1.1\r\n"), 0U);
}

TEST(TransferReply, KeepsTheConnectionForTheNextRequest)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        connection.Reply(head.substr(4, 2));
    });
    CurlTransfers transfers;

    ExpectReceived(GetFrom(transfers, server.Url("/1")), u"/1");
    ExpectReceived(GetFrom(transfers, server.Url("/2")), u"/2");

    EXPECT_EQ(server.Accepted(), 1);
}

TEST(TransferReply, KeepsTheConnectionsOfSixTransfersForTheNextSix)
{
    std::atomic<int> arrived = 0;
    std::atomic<int> expected = 0;
    const LoopbackServer server([&](Connection &connection, const std::string &) {
        ++arrived;
        while (connection.IsOpen() && arrived < expected)
            connection.Pause(1); // so that all six need one of their own
        connection.Reply("here");
    });
    CurlTransfers transfers;

    for (int round = 0; round < 3; ++round) {
        expected += 6;
        std::vector<TransferHandle> handles;
        handles.reserve(6);
        for (int i = 0; i < 6; ++i)
            handles.push_back(Start(transfers, server.Url()));
        for (const TransferHandle handle : handles) {
            EXPECT_TRUE(WaitForEnd(transfers, handle));
            transfers.Net_HTTPThreadClose(handle);
        }
    }

    EXPECT_EQ(server.Accepted(), 6);
}

TEST(TransferReply, TakesANewConnectionWhenTheKeptOneWasClosed)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        connection.Reply(head.substr(4, 2));
        connection.CloseAfterwards(); // without announcing it
    });
    CurlTransfers transfers;

    ExpectReceived(GetFrom(transfers, server.Url("/1")), u"/1");
    ASSERT_TRUE(WaitUntil([&] { return server.Ended() == 1; }));
    ExpectReceived(GetFrom(transfers, server.Url("/2")), u"/2");
}

} // namespace
