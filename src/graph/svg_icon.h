#pragma once

#include <QIcon>
#include <QString>

#include <array>

/// Edge lengths, in pixels, offered to a panel that takes pictures without requesting a size. They
/// suit panels of 16, 22, 24 and 32 logical pixels, and the small ones on screens of twice the
/// resolution.
inline constexpr std::array kIconSizes = {16, 22, 24, 32, 48};

/// An icon of the SVG drawing `fileName`, a file or a resource, rendered once in each size
/// requested.
///
/// A drawing that cannot be read is replaced by a plain disc: the icon may be the only way back to
/// the window, so there must be something to click.
[[nodiscard]] QIcon IconFromSvg(const QString &fileName);
