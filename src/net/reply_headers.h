#pragma once

#include "net/reply.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>

#include <chrono>
#include <optional>

/// The header texts of an answer that a Reply is filled from. Empty: not sent.
struct ReplyHeaders
{
    QByteArray retryAfter = {};
    QByteArray eTag = {};
    QByteArray lastModified = {};
    QByteArray cacheControl = {}; ///< Of several lines, all of them, parted by commas.
    QByteArray age = {};
    QByteArray expires = {};
};

/// How long a Retry-After header asks to wait, from `now` on: its seconds, or the time to its date.
/// Never less than 0 and never more than an hour.
/// @return nothing for a text that is neither.
[[nodiscard]] std::optional<std::chrono::seconds> RetryAfter(QByteArrayView text,
                                                             const QDateTime &now);

/// Until when an answer that came in at `now` is fresh: for as long as its max-age says, less the
/// age that it came with, else until Expires. In UTC, and in the past where the answer says so.
/// @return nothing when the answer may not be kept (no-store) or must be asked for each time
///         (no-cache), and when the header that counts is missing or unreadable.
[[nodiscard]] std::optional<QDateTime> FreshUntil(const ReplyHeaders &headers,
                                                  const QDateTime &now);

/// Fills `reply`, whose error and status are known, with what the headers of its answer say at
/// `now`.
void ApplyHeaders(const ReplyHeaders &headers, const QDateTime &now, Reply &reply);
