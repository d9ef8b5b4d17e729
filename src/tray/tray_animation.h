#pragma once

#include <QString>

#include <optional>

// The icon's animation in numbers: which picture it shows at which tick.

/// The two sets of images, eleven each.
enum class TraySet
{
    Idle,     ///< Plays all the time.
    Activity, ///< Plays once when a request for the current weather starts.
};

inline constexpr qint16 kTrayImages = 11;

/// One image of one set.
struct TrayPicture
{
    TraySet set = TraySet::Idle;
    qint16 index = 0; ///< 0..10.

    bool operator==(const TrayPicture &) const = default;
};

/// What the panel was told last.
struct TrayIconRecord
{
    TrayPicture picture = {};
    QString tip = {};
};

/// The tray's part of the program's state.
struct TrayState
{
    TrayIconRecord TrayIconData = {};
    qint16 TrayFrame = 0;           ///< The next tick of the cycle, 0..55.
    bool TrayAnimating = false;     ///< The activity set is playing.
    bool IsMinimizedToTray = false; ///< The window is hidden because it was minimised.
};

/// The first half of a tick: the picture to show. A frame outside 0..55 becomes 0.
/// @return nothing for the 45 ticks of a cycle that leave the last picture unchanged.
[[nodiscard]] std::optional<TrayPicture> PictureOfTick(TrayState &state);

/// The second half, once the picture is in the panel or if there was none to show: moves on to the
/// next frame. After the last picture of the activity set the idle set continues. A tick whose
/// picture could not be shown has no second half.
void EndTick(TrayState &state);

/// How many of the coming ticks change nothing: the rest of a cycle's 45, or 0.
[[nodiscard]] int QuietTicks(const TrayState &state);

/// Starts the activity set, unless it is at its very beginning already.
void StartIconAnimation(TrayState &state);

/// The icon's tip: the program's name, and the session unless it is the default one; at most 64
/// characters.
[[nodiscard]] QString TrayTip(const QString &sessionId);
