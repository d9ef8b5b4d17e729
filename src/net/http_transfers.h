#pragma once

#include "net/reply.h"

#include <QString>

#include <cstdint>

/// Names one transfer; 0 means none.
using TransferHandle = std::int32_t;

/// HTTP GET of text in the background. Handles belong to the caller, who must close each of them.
///
/// All operations are called on one thread, the owner's, and return at once, except
/// Net_HttpGetText().
class HttpTransfers
{
public:
    HttpTransfers() = default;
    virtual ~HttpTransfers() = default;
    Q_DISABLE_COPY_MOVE(HttpTransfers)

    /// Makes a transfer for the port box's text. It does not connect yet. The URL's own port
    /// counts, or else the scheme's.
    /// @return 0 if `port` is not a whole number from 1 to 65535.
    [[nodiscard]] virtual TransferHandle Net_HTTPThreadOpen(const QString &port) = 0;

    /// Starts the GET of the complete `url` (http or https).
    /// @return false if it cannot be started: unknown handle, second start (the first one
    ///         continues), or an invalid URL, whose handle then counts as ended and failed.
    ///         The handle must be closed in every case.
    virtual bool Net_HTTPThreadGet(TransferHandle handle, const QString &url) = 0;

    /// True once the transfer has ended, received or failed, and from then on; true for a handle
    /// that does not exist, so that nobody waits for it.
    [[nodiscard]] virtual bool Net_HTTPThreadIsDone(TransferHandle handle) const = 0;

    /// Stores the reply's body in `text`, or the empty text if the transfer failed.
    /// @return 1 if the text was delivered (it may be empty), 0 if the transfer failed, has not
    ///         ended or does not exist.
    virtual int Net_HTTPThreadReturnText(TransferHandle handle, QString &text) = 0;

    /// All that an ended transfer brought, or why it failed; the error kNoReply and nothing else
    /// for one that runs, was never started or does not exist.
    [[nodiscard]] virtual Reply Net_HTTPThreadReply(TransferHandle handle) const = 0;

    /// Stops the transfer if it is running and releases the handle; unknown handles are ignored.
    virtual void Net_HTTPThreadClose(TransferHandle handle) = 0;

    /// Gets `url` and waits for the end of the transfer.
    /// @return 0 with the body in `text`; a positive error number with `text` left unchanged: from
    ///         100 on the HTTP status, below that libcurl's number (3: an invalid URL).
    virtual int Net_HttpGetText(const QString &url, QString &text) = 0;
};
