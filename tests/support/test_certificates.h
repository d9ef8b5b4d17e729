#pragma once

#include <openssl/ssl.h>

#include <array>
#include <memory>
#include <string>

/// The certificate that a server shows.
enum class ServerCertificate
{
    Valid,      ///< For 127.0.0.1, signed by the test's authority.
    Expired,    ///< The same, but only until a day ago.
    SelfSigned, ///< For 127.0.0.1, signed by itself.
    OtherName,  ///< Signed by the test's authority for another name.
};

/// The test's own authority and servers' certificates, made fresh each time and never written to a
/// disk.
class TestCertificates
{
public:
    TestCertificates();

    [[nodiscard]] const std::string &AuthorityPem() const { return m_authorityPem; }

    /// What a server needs to show that certificate.
    [[nodiscard]] SSL_CTX *ServerContext(ServerCertificate kind = ServerCertificate::Valid) const
    {
        return m_contexts[static_cast<size_t>(kind)].get();
    }

private:
    struct ContextCleanup
    {
        void operator()(SSL_CTX *context) const { SSL_CTX_free(context); }
    };

    using Context = std::unique_ptr<SSL_CTX, ContextCleanup>;

    std::string m_authorityPem;
    std::array<Context, 4> m_contexts; ///< In the order of ServerCertificate.
};
