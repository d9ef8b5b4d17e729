#include "support/process_counts.h"
#include "transfer_support.h"

// The sanitizers hold on to freed memory.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

namespace {

void AnswerLargeOrSmall(Connection &connection, const std::string &head)
{
    if (head.find("GET /large") != 0) {
        connection.Reply("small");
        return;
    }
    constexpr int kBlocks = 256;
    const std::string block(65536, 'x'); // 256 of them are 16 MiB
    connection.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
    for (int i = 0; i < kBlocks; ++i)
        connection.Send("10000\r\n" + block + "\r\n");
    connection.Send("0\r\n\r\n");
}

TEST(TransferMemory, GoesBackAfterLargeReplies)
{
    constexpr long kAllowed = 2048; // KiB
    const LoopbackServer server(AnswerLargeOrSmall);
    CurlTransfers transfers;
    ExpectReceived(GetFrom(transfers, server.Url("/small")), u"small");
    const long before = PrivateMemory();
    ASSERT_GT(before, 0);

    // More than one: the C library keeps the memory from the second large block on.
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(GetFrom(transfers, server.Url("/large")).text.size(), 16777216);
        ExpectReceived(GetFrom(transfers, server.Url("/small")), u"small");
    }

    EXPECT_LE(PrivateMemory(), before + kAllowed);
}

} // namespace

#endif
