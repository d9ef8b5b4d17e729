#include "core/windows1252.h"
#include "fuzz_input.h"
#include "net/body_text.h"
#include "net/declared_charset.h"

#include <algorithm>

namespace {

bool HasMark(const QByteArray &body)
{
    return body.startsWith("\xEF\xBB\xBF") || body.startsWith("\xFF\xFE")
        || body.startsWith("\xFE\xFF");
}

void CheckCharset(const QByteArray &charset, const QByteArray &source)
{
    Demand(charset == charset.toLower(), "small letters");
    Demand(source.toLower().contains(charset), "a charset is one that was named");
    Demand(
        std::none_of(charset.begin(), charset.end(), [](char c) { return c == '\r' || c == '\n'; })
            || source.contains('"') || source.contains('\''),
        "a charset without quotes is one word");
}

} // namespace

// The contract: every body becomes a text without half a surrogate pair. If nothing names an
// encoding, it is UTF-8 or Windows-1252; if the header names one of these, it is that one, whatever
// the page says; a page of plain ASCII stays as it is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QByteArray contentType = input.Line();
    const QByteArray body = input.Rest();

    const QString text = BodyText(body, contentType);

    Demand(text.isValidUtf16(), "no half of a surrogate pair");
    const QByteArray ofHeader = CharsetOfContentType(contentType);
    const QByteArray head = body.first(std::min<qsizetype>(body.size(), 1024));
    const QByteArray ofHead = CharsetOfHead(body);
    CheckCharset(ofHeader, contentType);
    Demand(ofHead.isEmpty() || ofHead == ofHead.toLower(), "small letters in the head, too");
    Demand(CharsetOfHead(head + QByteArray(100, 'x')) == CharsetOfHead(head + "yz")
               || head.size() < 1024,
           "what stands behind the head does not count");
    if (ofHeader.isEmpty() && ofHead.isEmpty() && !HasMark(body)) {
        const bool utf8 = body.isValidUtf8();
        Demand(text == (utf8 ? QString::fromUtf8(body) : FromWindows1252(body)), "the last resort");
    }
    if (ofHeader == "utf-8")
        Demand(text == QString::fromUtf8(body), "the header's UTF-8");
    if (ofHeader == "iso-8859-1")
        Demand(text == FromWindows1252(body), "the header's ISO-8859-1");
    return 0;
}
