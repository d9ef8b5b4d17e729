#pragma once

#include "net/reply.h"

#include <QByteArray>

#include <atomic>

/// One transfer, shared by its owner and the network thread until both have released it.
class Transfer
{
public:
    explicit Transfer(QByteArray requestUrl) : m_url(std::move(requestUrl)) {}
    Q_DISABLE_COPY_MOVE(Transfer)
    ~Transfer() = default;

    [[nodiscard]] const QByteArray &Url() const { return m_url; } ///< As RequestUrl() made it.

    /// The reply, or null while the transfer runs. Any thread.
    [[nodiscard]] const Reply *Ended() const { return m_published.load(std::memory_order_acquire); }

    /// Waits for the reply.
    [[nodiscard]] const Reply &Wait() const
    {
        m_published.wait(nullptr, std::memory_order_acquire);
        return *Ended();
    }

    /// Publishes `reply`. Called at most once, by the one thread that runs the transfer.
    void Publish(Reply reply)
    {
        m_reply = std::move(reply);
        m_published.store(&m_reply, std::memory_order_release);
        m_published.notify_all();
    }

private:
    const QByteArray m_url;
    Reply m_reply; ///< Belongs to the network thread until published, then constant.
    std::atomic<const Reply *> m_published = nullptr;
};
