#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>

/// How a transfer ended. Never changed once it is published.
struct TransferResult
{
    int error = 0;          ///< 0: received; else the number that Net_HttpGetText() gives.
    QString text = {};      ///< The body; empty when the transfer failed.
    QString errorText = {}; ///< Why it failed, in words; empty when it was received.
};

/// One transfer, shared by its owner and the network thread until the slower one lets go of it.
class Transfer
{
public:
    explicit Transfer(QByteArray requestUrl) : m_url(std::move(requestUrl)) {}
    Q_DISABLE_COPY_MOVE(Transfer)
    ~Transfer() = default;

    [[nodiscard]] const QByteArray &Url() const { return m_url; } ///< As RequestUrl() made it.

    /// The result, or null while the transfer runs. Any thread.
    [[nodiscard]] const TransferResult *Result() const
    {
        return m_published.load(std::memory_order_acquire);
    }

    /// Waits for the result.
    [[nodiscard]] const TransferResult &Wait() const
    {
        m_published.wait(nullptr, std::memory_order_acquire);
        return *Result();
    }

    /// Makes `result` known. Called once at most, by the one thread that runs the transfer.
    void Publish(TransferResult result)
    {
        m_result = std::move(result);
        m_published.store(&m_result, std::memory_order_release);
        m_published.notify_all();
    }

private:
    const QByteArray m_url;
    TransferResult m_result; ///< The network thread's until it is published, then constant.
    std::atomic<const TransferResult *> m_published = nullptr;
};
