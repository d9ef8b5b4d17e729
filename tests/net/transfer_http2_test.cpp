#include "support/test_certificates.h"
#include "transfer_support.h"

namespace {

// The parts of HTTP/2 that an answer on one stream needs.
constexpr char kData = 0;
constexpr char kHeaders = 1;
constexpr char kSettings = 4;
constexpr char kAcknowledged = 1;
constexpr char kEndStream = 1;
constexpr char kEndHeaders = 4;
constexpr char kFirstStream = 1;
constexpr size_t kFrameHead = 9;

std::string Frame(char type, char flags, char stream, const std::string &payload)
{
    const std::string length = {0, 0, static_cast<char>(payload.size())};
    return length + type + flags + std::string(3, 0) + stream + payload;
}

/// Reads the client's request and its consent to the settings sent to it, in either order; false if
/// one does not come. Anything left unread would reset the connection when it is closed.
bool ReadRequest(Connection &connection)
{
    const auto byte = [](char c) { return static_cast<size_t>(static_cast<unsigned char>(c)); };
    if (connection.Read(6) != "SM\r\n\r\n") // what follows the head of the greeting
        return false;
    bool isAsked = false;
    bool isAgreed = false;
    while (!isAsked || !isAgreed) {
        const std::string head = connection.Read(kFrameHead);
        if (head.size() < kFrameHead)
            return false;
        const size_t size = byte(head[0]) * 65536 + byte(head[1]) * 256 + byte(head[2]);
        if (connection.Read(size).size() < size)
            return false;
        isAsked = isAsked || head[3] == kHeaders;
        isAgreed = isAgreed || (head[3] == kSettings && head[4] == kAcknowledged);
    }
    return true;
}

/// What comes of an answer that consists of its head and these frames.
Reply ReplyInFrames(const std::string &frames)
{
    const TestCertificates certificates;
    const auto choose = [](SSL *, const unsigned char **chosen, unsigned char *size,
                           const unsigned char *, unsigned, void *) {
        *chosen = reinterpret_cast<const unsigned char *>("h2");
        *size = 2;
        return SSL_TLSEXT_ERR_OK;
    };
    SSL_CTX_set_alpn_select_cb(certificates.ServerContext(), choose, nullptr);
    const LoopbackServer server(
        [&frames](Connection &connection, const std::string &) {
            const std::string status200 = "\x88"; // the eighth header of the static table
            connection.Send(Frame(kSettings, 0, 0, ""));
            if (ReadRequest(connection))
                connection.Send(Frame(kHeaders, kEndHeaders, kFirstStream, status200) + frames);
            connection.CloseAfterwards();
        },
        certificates.ServerContext());

    return Get(server.Url(),
               {.trustedRoots = QByteArray::fromStdString(certificates.AuthorityPem())})
        .reply;
}

TEST(TransferHttp2, IsCompleteAtTheEndOfItsStream)
{
    const Reply reply = ReplyInFrames(Frame(kData, kEndStream, kFirstStream, "TEMP 21"));

    EXPECT_EQ(reply.error, 0) << reply.errorText.toStdString();
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.text, "TEMP 21");
    EXPECT_TRUE(reply.complete);
}

TEST(TransferHttp2, FailsWhenTheConnectionEndsBeforeTheStream)
{
    const Reply reply = ReplyInFrames(Frame(kData, 0, kFirstStream, "TEMP 2"));

    EXPECT_GT(reply.error, 0);
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.text, "");
}

} // namespace
