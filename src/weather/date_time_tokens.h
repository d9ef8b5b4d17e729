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
    QStringView text = {}; ///< A view of the text that was split.
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

/// Most digits of a number; a text with a longer one is not a date-time.
inline constexpr qsizetype kMostDigits = 4;

/// Splits `text`, which must outlive the tokens; blanks only separate them.
/// @return nothing if it holds a character that no date-time has, or a number that is too long.
[[nodiscard]] std::optional<DateTimeTokens> TokenizeDateTime(QStringView text);
