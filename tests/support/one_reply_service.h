#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <httplib.h>

#include <mutex>
#include <string>
#include <thread>

/// A service on the loopback that has one reply to every request and remembers the requests.
class OneReplyService
{
public:
    OneReplyService(const std::string &body, const std::string &type)
    {
        m_server.set_keep_alive_timeout(1);
        m_server.Get(".*", [=, this](const httplib::Request &request, httplib::Response &response) {
            const std::scoped_lock lock(m_mutex);
            m_requests.append(QByteArray::fromStdString(request.target));
            m_agent = QByteArray::fromStdString(request.get_header_value("User-Agent"));
            response.set_content(body, type);
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running())
            std::this_thread::yield();
    }
    ~OneReplyService()
    {
        m_server.stop();
        m_thread.join();
    }
    Q_DISABLE_COPY_MOVE(OneReplyService)

    [[nodiscard]] QByteArray Address() const
    {
        return "http://127.0.0.1:" + QByteArray::number(m_port);
    }

    /// The paths asked for so far, with their queries, in the order of the requests.
    [[nodiscard]] QByteArrayList Requests() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_requests;
    }
    [[nodiscard]] QByteArray LastRequest() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_requests.value(m_requests.size() - 1);
    }
    [[nodiscard]] QByteArray LastAgent() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_agent;
    }

private:
    httplib::Server m_server;
    int m_port = 0;
    mutable std::mutex m_mutex;
    QByteArrayList m_requests; ///< Guarded by m_mutex, and so is the next.
    QByteArray m_agent;
    std::thread m_thread;
};
