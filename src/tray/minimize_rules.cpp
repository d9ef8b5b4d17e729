#include "tray/minimize_rules.h"

#include "core/number.h"
#include "core/twips.h"

ResizeStep StepOfResize(WindowState state, bool isMinimizedToTray, bool isIconShown)
{
    if (isMinimizedToTray)
        return ResizeStep::Restore;
    if (state == WindowState::Minimized && isIconShown)
        return ResizeStep::HideInTray;
    return ResizeStep::Nothing;
}

bool IsRestoreMessage(double x)
{
    const std::optional<qint16> message = ToInt16(x / kTwipsPerPixel);
    return message == kLeftButtonDown || message == kRightButtonUp;
}
