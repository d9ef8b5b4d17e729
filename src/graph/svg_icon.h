#pragma once

#include <QIcon>
#include <QString>

#include <array>

/// Edge lengths, in pixels, that a drawing is rendered in: panels of 16, 22, 24 and 32 logical
/// pixels and the same on screens of twice and three times the resolution.
inline constexpr std::array kIconSizes = {16, 22, 24, 32, 48, 64, 96};

/// An icon of the SVG drawing `fileName`, a file or a resource, rendered once in all of kIconSizes.
///
/// A drawing that cannot be read gives a plain disc instead: the icon may be the only way back to
/// the window, so there has to be something to click at.
[[nodiscard]] QIcon IconFromSvg(const QString &fileName);
