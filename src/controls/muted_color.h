#pragma once

#include <QPalette>

/// How well `text` can be read on `background`, from 1 (not at all) to 21 (black on white). Both
/// colours are opaque.
[[nodiscard]] double Contrast(const QColor &text, const QColor &background);

/// The colour for texts of less weight: the palette's placeholder colour on its role `background`,
/// moved towards the role `text` as far as it takes to be read without effort. Some palettes have
/// a placeholder colour that hardly shows.
[[nodiscard]] QColor MutedColor(const QPalette &palette, QPalette::ColorRole text,
                                QPalette::ColorRole background);
