#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

#include <optional>

/// `url` in the form that goes over the wire: ASCII without blanks or control characters.
///
/// Blanks, control characters and everything outside ASCII are percent-encoded, the latter as
/// UTF-8; existing escapes and all other characters are kept. So nothing in a profile or a location
/// can end the request line and start another one.
/// @return nothing if `url` does not begin with "http://" or "https://" (in any case) and a host.
[[nodiscard]] std::optional<QByteArray> RequestUrl(QStringView url);

/// The same for an address that came as bytes, from a redirect: bytes outside ASCII are encoded one
/// by one.
[[nodiscard]] std::optional<QByteArray> RequestUrl(QByteArrayView url);

/// True when `requestUrl`, as RequestUrl() made it, is https.
[[nodiscard]] bool IsHttps(const QByteArray &requestUrl);
