#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

/// An authority of the test's own and a server context for 127.0.0.1 that it has signed. Made
/// fresh each time; nothing of it is ever written to a disk.
class TestCertificates
{
public:
    TestCertificates();

    [[nodiscard]] const std::string &AuthorityPem() const { return m_authorityPem; }
    [[nodiscard]] SSL_CTX *ServerContext() const { return m_context.get(); }

private:
    struct ContextCleanup
    {
        void operator()(SSL_CTX *context) const { SSL_CTX_free(context); }
    };

    std::string m_authorityPem;
    std::unique_ptr<SSL_CTX, ContextCleanup> m_context;
};
