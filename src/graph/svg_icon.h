#pragma once

#include <QIcon>
#include <QString>

#include <array>

/// Edge lengths, in pixels, that a panel is offered when it takes pictures without asking for a
/// size: panels of 16, 22, 24 and 32 logical pixels and the small ones on screens of twice the
/// resolution.
inline constexpr std::array kIconSizes = {16, 22, 24, 32, 48};

/// An icon of the SVG drawing `fileName`, a file or a resource, rendered in each size that is
/// asked for, once.
///
/// A drawing that cannot be read gives a plain disc instead: the icon may be the only way back to
/// the window, so there has to be something to click at.
[[nodiscard]] QIcon IconFromSvg(const QString &fileName);
