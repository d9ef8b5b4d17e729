#pragma once

#include "net/http_transfers.h"
#include "net/transfer_options.h"

#include <map>
#include <memory>

class Transfer;
class TransferThread;

/// All HTTP transfers of the program, done by one network thread.
///
/// The public operations belong to one thread, the owner's, and never block, except
/// Net_HttpGetText(). Destroying it aborts running transfers without waiting for them.
class CurlTransfers final : public HttpTransfers
{
public:
    /// @param options an empty `userAgent` becomes the program's own, with the contact that the
    ///        environment variable `TAVRIN_CONTACT` names. The usual environment variables for
    ///        proxies apply too.
    explicit CurlTransfers(TransferOptions options = {});
    ~CurlTransfers() override;
    Q_DISABLE_COPY_MOVE(CurlTransfers)

    [[nodiscard]] TransferHandle Net_HTTPThreadOpen(const QString &port) override;
    bool Net_HTTPThreadGet(TransferHandle handle, const QString &url) override;
    [[nodiscard]] bool Net_HTTPThreadIsDone(TransferHandle handle) const override;
    int Net_HTTPThreadReturnText(TransferHandle handle, QString &text) override;
    [[nodiscard]] Reply Net_HTTPThreadReply(TransferHandle handle) const override;
    void Net_HTTPThreadClose(TransferHandle handle) override;
    int Net_HttpGetText(const QString &url, QString &text) override;

private:
    [[nodiscard]] const Reply *FindReply(TransferHandle handle) const;

    std::map<TransferHandle, std::shared_ptr<Transfer>> m_open; ///< Null: not started yet.
    TransferHandle m_last = 0;
    const std::unique_ptr<TransferThread> m_thread; ///< Last: joined before the rest goes away.
};
