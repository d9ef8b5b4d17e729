#pragma once

#include <QString>

#include <cstdint>

/// Names one transfer; 0 means none.
using TransferHandle = std::int32_t;

/// HTTP GET of text in the background. Handles belong to the caller, who closes every one it
/// opened.
///
/// All operations are called on one thread, the owner's, and return at once, except
/// Net_HttpGetText().
class HttpTransfers
{
public:
    HttpTransfers() = default;
    virtual ~HttpTransfers() = default;
    Q_DISABLE_COPY_MOVE(HttpTransfers)

    /// Makes a transfer for the port box's text. It does not connect yet. A URL's own port counts,
    /// and where it has none the scheme's.
    /// @return 0 when `port` is not a whole number from 1 to 65535.
    [[nodiscard]] virtual TransferHandle Net_HTTPThreadOpen(const QString &port) = 0;

    /// Starts the GET of the complete `url` (http or https).
    /// @return false when it cannot be started: unknown handle, second start (the first one goes
    ///         on), or a URL that is none; the handle of such a URL counts as ended and failed.
    ///         It is to be closed in every case.
    virtual bool Net_HTTPThreadGet(TransferHandle handle, const QString &url) = 0;

    /// True once the transfer has ended, received or failed, and from then on; true for a handle
    /// that does not exist, so that nobody waits for it.
    [[nodiscard]] virtual bool Net_HTTPThreadIsDone(TransferHandle handle) const = 0;

    /// Stores the reply's body in `text`, the empty text when the transfer failed.
    /// @return 1 when the text was delivered (it may be empty), 0 when the transfer failed, has not
    ///         ended or does not exist.
    virtual int Net_HTTPThreadReturnText(TransferHandle handle, QString &text) = 0;

    /// Stops the transfer if it still runs and lets go of the handle; unknown handles are ignored.
    virtual void Net_HTTPThreadClose(TransferHandle handle) = 0;

    /// Why an ended transfer failed, in words ("HTTP 404", or the library's own message); empty
    /// while it runs and when it succeeded.
    [[nodiscard]] virtual QString ErrorText(TransferHandle handle) const = 0;

    /// The same as a number, one of those that Net_HttpGetText() gives; 0 while the transfer runs,
    /// when it succeeded and when it does not exist.
    [[nodiscard]] virtual int ErrorNumber(TransferHandle handle) const = 0;

    /// Gets `url` and waits for the end of the transfer.
    /// @return 0 with the body in `text`; a positive error number with `text` left as it was: the
    ///         HTTP status from 100 on, below it libcurl's number (3: a URL that is none).
    virtual int Net_HttpGetText(const QString &url, QString &text) = 0;
};
