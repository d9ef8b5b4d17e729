#include "net/request_url.h"

#include "core/text.h"

#include <QString>

#include <algorithm>

namespace {

constexpr QByteArrayView kHttp = "http://";
constexpr QByteArrayView kHttps = "https://";

bool BeginsWith(QByteArrayView url, QByteArrayView scheme)
{
    return url.first(std::min(url.size(), scheme.size())).compare(scheme, Qt::CaseInsensitive) == 0;
}

/// What follows "http://" or "https://"; empty if `url` begins with neither.
QByteArrayView AfterScheme(QByteArrayView url)
{
    for (const QByteArrayView scheme : {kHttp, kHttps}) {
        if (BeginsWith(url, scheme))
            return url.sliced(scheme.size());
    }
    return {};
}

/// True when there is something between the scheme and the path, query or fragment.
bool NamesHost(QByteArrayView afterScheme)
{
    return !afterScheme.isEmpty() && !QByteArrayView("/?#").contains(afterScheme.front());
}

bool GoesAsItIs(char byte)
{
    return byte > ' ' && byte < '\x7F'; // also false beyond ASCII, where a byte is negative
}

} // namespace

std::optional<QByteArray> RequestUrl(QStringView url)
{
    // Qt would turn half a surrogate pair into a "?", which begins a query.
    return RequestUrl(QByteArrayView(WithoutLoneSurrogates(url.toString()).toUtf8()));
}

std::optional<QByteArray> RequestUrl(QByteArrayView url)
{
    if (!NamesHost(AfterScheme(url)))
        return std::nullopt;
    QByteArray sent;
    for (const char byte : url) {
        if (GoesAsItIs(byte))
            sent.append(byte);
        else
            sent.append('%').append(QByteArray(1, byte).toHex().toUpper());
    }
    return sent;
}

bool IsHttps(const QByteArray &requestUrl)
{
    return BeginsWith(requestUrl, kHttps);
}
