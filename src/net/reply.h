#pragma once

#include <QDateTime>
#include <QString>

#include <chrono>
#include <optional>

/// What a reply calls its own version, for a later request that wants it only when it has changed.
/// Exactly as sent, one character per byte; empty: not sent.
struct Validators
{
    QString eTag = {};
    QString lastModified = {};
};

/// The `error` of a transfer without a reply: it still runs, was never started or does not exist.
inline constexpr int kNoReply = -1;

/// How a transfer ended.
struct Reply
{
    int error = 0;  ///< 0: received; from 100 on the HTTP status; below it libcurl's number.
    int status = 0; ///< HTTP status of the last answer, redirects included; 0: none came.
    QString errorText = {}; ///< Why it failed, in words; empty when it was received.
    QString text = {};      ///< The decoded body; empty when the transfer failed.

    /// False for a text whose end nothing marked but the end of the connection: it may be cut off.
    /// Without meaning when the transfer failed.
    bool complete = true;

    /// How long an error reply asks to be left alone, 0 s to 1 h.
    std::optional<std::chrono::seconds> retryAfter = {};

    /// Of a received reply and of one with status 304, which stands for an earlier one; so is the
    /// next.
    Validators validators = {};

    /// Until when the service itself calls the reply fresh, in UTC. It may have passed already.
    std::optional<QDateTime> freshUntil = {};

    std::chrono::milliseconds took{}; ///< From the start of the transfer to its end.
};
