#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

/// A part of a date-time text: a number, a word or one separator.
struct DateTimeToken
{
    enum class Kind
    {
        Number,
        Word,
        Separator
    };
    Kind kind = Kind::Separator;
    QStringView text = {}; ///< A part of the text that was taken apart.
    int number = 0;

    [[nodiscard]] bool Is(QChar separator) const
    {
        return kind == Kind::Separator && text.front() == separator;
    }
    [[nodiscard]] bool IsWord(QStringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

using DateTimeTokens = std::vector<DateTimeToken>;

/// Numbers have at most so many digits; a longer one makes the text no date-time.
inline constexpr qsizetype kMostDigits = 4;

/// Takes `text` apart, which has to outlive the tokens; blanks only part them.
/// @return nothing when it holds a character that no date-time has, or a number that is too long.
[[nodiscard]] std::optional<DateTimeTokens> TokenizeDateTime(QStringView text);
