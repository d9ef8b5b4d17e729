#pragma once

#include <QString>
#include <QStringView>

/// Lays `text` over `picture`, position by position, as far as the shorter of the two goes:
/// "X" takes the text's character, "#" and "0" take it when it is a digit ("0" otherwise), "?"
/// drops it, any other character of the picture stands in its place.
[[nodiscard]] QString FormatString(QStringView text, QStringView picture);
