#include "store/ini_value.h"

#include "core/text.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A character that a value cannot hold as it is, and its token in the file.
struct Escape
{
    QLatin1StringView token = {};
    char character = 0;
};

// In the order of decoding.
constexpr std::array kEscapes{Escape{"[SP]"_L1, ' '}, Escape{"[CR]"_L1, '\r'},
                              Escape{"[LF]"_L1, '\n'}, Escape{"[TAB]"_L1, '\t'}};

constexpr qsizetype kLongestToken = 5;

bool MayNeedToken(char c)
{
    return uchar(c) <= uchar(' ');
}

const Escape *EscapeOf(char c)
{
    const auto *const found = std::ranges::find(kEscapes, c, &Escape::character);
    return found == kEscapes.end() ? nullptr : found;
}

/// Works on bytes, because a value may be as long as a whole reply; in every encoding the escaped
/// characters are single bytes. The order of the escapes makes no difference here, because no token
/// holds a character that another one stands for.
QByteArray WithTokens(const QByteArray &value)
{
    const auto suspects = std::ranges::count_if(value, MayNeedToken);
    if (suspects == 0)
        return value;

    QByteArray encoded(value.size() + suspects * kLongestToken, Qt::Uninitialized);
    char *end = encoded.data();
    for (const char c : value) {
        const Escape *const escape = MayNeedToken(c) ? EscapeOf(c) : nullptr;
        if (escape == nullptr)
            *end++ = c;
        else
            end = std::copy(escape->token.begin(), escape->token.end(), end);
    }
    encoded.truncate(end - encoded.constData());
    return encoded;
}

QString Decoded(QStringView stored)
{
    QString value = TrimSpaces(stored).toString();
    if (!value.contains(u'[')) // nearly every value
        return value;
    for (const Escape &escape : kEscapes)
        value.replace(escape.token, QString(QLatin1Char(escape.character)));
    return value;
}

} // namespace

std::optional<QString> FindIniValue(const PrivateProfile &profile, QStringView section,
                                    QStringView key)
{
    const std::optional<QString> stored = profile.Find(section, key);
    return stored ? std::optional(Decoded(*stored)) : std::nullopt;
}

QString ReadIniValue(const PrivateProfile &profile, QStringView section, QStringView key,
                     QStringView fallback)
{
    return Decoded(profile.Value(section, key, fallback));
}

void WriteIniValue(PrivateProfile &profile, QStringView section, QStringView key, QStringView value,
                   bool encode)
{
    // With tokens there is no outer space left to trim.
    if (encode)
        profile.SetEncodedValue(section, key, WithTokens(profile.Encoded(value)));
    else
        profile.SetValue(section, key, TrimSpaces(value));
}
