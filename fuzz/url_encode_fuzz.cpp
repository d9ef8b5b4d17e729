#include "fuzz_input.h"
#include "net/url_encode.h"

#include <QStringList>

#include <iterator>

namespace {

struct Escape
{
    const char *character = nullptr;
    const char *escape = nullptr;
};

constexpr Escape kEscapes[] = {
    {"@", "%40"}, {"+", "%2B"}, {" ", "%20"}, {";", "%3B"},  {"<", "%3C"}, {">", "%3E"},
    {"~", "%7E"}, {"^", "%5E"}, {"`", "%60"}, {"\\", "%5C"}, {"[", "%5B"}, {"]", "%5D"},
    {"{", "%7B"}, {"}", "%7D"}, {"|", "%7C"}, {"\"", "%22"}, {"%", "%25"}};

bool BeginsWithEscape(const QString &text)
{
    return std::any_of(std::begin(kEscapes), std::end(kEscapes),
                       [&](const Escape &e) { return text.startsWith(e.escape); });
}

QString PlainEncode(QString text)
{
    if (text.contains(QChar(0)))
        text.truncate(text.indexOf(QChar(0)));
    while (text.startsWith(' '))
        text.remove(0, 1);
    while (text.endsWith(' '))
        text.chop(1);
    QString encoded;
    for (qsizetype i = 0; i < text.size(); ++i) {
        QString next = text.mid(i, 1);
        const bool kept = next == "%" && BeginsWithEscape(text.mid(i, 3));
        for (const Escape &e : kEscapes) {
            if (!kept && text.mid(i, 1) == e.character)
                next = e.escape;
        }
        encoded += next;
    }
    return encoded;
}

} // namespace

// The contract: the result holds none of the seventeen characters except the percent sign of an
// escape, and encoding it again changes nothing; all other characters stay as they are.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QString text = TextOf(FuzzInput(bytes, size).Rest());

    const QString encoded = UrlEncode(text);

    for (qsizetype i = 0; i < encoded.size(); ++i) {
        if (encoded[i] == '%')
            Demand(BeginsWithEscape(encoded.mid(i, 3)), "a percent sign begins an escape");
        else
            Demand(!QString("@+ ;<>~^`\\[]{}|\"").contains(encoded[i]),
                   "nothing is left to escape");
    }
    Demand(!encoded.contains(QChar(0)), "no NUL");
    Demand(UrlEncode(encoded) == encoded, "what is encoded stays");
    Demand(encoded == PlainEncode(text), "the plain version's text");
    return 0;
}
