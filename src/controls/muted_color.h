#pragma once

#include <QPalette>

/// The contrast of `text` on `background`, from 1 (none) to 21 (black on white). Both colours are
/// opaque.
[[nodiscard]] double Contrast(const QColor &text, const QColor &background);

/// The colour for minor texts: the palette's placeholder colour, moved towards the role `text`
/// until it is easy to read on the role `background`. In some palettes the placeholder colour is
/// hardly visible.
[[nodiscard]] QColor MutedColor(const QPalette &palette, QPalette::ColorRole text,
                                QPalette::ColorRole background);
