#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

#include <optional>

/// `url` in the form that goes over the wire: ASCII without blanks or control characters.
///
/// Blanks, control characters and everything outside ASCII are percent-encoded, the latter as
/// UTF-8; escapes that are already there stay, and so does every other character. So nothing in a
/// profile or a location can end the request line and begin another one.
/// @return nothing when `url` does not begin with "http://" or "https://" (in any case) and a host.
[[nodiscard]] std::optional<QByteArray> RequestUrl(QStringView url);

/// The same for an address that came as bytes, from a redirect: those outside ASCII are encoded as
/// they are.
[[nodiscard]] std::optional<QByteArray> RequestUrl(QByteArrayView url);

/// True when `requestUrl`, as RequestUrl() made it, is https.
[[nodiscard]] bool IsHttps(const QByteArray &requestUrl);
