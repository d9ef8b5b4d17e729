#pragma once

#include <QString>
#include <QStringView>

/// Formats `text` by `picture`, position by position, up to the end of the shorter one: "X" copies
/// the text's character, "#" and "0" copy it if it is a digit and write "0" if not, "?" drops it,
/// and any other character of the picture replaces it.
[[nodiscard]] QString FormatString(QStringView text, QStringView picture);
