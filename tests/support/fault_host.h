#pragma once

#include "support/loopback_server.h"
#include "support/test_certificates.h"

#include <array>
#include <map>
#include <memory>
#include <mutex>
#include <string>

/// How the program gets to a host that has, or is, the fault.
enum class Way
{
    Plain,      ///< http; the host is there.
    Secure,     ///< https with a valid certificate.
    Expired,    ///< https with an expired certificate,
    SelfSigned, ///< one that nobody vouches for,
    OtherName,  ///< and one of another host.
    Refused,    ///< Nobody listens there.
    NoRoute,    ///< No network leads there.
    NoName,     ///< The name server does not know it, or does not answer.
};

/// What was asked for when a fault strikes.
struct FaultyRequest
{
    std::string body;   ///< Of the right answer.
    std::string path;   ///< With its query.
    std::string plain;  ///< Scheme and host of the host's two addresses. Both have the right
    std::string secure; ///< answer at `path` + "moved" too.
};

/// A host on the loopback, over http and https, that gives right answers and, on one path, shows a
/// fault for as long as it is told to.
class FaultHost
{
public:
    /// Answers one request in another way. Runs on the host's threads.
    using Fault = std::function<void(LoopbackConnection &connection, const FaultyRequest &request)>;

    /// @param certificates must outlive the host.
    explicit FaultHost(const TestCertificates &certificates);
    ~FaultHost();
    Q_DISABLE_COPY_MOVE(FaultHost)

    /// Scheme and host for that way, no slash at the end.
    [[nodiscard]] const std::string &Address(Way way) const
    {
        return m_addresses[static_cast<size_t>(way)];
    }

    /// Sets the right answer for `path`. Each answer ends its connection, so that none is left
    /// afterwards.
    void Offer(const std::string &path, const std::string &body);

    /// From now on `path` has the fault; null: it is repaired.
    void Strike(const std::string &path, Fault fault);

    [[nodiscard]] int Struck() const; ///< Requests that met a fault.

private:
    void Answer(LoopbackConnection &connection, const std::string &head);
    [[nodiscard]] std::string MakeAddress(Way way) const;

    mutable std::mutex m_mutex;
    std::map<std::string, std::string>
        m_pages; ///< By their paths. Guarded by m_mutex, as the next.
    std::string m_faultyPath;
    Fault m_fault;
    int m_struck = 0;

    int m_refusingPort = 0;
    int m_refusing;                         ///< A socket that holds that port without listening.
    std::array<std::string, 8> m_addresses; ///< In the order of Way.
    std::unique_ptr<LoopbackServer> m_plain;
    std::array<std::unique_ptr<LoopbackServer>, 4> m_secure; ///< In the order of ServerCertificate.
};
