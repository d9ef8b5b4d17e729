#include "support/process_counts.h"
#include "support/silent_name_server.h"
#include "transfer_support.h"

#include <optional>

using namespace std::chrono_literals;

namespace {

using Steady = std::chrono::steady_clock;

constexpr auto kAtOnce = 2s; // below every time-out, far above what a busy machine needs
constexpr auto kExit = 2s;

Steady::duration TimeToClose(CurlTransfers &transfers, TransferHandle handle)
{
    const auto begin = Steady::now();
    transfers.Net_HTTPThreadClose(handle);
    return Steady::now() - begin;
}

/// What a server may be doing when its transfer is closed.
struct StageCase
{
    const char *name;
    const char *sent;
};

void PrintTo(const StageCase &c, std::ostream *out)
{
    *out << c.name;
}

class TransferClose : public testing::TestWithParam<StageCase>
{
};

TEST_P(TransferClose, ReturnsAtOnceAndDropsTheConnection)
{
    const std::string sent = GetParam().sent;
    const LoopbackServer server([&sent](Connection &connection, const std::string &) {
        connection.Send(sent);
        connection.Hold();
    });
    CurlTransfers transfers;
    const TransferHandle handle = Start(transfers, server.Url());
    ASSERT_TRUE(WaitUntil([&server] { return server.Heads().size() == 1; }));

    EXPECT_LT(TimeToClose(transfers, handle), kAtOnce);

    EXPECT_TRUE(WaitUntil([&server] { return server.Ended() == 1; }, 1s));
    EXPECT_TRUE(transfers.Net_HTTPThreadIsDone(handle));
}

const StageCase kStages[] = {
    {.name = "BeforeTheHead", .sent = ""},
    {.name = "InTheHead", .sent = "HTTP/1.1 200 OK\r\nContent-Le"},
    {.name = "InTheBody", .sent = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nTEMP 2"},
    {.name = "InTheChunks", .sent = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nTE"},
};

INSTANTIATE_TEST_SUITE_P(Table, TransferClose, testing::ValuesIn(kStages),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(TransferClosing, StopsABodyThatIsStreaming)
{
    const LoopbackServer server([](Connection &connection, const std::string &) {
        connection.Send("HTTP/1.1 200 OK\r\n\r\n");
        while (connection.Send(std::string(1000, 'x'))) {
        }
    });
    CurlTransfers transfers({.bodyLimit = 1LL << 40});
    for (int i = 1; i <= 20; ++i) {
        const TransferHandle handle = Start(transfers, server.Url());
        ASSERT_TRUE(WaitUntil([&server, i] { return server.Accepted() == i; }));

        EXPECT_LT(TimeToClose(transfers, handle), kAtOnce);

        EXPECT_TRUE(WaitUntil([&server, i] { return server.Ended() == i; }, 1s));
    }
}

TEST(TransferClosing, MayComeAtAnyMoment)
{
    const LoopbackServer server(SayHello);
    CurlTransfers transfers;
    for (int i = 0; i < 300; ++i) {
        const TransferHandle handle = Start(transfers, server.Url());
        for (int turn = 0; turn < i * 20 && !transfers.Net_HTTPThreadIsDone(handle); ++turn)
            std::this_thread::yield();
        transfers.Net_HTTPThreadClose(handle);
    }

    ExpectReceived(GetFrom(transfers, server.Url()), u"hello");
}

TEST(TransferClosing, WaitsForNoNameServer)
{
    CurlTransfers transfers;
    {
        const SilentNameServer silence;
        const TransferHandle handle = Start(transfers, SilentNameServer::Url());
        ASSERT_TRUE(WaitUntil([] { return SilentNameServer::Waiting() == 1; }));

        EXPECT_LT(TimeToClose(transfers, handle), kAtOnce);

        // The network thread is free at once although the look-up still hangs.
        const LoopbackServer server(Replies("free"));
        const auto begin = Steady::now();
        ExpectReceived(GetFrom(transfers, server.Url()), u"free");
        EXPECT_LT(Steady::now() - begin, 1s);
        EXPECT_EQ(SilentNameServer::Waiting(), 1);
    }
}

TEST(TransferClosing, GivesUpASilentNameServer)
{
    const SilentNameServer silence;

    ExpectFailed(Get(SilentNameServer::Url(), {.connectTimeout = 100ms}));
}

TEST(TransferClosing, LetsTheProgramEndWhileANameServerIsSilent)
{
    const SilentNameServer silence;
    auto transfers = std::make_optional<CurlTransfers>();
    Start(*transfers, SilentNameServer::Url());
    ASSERT_TRUE(WaitUntil([] { return SilentNameServer::Waiting() == 1; }));

    const auto begin = Steady::now();
    transfers.reset();

    EXPECT_LT(Steady::now() - begin, kExit);
}

TEST(TransferClosing, LetsTheProgramEndWhileServersAreSilent)
{
    const LoopbackServer server(Hold);
    auto transfers = std::make_optional<CurlTransfers>();
    for (int i = 0; i < 10; ++i)
        Start(*transfers, server.Url());
    ASSERT_TRUE(WaitUntil([&server] { return server.Heads().size() == 10; }));

    const auto begin = Steady::now();
    transfers.reset();

    EXPECT_LT(Steady::now() - begin, kExit);
    EXPECT_TRUE(WaitUntil([&server] { return server.Ended() == 10; }));
}

TEST(TransferClosing, LeavesNoThreadAndNoDescriptor)
{
    ExpectFailed(Get("http://127.0.0.1:1/")); // so that libcurl has opened what it opens once
    const long threads = RunningThreads();
    const long descriptors = OpenDescriptors();

    for (int i = 0; i < 10; ++i) {
        const LoopbackServer server([](Connection &connection, const std::string &head) {
            if (head.find("GET /hold") == 0)
                connection.Hold();
            else
                connection.Reply("hello");
        });
        CurlTransfers transfers;
        ExpectReceived(GetFrom(transfers, server.Url()), u"hello");
        const TransferHandle closed = Start(transfers, server.Url("/hold"));
        Start(transfers, server.Url("/hold")); // left running
        transfers.Net_HTTPThreadClose(closed);

        CurlTransfers ended;
        Start(ended, server.Url()); // perhaps not even sent
        const CurlTransfers unused;
    }

    EXPECT_TRUE(WaitUntil([threads] { return RunningThreads() == threads; }));
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST(TransferClosing, NeedsOneThreadForAllTransfers)
{
    const LoopbackServer server(Hold);
    const long before = RunningThreads();
    CurlTransfers transfers;
    for (int i = 0; i < 10; ++i)
        Start(transfers, server.Url());
    ASSERT_TRUE(WaitUntil([&server] { return server.Heads().size() == 10; }));

    EXPECT_EQ(RunningThreads(), before + 1 + 10); // ours, and the server's ten
}

} // namespace
