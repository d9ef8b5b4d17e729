#include "net/declared_charset.h"

#include <algorithm>

namespace {

constexpr QByteArrayView kMeta = "<meta";
constexpr qsizetype kHeadSize = 1024; // as much as browsers look at

bool IsBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n' || byte == '\f';
}

bool IsQuote(char byte)
{
    return byte == '"' || byte == '\'';
}

/// Without leading blanks.
QByteArrayView SkipBlanks(QByteArrayView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    return text;
}

/// The value at the beginning of `text`, in quotes or up to the first blank or one of `ends`.
QByteArrayView Value(QByteArrayView text, QByteArrayView ends)
{
    text = SkipBlanks(text);
    if (!text.isEmpty() && IsQuote(text.front())) {
        const qsizetype close = text.indexOf(text.front(), 1);
        return close < 0 ? QByteArrayView() : text.sliced(1, close - 1).trimmed();
    }
    const auto *const end = std::find_if(text.begin(), text.end(), [ends](char byte) {
        return IsBlank(byte) || IsQuote(byte) || ends.contains(byte);
    });
    return text.first(end - text.begin());
}

/// The value after `name` and an equals sign. `lower` is all in lower case.
/// @param ends characters that end an unquoted value.
QByteArray ValueOf(QByteArrayView name, QByteArrayView lower, QByteArrayView ends)
{
    for (qsizetype at = lower.indexOf(name); at >= 0; at = lower.indexOf(name, at + 1)) {
        const QByteArrayView rest = SkipBlanks(lower.sliced(at + name.size()));
        const bool wholeWord = at == 0 || IsBlank(lower[at - 1]) || IsQuote(lower[at - 1])
                            || lower[at - 1] == ';' || lower[at - 1] == '/';
        if (wholeWord && rest.startsWith('='))
            return Value(rest.sliced(1), ends).toByteArray();
    }
    return {};
}

/// Without its comments; an unclosed one extends to the end.
QByteArray WithoutComments(QByteArray html)
{
    for (qsizetype open = html.indexOf("<!--"); open >= 0; open = html.indexOf("<!--", open)) {
        const qsizetype close = html.indexOf("-->", open);
        html.remove(open, (close < 0 ? html.size() : close + 3) - open);
    }
    return html;
}

QByteArray CharsetOfMeta(const QByteArray &html)
{
    for (qsizetype open = html.indexOf(kMeta); open >= 0; open = html.indexOf(kMeta, open + 1)) {
        const qsizetype close = html.indexOf('>', open);
        const QByteArrayView tag =
            QByteArrayView(html).sliced(open, (close < 0 ? html.size() : close) - open);
        const QByteArrayView rest = tag.sliced(kMeta.size());
        const bool wholeName = !rest.isEmpty() && (IsBlank(rest.front()) || rest.front() == '/');
        // One search finds both forms: charset="..." and content="text/html; charset=...".
        if (QByteArray charset = wholeName ? ValueOf("charset", rest, ";/>") : QByteArray();
            !charset.isEmpty())
            return charset;
    }
    return {};
}

} // namespace

QByteArray CharsetOfContentType(QByteArrayView contentType)
{
    const QByteArray lower = contentType.toByteArray().toLower();
    const qsizetype parameters = lower.indexOf(';');
    return parameters < 0 ? QByteArray()
                          : ValueOf("charset", QByteArrayView(lower).sliced(parameters), ";,");
}

QByteArray CharsetOfHead(QByteArrayView body)
{
    const QByteArray head = body.first(std::min(body.size(), kHeadSize)).toByteArray().toLower();
    if (head.startsWith("<?xml")) {
        const qsizetype end = std::max<qsizetype>(head.indexOf("?>"), 0);
        if (QByteArray charset = ValueOf("encoding", QByteArrayView(head).first(end), "?");
            !charset.isEmpty())
            return charset;
    }
    return CharsetOfMeta(WithoutComments(head));
}
