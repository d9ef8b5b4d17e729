#pragma once

#include <QColor>

/// The opaque colour of `over` painted on `under` so thinly that it makes up `share` (0 to 1) of
/// what is seen. Both colours count as opaque.
[[nodiscard]] QColor Mixed(const QColor &over, const QColor &under, double share);
