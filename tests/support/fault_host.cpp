#include "support/fault_host.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace {

constexpr std::string_view kMoved = "moved";

std::string PathOf(const std::string &head)
{
    const size_t begin = head.find(' ') + 1;
    return head.substr(begin, head.find(' ', begin) - begin);
}

/// Takes a port of the system's choice without listening there.
int OccupyPort(int &port)
{
    const int taken = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const plain = reinterpret_cast<sockaddr *>(&address);
    if (taken < 0 || bind(taken, plain, size) != 0 || getsockname(taken, plain, &size) != 0)
        std::abort();
    port = ntohs(address.sin_port);
    return taken;
}

} // namespace

FaultHost::FaultHost(const TestCertificates &certificates) : m_refusing(OccupyPort(m_refusingPort))
{
    const auto answer = [this](LoopbackConnection &connection, const std::string &head) {
        Answer(connection, head);
    };
    m_plain = std::make_unique<LoopbackServer>(answer);
    for (size_t i = 0; i < m_secure.size(); ++i) {
        m_secure[i] = std::make_unique<LoopbackServer>(
            answer, certificates.ServerContext(static_cast<ServerCertificate>(i)));
    }
    for (size_t i = 0; i < m_addresses.size(); ++i)
        m_addresses[i] = MakeAddress(static_cast<Way>(i));
}

FaultHost::~FaultHost()
{
    close(m_refusing);
}

std::string FaultHost::MakeAddress(Way way) const
{
    const auto secure = [this](ServerCertificate kind) {
        return m_secure[static_cast<size_t>(kind)]->Url("");
    };
    switch (way) {
    case Way::Plain:
        return m_plain->Url("");
    case Way::Secure:
        return secure(ServerCertificate::Valid);
    case Way::Expired:
        return secure(ServerCertificate::Expired);
    case Way::SelfSigned:
        return secure(ServerCertificate::SelfSigned);
    case Way::OtherName:
        return secure(ServerCertificate::OtherName);
    case Way::Refused:
        return "http://127.0.0.1:" + std::to_string(m_refusingPort);
    case Way::NoRoute:
        // The loopback's own broadcast address: the system has no route there for a connection.
        return "http://127.255.255.255:" + std::to_string(m_plain->Port());
    case Way::NoName:
        return "http://host.silent.test:" + std::to_string(m_plain->Port());
    }
    return {};
}

void FaultHost::Offer(const std::string &path, const std::string &body)
{
    const std::scoped_lock lock(m_mutex);
    m_pages[path] = body;
}

void FaultHost::Strike(const std::string &path, Fault fault)
{
    const std::scoped_lock lock(m_mutex);
    m_faultyPath = path;
    m_fault = std::move(fault);
}

int FaultHost::Struck() const
{
    const std::scoped_lock lock(m_mutex);
    return m_struck;
}

void FaultHost::Answer(LoopbackConnection &connection, const std::string &head)
{
    std::string path = PathOf(head);
    const bool moved = path.ends_with(kMoved);
    if (moved)
        path.resize(path.size() - kMoved.size());

    std::string body;
    Fault fault;
    bool isThere = false;
    {
        const std::scoped_lock lock(m_mutex);
        const auto found = m_pages.find(path);
        isThere = found != m_pages.end();
        if (isThere)
            body = found->second;
        if (m_fault && !moved && path == m_faultyPath) {
            fault = m_fault;
            ++m_struck;
        }
    }
    if (fault) {
        fault(connection, {.body = body,
                           .path = path,
                           .plain = Address(Way::Plain),
                           .secure = Address(Way::Secure)});
    } else if (isThere) {
        connection.Reply(body, "Connection: close\r\n");
        connection.CloseAfterwards();
    } else {
        connection.Reply("no such page", {}, "404 Not Found");
    }
}
