#include "transfer_support.h"

#include <set>

using namespace std::chrono_literals;

namespace {

void ExpectNoReply(const HttpTransfers &transfers, TransferHandle handle)
{
    const Reply reply = transfers.Net_HTTPThreadReply(handle);
    EXPECT_EQ(reply.error, kNoReply);
    EXPECT_EQ(reply.errorText, "");
    EXPECT_EQ(reply.text, "");
    EXPECT_EQ(reply.status, 0);
}

TEST(TransferHandle, IsZeroForAPortTextThatIsNoPort)
{
    CurlTransfers transfers;

    for (const char *port : {"", "abc", "0", "65536", "-1", "80a", " 80", "8.0", "99999999999"})
        EXPECT_EQ(transfers.Net_HTTPThreadOpen(port), 0) << port;
}

TEST(TransferHandle, IsOneOfItsOwnForEveryOpen)
{
    CurlTransfers transfers;
    std::set<TransferHandle> handles;

    for (const char *port : {"1", "80", "80", "443", "65535"})
        handles.insert(transfers.Net_HTTPThreadOpen(port));

    EXPECT_EQ(handles.size(), 5U);
    EXPECT_FALSE(handles.contains(0));
}

TEST(TransferHandle, TakesThePortOfTheUrlNotOfTheBox)
{
    const LoopbackServer server(SayHello);
    CurlTransfers transfers;
    QString text;

    const TransferHandle handle = transfers.Net_HTTPThreadOpen("65535");
    ASSERT_TRUE(transfers.Net_HTTPThreadGet(handle, QString::fromStdString(server.Url())));
    ASSERT_TRUE(WaitForEnd(transfers, handle));

    EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 1);
    EXPECT_EQ(text, "hello");
}

TEST(TransferHandle, IsNotDoneBeforeItsGet)
{
    CurlTransfers transfers;
    QString text = "old";

    const TransferHandle handle = transfers.Net_HTTPThreadOpen("80");

    EXPECT_FALSE(transfers.Net_HTTPThreadIsDone(handle));
    EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 0);
    EXPECT_EQ(text, "");
    ExpectNoReply(transfers, handle);
}

TEST(TransferHandle, StaysDoneAndDeliversAgain)
{
    const LoopbackServer server(SayHello);
    CurlTransfers transfers;
    const TransferHandle handle = Start(transfers, server.Url());

    ASSERT_TRUE(WaitForEnd(transfers, handle));

    for (int i = 0; i < 3; ++i) {
        QString text;
        EXPECT_TRUE(transfers.Net_HTTPThreadIsDone(handle));
        EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 1);
        EXPECT_EQ(text, "hello");
        EXPECT_EQ(transfers.Net_HTTPThreadReply(handle).error, 0);
        EXPECT_EQ(transfers.Net_HTTPThreadReply(handle).text, "hello");
    }
}

TEST(TransferHandle, RunsUntilTheServerAnswers)
{
    std::atomic<bool> mayAnswer = false;
    const LoopbackServer server([&mayAnswer](Connection &connection, const std::string &) {
        mayAnswer.wait(false);
        connection.Reply("at last");
    });
    CurlTransfers transfers;
    QString text = "old";
    const TransferHandle handle = Start(transfers, server.Url());
    EXPECT_TRUE(WaitUntil([&server] { return server.Heads().size() == 1; }));

    EXPECT_FALSE(transfers.Net_HTTPThreadIsDone(handle));
    EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 0);
    ExpectNoReply(transfers, handle);

    mayAnswer = true;
    mayAnswer.notify_all();
    EXPECT_TRUE(WaitForEnd(transfers, handle));
    EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 1);
    EXPECT_EQ(text, "at last");
}

TEST(TransferHandle, CountsAsFailedWhenItsGetWasRefused)
{
    CurlTransfers transfers;
    for (const char *url : {"", "ftp://127.0.0.1/", "file:///etc/hostname", "127.0.0.1/", "http://",
                            " http://127.0.0.1/"}) {
        QString text = "old";
        const TransferHandle handle = transfers.Net_HTTPThreadOpen("80");

        EXPECT_FALSE(transfers.Net_HTTPThreadGet(handle, url)) << url;

        EXPECT_TRUE(transfers.Net_HTTPThreadIsDone(handle));
        EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 0);
        EXPECT_EQ(text, "");
        const Reply reply = transfers.Net_HTTPThreadReply(handle);
        EXPECT_EQ(reply.errorText, "Not an http or https address");
        EXPECT_EQ(reply.error, 3);
        EXPECT_EQ(reply.status, 0);
        transfers.Net_HTTPThreadClose(handle);
    }
}

TEST(TransferHandle, RefusesASecondGetAndLetsTheFirstGoOn)
{
    const LoopbackServer server(SayHello);
    const QString url = QString::fromStdString(server.Url());
    CurlTransfers transfers;
    QString text;
    const TransferHandle handle = transfers.Net_HTTPThreadOpen("80");

    EXPECT_TRUE(transfers.Net_HTTPThreadGet(handle, url));
    EXPECT_FALSE(transfers.Net_HTTPThreadGet(handle, url));

    EXPECT_TRUE(WaitForEnd(transfers, handle));
    EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 1);
    EXPECT_EQ(text, "hello");
}

TEST(TransferHandle, MeansNothingWhenItIsUnknown)
{
    CurlTransfers transfers;
    const TransferHandle closed = transfers.Net_HTTPThreadOpen("80");
    transfers.Net_HTTPThreadClose(closed);

    for (const TransferHandle handle : {0, -1, 4711, closed}) {
        QString text = "old";
        EXPECT_FALSE(transfers.Net_HTTPThreadGet(handle, "http://127.0.0.1/"));
        EXPECT_TRUE(transfers.Net_HTTPThreadIsDone(handle));
        EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handle, text), 0);
        ExpectNoReply(transfers, handle);
        transfers.Net_HTTPThreadClose(handle);
    }
}

TEST(TransferHandle, RunsBesideOthers)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        connection.Reply(head.substr(0, head.find(" HTTP")));
    });
    CurlTransfers transfers;
    std::vector<TransferHandle> handles;
    handles.reserve(20);
    for (int i = 0; i < 20; ++i)
        handles.push_back(Start(transfers, server.Url("/" + std::to_string(i))));

    for (size_t i = 0; i < handles.size(); ++i) {
        QString text;
        EXPECT_TRUE(WaitForEnd(transfers, handles[i]));
        EXPECT_EQ(transfers.Net_HTTPThreadReturnText(handles[i], text), 1);
        EXPECT_EQ(text, QStringLiteral("GET /%1").arg(i));
        transfers.Net_HTTPThreadClose(handles[i]);
    }
}

TEST(TransferHandle, TellsWhyItFailedInTheNumbersOfTheBlockingCall)
{
    const LoopbackServer server([](Connection &connection, const std::string &head) {
        if (head.starts_with("GET /gone "))
            connection.Reply("gone", {}, "404 Not Found");
        else
            connection.CloseAfterwards();
    });
    CurlTransfers transfers;

    for (const auto &[path, number] : {std::pair("/gone", 404), std::pair("/silent", 52)}) {
        const TransferHandle handle = Start(transfers, server.Url(path));
        ASSERT_TRUE(WaitForEnd(transfers, handle));

        EXPECT_EQ(transfers.Net_HTTPThreadReply(handle).error, number) << path;
    }
}

// --- the blocking call

TEST(BlockingGet, GivesZeroAndTheBody)
{
    const LoopbackServer server(SayHello);
    CurlTransfers transfers;
    QString text = "old";

    EXPECT_EQ(transfers.Net_HttpGetText(QString::fromStdString(server.Url()), text), 0);
    EXPECT_EQ(text, "hello");
}

TEST(BlockingGet, GivesTheStatusAndLeavesTheText)
{
    const LoopbackServer server(Replies("gone", {}, "404 Not Found"));
    CurlTransfers transfers;
    QString text = "old";

    EXPECT_EQ(transfers.Net_HttpGetText(QString::fromStdString(server.Url()), text), 404);
    EXPECT_EQ(text, "old");
}

TEST(BlockingGet, GivesANumberBelowAHundredWithoutAReply)
{
    const LoopbackServer server(
        [](Connection &connection, const std::string &) { connection.CloseAfterwards(); });
    CurlTransfers transfers;
    QString text = "old";

    EXPECT_EQ(transfers.Net_HttpGetText(QString::fromStdString(server.Url()), text), 52);
    EXPECT_EQ(transfers.Net_HttpGetText("ftp://127.0.0.1/", text), 3);
    EXPECT_EQ(text, "old");
}

TEST(BlockingGet, EndsWithTheTimeOut)
{
    const LoopbackServer server(Hold);
    CurlTransfers transfers({.idleTimeout = 50ms});
    QString text = "old";

    EXPECT_EQ(transfers.Net_HttpGetText(QString::fromStdString(server.Url()), text), 28);
    EXPECT_EQ(text, "old");
}

} // namespace
