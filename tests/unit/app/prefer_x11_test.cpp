#include "app/desktop_environment.h"

#include <QByteArray>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr std::array kVariables{"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"};

/// Sets the three variables for a test (empty: unset) and restores them afterwards.
class X11Preference : public testing::Test
{
public:
    X11Preference()
    {
        for (size_t i = 0; i < kVariables.size(); ++i)
            m_before[i] = qgetenv(kVariables[i]);
    }

    ~X11Preference() override { Set(m_before); }
    Q_DISABLE_COPY_MOVE(X11Preference)

protected:
    /// The platform that the toolkit is then asked for.
    static QByteArray Platform(const QByteArray &chosen, const QByteArray &wayland,
                               const QByteArray &x11)
    {
        Set({chosen, wayland, x11});
        PreferX11();
        return qgetenv("QT_QPA_PLATFORM");
    }

private:
    static void Set(const std::array<QByteArray, 3> &values)
    {
        for (size_t i = 0; i < kVariables.size(); ++i) {
            if (values[i].isEmpty())
                qunsetenv(kVariables[i]);
            else
                qputenv(kVariables[i], values[i]);
        }
    }

    std::array<QByteArray, 3> m_before;
};

TEST_F(X11Preference, TriesX11FirstWhereBothAreThere)
{
    EXPECT_EQ(Platform("", "wayland-0", ":0"), "xcb;wayland");
}

TEST_F(X11Preference, LeavesADesktopWithOneOfThemAlone)
{
    EXPECT_EQ(Platform("", "wayland-0", ""), "");
    EXPECT_EQ(Platform("", "", ":0"), "");
    EXPECT_EQ(Platform("", "", ""), "");
}

TEST_F(X11Preference, LeavesTheUsersChoiceAlone)
{
    EXPECT_EQ(Platform("wayland", "wayland-0", ":0"), "wayland");
    EXPECT_EQ(Platform("offscreen", "wayland-0", ":0"), "offscreen");
}

} // namespace
