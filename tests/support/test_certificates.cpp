#include "support/test_certificates.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <cstdlib>

namespace {

struct KeyCleanup
{
    void operator()(EVP_PKEY *key) const { EVP_PKEY_free(key); }
};
using Key = std::unique_ptr<EVP_PKEY, KeyCleanup>;

struct CertificateCleanup
{
    void operator()(X509 *certificate) const { X509_free(certificate); }
};
using Certificate = std::unique_ptr<X509, CertificateCleanup>;

constexpr long kOneDay = 24L * 60 * 60;

void Check(bool worked)
{
    if (worked)
        return;
    std::fputs("making the test certificates failed\n", stderr);
    std::abort();
}

void AddExtension(X509 *certificate, X509 *issuer, int kind, const char *value)
{
    X509V3_CTX context = {};
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
    Check(extension != nullptr && X509_add_ext(certificate, extension, -1) == 1);
    X509_EXTENSION_free(extension);
}

/// @param issuer null: the certificate is self-signed.
Certificate MakeCertificate(const std::string &name, long serial, EVP_PKEY *key, X509 *issuer)
{
    Certificate made(X509_new());
    X509 *const certificate = made.get();
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -2 * kOneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate), kOneDay);
    X509_set_pubkey(certificate, key);
    X509_NAME *const subject = X509_get_subject_name(certificate);
    Check(X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_ASC,
                                     reinterpret_cast<const unsigned char *>(name.c_str()), -1, -1,
                                     0)
          == 1);
    X509_set_issuer_name(certificate,
                         X509_get_subject_name(issuer != nullptr ? issuer : certificate));
    return made;
}

std::string Pem(X509 *certificate)
{
    BIO *const memory = BIO_new(BIO_s_mem());
    Check(PEM_write_bio_X509(memory, certificate) == 1);
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(memory, &bytes);
    std::string pem(bytes, static_cast<size_t>(size));
    BIO_free(memory);
    return pem;
}

void Sign(const Certificate &certificate, const Key &key)
{
    Check(X509_sign(certificate.get(), key.get(), EVP_sha256()) > 0);
}

/// A certificate and the key that goes with it.
struct Identity
{
    Key key{EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256")};
    Certificate certificate = {};
};

Identity MakeAuthority()
{
    Identity made;
    made.certificate = MakeCertificate("Test Authority", 1, made.key.get(), nullptr);
    X509 *const own = made.certificate.get();
    AddExtension(own, own, NID_basic_constraints, "critical,CA:TRUE");
    AddExtension(own, own, NID_key_usage, "critical,keyCertSign");
    Sign(made.certificate, made.key);
    return made;
}

Identity MakeServer(ServerCertificate kind, const Identity &authority)
{
    const bool isOwn = kind == ServerCertificate::SelfSigned;
    Identity made;
    made.certificate = MakeCertificate("Test Server", 2 + static_cast<long>(kind), made.key.get(),
                                       isOwn ? nullptr : authority.certificate.get());
    X509 *const server = made.certificate.get();
    AddExtension(server, isOwn ? server : authority.certificate.get(), NID_subject_alt_name,
                 kind == ServerCertificate::OtherName ? "DNS:other.test" : "IP:127.0.0.1");
    if (kind == ServerCertificate::Expired)
        X509_gmtime_adj(X509_getm_notAfter(server), -kOneDay);
    Sign(made.certificate, isOwn ? made.key : authority.key);
    return made;
}

} // namespace

TestCertificates::TestCertificates()
{
    const Identity authority = MakeAuthority();
    m_authorityPem = Pem(authority.certificate.get());
    for (size_t i = 0; i < m_contexts.size(); ++i) {
        const Identity server = MakeServer(static_cast<ServerCertificate>(i), authority);
        m_contexts[i].reset(SSL_CTX_new(TLS_server_method()));
        Check(SSL_CTX_use_certificate(m_contexts[i].get(), server.certificate.get()) == 1
              && SSL_CTX_use_PrivateKey(m_contexts[i].get(), server.key.get()) == 1);
    }
}
