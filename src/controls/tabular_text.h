#pragma once

#include <QList>
#include <QString>

#include <functional>

// Texts whose digits are all as wide as the widest one. Few desktop fonts have digits of different
// widths, but in those a countdown would twitch each second.

/// The width of a text as drawn.
using TextWidth = std::function<int(const QString &)>;

/// A piece of a line and its position.
struct PlacedText
{
    QString text = {};
    int x = 0;
    int width = 0; ///< The piece is centred in it.

    [[nodiscard]] bool operator==(const PlacedText &) const = default;
};

/// `text` with each digit replaced by the widest one.
[[nodiscard]] QString WithWidestDigits(QString text, const TextWidth &widthOf);

/// The pieces of `line` from left to right: each digit by itself, everything between as one piece.
[[nodiscard]] QList<PlacedText> PlaceTabular(const QString &line, const TextWidth &widthOf);
