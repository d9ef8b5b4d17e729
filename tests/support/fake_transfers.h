#pragma once

#include "net/http_transfers.h"

#include <QStringList>

#include <map>

/// Transfers that end when the test says so. Records the order of all calls.
class FakeTransfers final : public HttpTransfers
{
public:
    static constexpr int kRefusedUrl = 3; ///< The error number of a URL that is none.

    struct Transfer
    {
        QString port = {};
        QString url = {};
        bool done = false;
        Reply reply = {};
    };

    [[nodiscard]] TransferHandle Net_HTTPThreadOpen(const QString &port) override
    {
        calls.append(QStringLiteral("open ") + port);
        if (refuseOpen)
            return 0;
        open[++m_last].port = port;
        return m_last;
    }

    bool Net_HTTPThreadGet(TransferHandle handle, const QString &url) override
    {
        calls.append(QStringLiteral("get ") + url);
        const auto found = open.find(handle);
        if (found == open.end())
            return false;
        found->second.url = url;
        found->second.done = refuseGet;
        found->second.reply.error = refuseGet ? kRefusedUrl : 0;
        return !refuseGet;
    }

    [[nodiscard]] bool Net_HTTPThreadIsDone(TransferHandle handle) const override
    {
        const auto found = open.find(handle);
        return found == open.end() || found->second.done;
    }

    int Net_HTTPThreadReturnText(TransferHandle handle, QString &text) override
    {
        const auto found = open.find(handle);
        const bool delivered =
            found != open.end() && found->second.done && found->second.reply.error == 0;
        text = delivered ? found->second.reply.text : QString();
        return delivered ? 1 : 0;
    }

    [[nodiscard]] Reply Net_HTTPThreadReply(TransferHandle handle) const override
    {
        const auto found = open.find(handle);
        const bool ended = found != open.end() && found->second.done;
        return ended ? found->second.reply : Reply{.error = kNoReply};
    }

    void Net_HTTPThreadClose(TransferHandle handle) override
    {
        calls.append(QStringLiteral("close ") + QString::number(handle));
        open.erase(handle);
    }

    int Net_HttpGetText(const QString &url, QString &text) override
    {
        calls.append(QStringLiteral("gettext ") + url);
        const auto found = pages.find(url);
        if (found == pages.end())
            return 1;
        text = found->second;
        return 0;
    }

    /// Ends the transfer with `reply`.
    void Finish(TransferHandle handle, Reply reply)
    {
        open[handle].done = true;
        open[handle].reply = std::move(reply);
    }

    /// Ends the transfer as received with `text`.
    void Finish(TransferHandle handle, const QString &text) { Finish(handle, Reply{.text = text}); }

    /// Ends the transfer as failed.
    void Fail(TransferHandle handle, const QString &error = QStringLiteral("failed"),
              int errorNumber = 1)
    {
        Finish(handle, Reply{.error = errorNumber, .errorText = error});
    }

    std::map<TransferHandle, Transfer> open;
    std::map<QString, QString> pages; ///< What Net_HttpGetText finds.
    QStringList calls;
    bool refuseOpen = false;
    bool refuseGet = false;

private:
    TransferHandle m_last = 0;
};
