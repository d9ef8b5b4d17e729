#include "support/test_certificates.h"
#include "transfer_support.h"

namespace {

class TransferTls : public testing::Test
{
protected:
    [[nodiscard]] TransferOptions Trusting() const
    {
        return {.trustedRoots = QByteArray::fromStdString(m_certificates.AuthorityPem())};
    }

    const TestCertificates m_certificates;
};

TEST_F(TransferTls, DeliversFromATrustedServer)
{
    const LoopbackServer server(SayHello, m_certificates.ServerContext());

    ExpectReceived(Get(server.Url(), Trusting()), u"hello");
}

TEST_F(TransferTls, RefusesAServerThatTheSystemDoesNotKnow)
{
    const LoopbackServer server(SayHello, m_certificates.ServerContext());

    ExpectFailed(Get(server.Url()));

    EXPECT_TRUE(server.Heads().empty()) << "nothing is asked of a server that is not trusted";
}

TEST_F(TransferTls, RefusesAServerOfAnotherAuthority)
{
    const TestCertificates others;
    const LoopbackServer server(SayHello, others.ServerContext());

    ExpectFailed(Get(server.Url(), Trusting()));
}

TEST_F(TransferTls, RefusesACertificateOfAnotherName)
{
    const LoopbackServer server(SayHello, m_certificates.ServerContext());

    ExpectFailed(Get("https://localhost:" + std::to_string(server.Port()) + "/", Trusting()));

    EXPECT_TRUE(server.Heads().empty());
}

TEST_F(TransferTls, RefusesAServerThatSpeaksOldVersionsOnly)
{
    SSL_CTX *const context = m_certificates.ServerContext();
    SSL_CTX_set_security_level(context, 0); // otherwise the server itself would speak none
    SSL_CTX_set_min_proto_version(context, TLS1_VERSION);
    SSL_CTX_set_max_proto_version(context, TLS1_1_VERSION);
    const LoopbackServer server(SayHello, context);

    ExpectFailed(Get(server.Url(), Trusting()));

    EXPECT_EQ(server.Accepted(), 1);
    EXPECT_TRUE(server.Heads().empty());
}

TEST_F(TransferTls, GivesUpAServerThatDoesNotAnswerInTls)
{
    const LoopbackServer server(SayHello);
    TransferOptions options = Trusting();
    options.connectTimeout = std::chrono::milliseconds(200);

    ExpectFailed(Get("https://127.0.0.1:" + std::to_string(server.Port()) + "/", options));
}

TEST_F(TransferTls, GoesFromHttpToHttps)
{
    const LoopbackServer secure(SayHello, m_certificates.ServerContext());
    const LoopbackServer plain(RedirectsTo(secure.Url()));

    ExpectReceived(Get(plain.Url(), Trusting()), u"hello");
}

TEST_F(TransferTls, NeverGoesFromHttpsToHttp)
{
    const LoopbackServer plain(SayHello);
    const LoopbackServer secure(RedirectsTo(plain.Url()), m_certificates.ServerContext());

    ExpectFailed(Get(secure.Url(), Trusting()), "Redirect from https to http refused");

    EXPECT_TRUE(plain.Heads().empty());
}

TEST_F(TransferTls, NeverGoesBackToHttpAfterBeginningThere)
{
    const LoopbackServer last(SayHello);
    const LoopbackServer secure(RedirectsTo(last.Url()), m_certificates.ServerContext());
    const LoopbackServer first(RedirectsTo(secure.Url()));

    ExpectFailed(Get(first.Url(), Trusting()), "Redirect from https to http refused");

    EXPECT_TRUE(last.Heads().empty());
}

TEST_F(TransferTls, FollowsFromHttpsToHttps)
{
    const LoopbackServer server(
        [](Connection &connection, const std::string &head) {
            if (head.find("GET /new ") == 0)
                connection.Reply("arrived");
            else
                connection.Redirect("/new");
        },
        m_certificates.ServerContext());

    ExpectReceived(Get(server.Url("/old"), Trusting()), u"arrived");
}

TEST_F(TransferTls, OffersHttp2)
{
    std::string offered; // written by the server's thread, read after the server is gone
    const auto note = [](SSL *, const unsigned char **, unsigned char *, const unsigned char *names,
                         unsigned size, void *result) {
        static_cast<std::string *>(result)->assign(reinterpret_cast<const char *>(names), size);
        return SSL_TLSEXT_ERR_NOACK;
    };
    SSL_CTX_set_alpn_select_cb(m_certificates.ServerContext(), note, &offered);
    {
        const LoopbackServer server(SayHello, m_certificates.ServerContext());
        ExpectReceived(Get(server.Url(), Trusting()), u"hello");
    }

    EXPECT_NE(offered.find("\x02h2"), std::string::npos);
    EXPECT_NE(offered.find("\x08http/1.1"), std::string::npos);
}

TEST_F(TransferTls, EndsQuietlyWhenTheServerIsGone)
{
    CurlTransfers transfers(Trusting());
    {
        const LoopbackServer server(SayHello, m_certificates.ServerContext());
        ExpectReceived(GetFrom(transfers, server.Url()), u"hello");
    }
    // Destroying `transfers` closes the kept connection: writing to it must kill nobody.
}

} // namespace
