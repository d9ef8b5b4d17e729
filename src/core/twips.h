#pragma once

/// Forms are measured in twips, and so are the mouse positions that their routines take.
inline constexpr int kTwipsPerPixel = 15;

/// A length in twips, in whole logical pixels; what is left over is dropped.
[[nodiscard]] constexpr int Twips(int twips)
{
    return twips / kTwipsPerPixel;
}
