#pragma once

#include <QDir>
#include <QImage>

/// The name of a state's picture in one palette, "light" or "dark", at a scale in percent.
[[nodiscard]] QString PictureName(const QString &state, const QString &palette, int percent);

/// The states of the contact sheet side by side, each light and dark, at 100 and 200 percent.
/// @param folder with their pictures.
/// @return null when one is missing.
[[nodiscard]] QImage ContactSheet(const QDir &folder);

/// Writes `image` in its 64 most frequent colours, which is all that a window needs.
/// @return false when it could not be written.
[[nodiscard]] bool SaveSmall(const QImage &image, const QString &path);
