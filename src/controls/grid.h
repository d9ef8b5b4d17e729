#pragma once

#include <QMargins>

// The grid that all forms share: distances in logical pixels.

inline constexpr int kMargin = 6;    ///< Between a frame and what is in it.
inline constexpr int kGap = 6;       ///< Between two controls that belong together.
inline constexpr int kRowGap = 3;    ///< Between two lines of a table of boxes.
inline constexpr int kTitleGap = 3;  ///< Between a control and its title above it.
inline constexpr int kBlockGap = 10; ///< Between two groups of controls.

inline constexpr QMargins kPageMargins{kMargin, kMargin, kMargin, kMargin};
