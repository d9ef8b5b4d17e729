#pragma once

#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct ssl_ctx_st; // SSL_CTX
struct ssl_st;     // SSL

/// What a scripted answer does with its connection. All calls are made on the server's thread.
class LoopbackConnection
{
public:
    LoopbackConnection(int socket, int stopSignal, ssl_ctx_st *tls);
    ~LoopbackConnection();
    Q_DISABLE_COPY_MOVE(LoopbackConnection)

    /// Reads one request's head; empty when the connection ended or the server stops.
    [[nodiscard]] std::string ReadHead();

    /// Reads that many bytes; fewer when the connection ended or the server stops.
    [[nodiscard]] std::string Read(size_t size);

    /// Sends all of `bytes`; false when the other side is gone.
    bool Send(const std::string &bytes);

    /// A complete reply with its length.
    bool Reply(const std::string &body, const std::string &extraHeaders = {},
               const std::string &status = "200 OK");

    bool Redirect(const std::string &location);

    /// Says nothing more until the other side closes or the server stops.
    void Hold();

    /// Says nothing for `milliseconds`, less when the other side closes or the server stops.
    void Pause(int milliseconds);

    /// Ends the connection with a reset.
    void Reset();

    /// No request follows on this connection.
    void CloseAfterwards() { m_open = false; }
    [[nodiscard]] bool IsOpen() const { return m_open; }

private:
    [[nodiscard]] bool WaitReadable(int milliseconds);
    [[nodiscard]] long Receive(char *bytes, size_t size);
    [[nodiscard]] bool ReceiveMore();

    int m_socket;
    int m_stopSignal;
    ssl_st *m_tls = nullptr;
    std::string m_received;
    bool m_open = true;
};

/// A web server on 127.0.0.1 whose answers the test writes. One thread per connection.
class LoopbackServer
{
public:
    /// Answers one request; `head` is its whole head.
    using Script = std::function<void(LoopbackConnection &connection, const std::string &head)>;

    /// Serves at once, on a port of the system's choice.
    /// @param tls null: plain http; otherwise https with this context, which must outlive the
    /// server.
    explicit LoopbackServer(Script script, ssl_ctx_st *tls = nullptr);
    ~LoopbackServer();
    Q_DISABLE_COPY_MOVE(LoopbackServer)

    [[nodiscard]] int Port() const { return m_port; }
    [[nodiscard]] std::string Url(const std::string &path = "/") const;

    [[nodiscard]] std::vector<std::string> Heads() const; ///< All requests so far.
    [[nodiscard]] int Accepted() const { return m_accepted; }
    [[nodiscard]] int Ended() const { return m_ended; } ///< Connections that are over.

private:
    void Accept();
    void Serve(int socket);

    const Script m_script;
    ssl_ctx_st *const m_tls;
    int m_listener = -1;
    int m_stopSignal = -1;
    int m_port = 0;
    std::atomic<int> m_accepted = 0;
    std::atomic<int> m_ended = 0;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_heads;      ///< Guarded by m_mutex.
    std::list<std::jthread> m_connections; ///< The accepting thread's.
    std::jthread m_acceptor;
};
