#pragma once

#include <QList>
#include <QString>

#include <functional>

// Texts whose digits all take the room of the widest one. Few fonts of desktops have digits of
// different widths, but in those a countdown would twitch each second.

/// How wide a text is drawn.
using TextWidth = std::function<int(const QString &)>;

/// A piece of a line and where it is drawn.
struct PlacedText
{
    QString text = {};
    int x = 0;
    int width = 0; ///< The piece is centred in it.

    [[nodiscard]] bool operator==(const PlacedText &) const = default;
};

/// `text` with the widest digit in the place of each of its digits.
[[nodiscard]] QString WithWidestDigits(QString text, const TextWidth &widthOf);

/// The pieces of `line` from its left on: each digit for itself, all else as it stands together.
[[nodiscard]] QList<PlacedText> PlaceTabular(const QString &line, const TextWidth &widthOf);
