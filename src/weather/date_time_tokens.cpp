#include "weather/date_time_tokens.h"

#include "core/text.h"

#include <algorithm>

namespace {

bool IsLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

template <typename Predicate>
qsizetype RunLength(QStringView text, Predicate belongs)
{
    return std::find_if_not(text.begin(), text.end(), belongs) - text.begin();
}

} // namespace

std::optional<DateTimeTokens> TokenizeDateTime(QStringView text)
{
    using Kind = DateTimeToken::Kind;
    DateTimeTokens tokens;
    while (!text.isEmpty()) {
        const QChar c = text.front();
        qsizetype length = 1;
        if (IsDigit(c)) {
            length = RunLength(text, IsDigit);
            if (length > kMostDigits)
                return std::nullopt;
            int number = 0;
            for (const QChar digit : text.first(length))
                number = number * 10 + (digit.unicode() - u'0');
            tokens.push_back({Kind::Number, text.first(length), number});
        } else if (IsLetter(c)) {
            length = RunLength(text, IsLetter);
            tokens.push_back({Kind::Word, text.first(length), 0});
        } else if (QStringView(u"/-,:.").contains(c)) {
            tokens.push_back({Kind::Separator, text.first(1), 0});
        } else if (c != u' ') {
            return std::nullopt;
        }
        text = text.sliced(length);
    }
    return tokens;
}
