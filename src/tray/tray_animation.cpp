#include "tray/tray_animation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 kLastFrame = 55;
constexpr qsizetype kTipField = 64;

} // namespace

std::optional<TrayPicture> PictureOfTick(TrayState &state)
{
    if (state.TrayFrame < 0 || state.TrayFrame > kLastFrame)
        state.TrayFrame = 0;
    if (state.TrayFrame >= kTrayImages)
        return std::nullopt;
    return TrayPicture{.set = state.TrayAnimating ? TraySet::Activity : TraySet::Idle,
                       .index = state.TrayFrame};
}

void EndTick(TrayState &state)
{
    if (state.TrayFrame == kTrayImages - 1)
        state.TrayAnimating = false;
    ++state.TrayFrame;
}

int QuietTicks(const TrayState &state)
{
    const bool rests = state.TrayFrame >= kTrayImages && state.TrayFrame <= kLastFrame;
    return rests ? kLastFrame + 1 - state.TrayFrame : 0;
}

void StartIconAnimation(TrayState &state)
{
    if (state.TrayAnimating && state.TrayFrame == 0)
        return;
    state.TrayAnimating = true;
    state.TrayFrame = 0;
}

QString TrayTip(const QString &sessionId)
{
    QString tip = u"Restore Tavrin Weather Utility"_s;
    if (!sessionId.isEmpty())
        tip += " ["_L1 + sessionId + ']'_L1;
    // The field is 64 characters wide and needs the terminating NUL only if there is room: a text
    // that fills the field is complete.
    return tip.left(kTipField);
}
