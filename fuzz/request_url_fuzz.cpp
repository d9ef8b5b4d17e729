#include "core/text.h"
#include "fuzz_input.h"
#include "net/request_url.h"

#include <algorithm>

namespace {

bool IsAddress(const QByteArray &url)
{
    for (const char *scheme : {"http://", "https://"}) {
        const QByteArray after = url.mid(qsizetype(qstrlen(scheme)));
        if (url.toLower().startsWith(scheme))
            return !after.isEmpty() && !QByteArray("/?#").contains(after.front());
    }
    return false;
}

QByteArray PlainUrl(const QByteArray &url)
{
    QByteArray sent;
    for (const char c : url) {
        const int code = uchar(c);
        sent += code > 0x20 && code < 0x7F
                  ? QByteArray(1, c)
                  : '%' + QByteArray::number(code, 16).toUpper().rightJustified(2, '0');
    }
    return sent;
}

void Check(const QByteArray &url, const std::optional<QByteArray> &sent)
{
    Demand(sent.has_value() == IsAddress(url), "http and https with a host, nothing else");
    if (!sent)
        return;
    Demand(std::all_of(sent->begin(), sent->end(), [](char c) { return c > ' ' && c < '\x7F'; }),
           "nothing ends the request line");
    Demand(RequestUrl(QByteArrayView(*sent)) == sent, "what can be sent stays");
    Demand(sent == PlainUrl(url), "the plain version's address");
    Demand(IsHttps(*sent) == sent->toLower().startsWith("https:"), "https is known");
}

} // namespace

// The contract: an address is sent as ASCII without blanks and control characters, or not at all,
// whether it is text or bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray raw = FuzzInput(bytes, size).Rest();
    const QString text = TextOf(raw);

    Check(raw, RequestUrl(QByteArrayView(raw)));
    Check(WithoutLoneSurrogates(text).toUtf8(), RequestUrl(text));
    return 0;
}
