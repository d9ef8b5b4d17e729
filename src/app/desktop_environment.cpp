#include "app/desktop_environment.h"

#include <QByteArray>
#include <QtGlobal>

void PreferX11()
{
    const auto isSet = [](const char *name) { return !qEnvironmentVariableIsEmpty(name); };
    if (!isSet("QT_QPA_PLATFORM") && isSet("WAYLAND_DISPLAY") && isSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

void PaintThroughConnection()
{
    qputenv("QT_XCB_NO_MITSHM", "1");
}
