#include "support/loopback_server.h"

#include <openssl/ssl.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kForever = -1;

[[noreturn]] void GiveUp(const char *what)
{
    std::perror(what);
    std::abort();
}

sockaddr_in Loopback(int port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// The other side may be gone when something is written to it: that must raise no signal.
void HoldBackBrokenPipe()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

} // namespace

LoopbackConnection::LoopbackConnection(int socket, int stopSignal, ssl_ctx_st *tls)
    : m_socket(socket)
    , m_stopSignal(stopSignal)
{
    if (tls == nullptr)
        return;
    m_tls = SSL_new(tls);
    SSL_set_fd(m_tls, m_socket);
    m_open = SSL_accept(m_tls) == 1;
}

LoopbackConnection::~LoopbackConnection()
{
    if (m_tls != nullptr) {
        if (m_open)
            SSL_shutdown(m_tls);
        SSL_free(m_tls);
    }
    if (m_socket >= 0)
        close(m_socket);
}

bool LoopbackConnection::WaitReadable(int milliseconds)
{
    if (m_tls != nullptr && SSL_pending(m_tls) > 0)
        return true;
    std::array<pollfd, 2> watched = {{{.fd = m_socket, .events = POLLIN, .revents = 0},
                                      {.fd = m_stopSignal, .events = POLLIN, .revents = 0}}};
    const bool any = poll(watched.data(), watched.size(), milliseconds) > 0;
    if (watched[1].revents != 0)
        m_open = false; // the server stops
    return any && m_open;
}

long LoopbackConnection::Receive(char *bytes, size_t size)
{
    return m_tls != nullptr ? SSL_read(m_tls, bytes, static_cast<int>(size))
                            : recv(m_socket, bytes, size, 0);
}

/// Waits for more bytes and appends them to those not read yet.
bool LoopbackConnection::ReceiveMore()
{
    std::array<char, 4096> chunk = {};
    const long size = m_open && WaitReadable(kForever) ? Receive(chunk.data(), chunk.size()) : 0;
    if (size > 0)
        m_received.append(chunk.data(), static_cast<size_t>(size));
    else
        m_open = false;
    return m_open;
}

std::string LoopbackConnection::ReadHead()
{
    size_t end = m_received.find("\r\n\r\n");
    for (; end == std::string::npos; end = m_received.find("\r\n\r\n")) {
        if (!ReceiveMore())
            return {};
    }
    return Read(end + 4);
}

std::string LoopbackConnection::Read(size_t size)
{
    while (m_received.size() < size && ReceiveMore()) {
    }
    std::string bytes = m_received.substr(0, size);
    m_received.erase(0, size);
    return bytes;
}

bool LoopbackConnection::Send(const std::string &bytes)
{
    size_t sent = 0;
    while (m_open && sent < bytes.size()) {
        const char *const rest = bytes.data() + sent;
        const size_t size = bytes.size() - sent;
        const long taken = m_tls != nullptr ? SSL_write(m_tls, rest, static_cast<int>(size))
                                            : send(m_socket, rest, size, MSG_NOSIGNAL);
        if (taken <= 0)
            m_open = false;
        else
            sent += static_cast<size_t>(taken);
    }
    return m_open;
}

bool LoopbackConnection::Reply(const std::string &body, const std::string &extraHeaders,
                               const std::string &status)
{
    return Send("HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n"
                + extraHeaders + "\r\n" + body);
}

bool LoopbackConnection::Redirect(const std::string &location)
{
    return Reply("moved", "Location: " + location + "\r\n", "301 Moved Permanently");
}

void LoopbackConnection::Hold()
{
    std::array<char, 4096> ignored = {};
    while (WaitReadable(kForever) && Receive(ignored.data(), ignored.size()) > 0) {
    }
    m_open = false;
}

void LoopbackConnection::Pause(int milliseconds)
{
    // Readable means gone: nothing is sent to us while we owe an answer.
    if (WaitReadable(milliseconds))
        m_open = false;
}

void LoopbackConnection::Reset()
{
    const linger hard = {.l_onoff = 1, .l_linger = 0};
    setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    close(m_socket);
    m_socket = -1;
    m_open = false;
}

LoopbackServer::LoopbackServer(Script script, ssl_ctx_st *tls)
    : m_script(std::move(script))
    , m_tls(tls)
{
    m_stopSignal = eventfd(0, EFD_CLOEXEC);
    m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    auto *const plain = reinterpret_cast<sockaddr *>(&address);
    if (m_stopSignal < 0 || m_listener < 0 || bind(m_listener, plain, size) != 0
        || listen(m_listener, SOMAXCONN) != 0 || getsockname(m_listener, plain, &size) != 0)
        GiveUp("loopback server");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::jthread([this] { Accept(); });
}

LoopbackServer::~LoopbackServer()
{
    const std::uint64_t one = 1;
    if (write(m_stopSignal, &one, sizeof one) != sizeof one)
        GiveUp("stopping the loopback server");
    m_acceptor.join();
    m_connections.clear(); // joins them
    close(m_listener);
    close(m_stopSignal);
}

std::string LoopbackServer::Url(const std::string &path) const
{
    return (m_tls == nullptr ? "http" : "https") + std::string("://127.0.0.1:")
         + std::to_string(m_port) + path;
}

std::vector<std::string> LoopbackServer::Heads() const
{
    const std::scoped_lock lock(m_mutex);
    return m_heads;
}

void LoopbackServer::Accept()
{
    HoldBackBrokenPipe();
    for (;;) {
        std::array<pollfd, 2> watched = {{{.fd = m_listener, .events = POLLIN, .revents = 0},
                                          {.fd = m_stopSignal, .events = POLLIN, .revents = 0}}};
        if (poll(watched.data(), watched.size(), kForever) <= 0 || watched[1].revents != 0)
            return;
        const int socket = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0)
            continue;
        ++m_accepted;
        m_connections.emplace_back([this, socket] { Serve(socket); });
    }
}

void LoopbackServer::Serve(int socket)
{
    {
        LoopbackConnection connection(socket, m_stopSignal, m_tls);
        while (connection.IsOpen()) {
            const std::string head = connection.ReadHead();
            if (head.empty())
                break;
            {
                const std::scoped_lock lock(m_mutex);
                m_heads.push_back(head);
            }
            m_script(connection, head);
        }
    }
    ++m_ended;
}
