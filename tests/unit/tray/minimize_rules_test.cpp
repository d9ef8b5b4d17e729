#include "tray/minimize_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace {

struct ResizeCase
{
    const char *name;
    WindowState state = WindowState::Normal;
    bool isMinimizedToTray = false;
    bool isIconShown = false;
    ResizeStep expected = ResizeStep::Nothing;
};

void PrintTo(const ResizeCase &c, std::ostream *out)
{
    *out << c.name;
}

class WindowResize : public testing::TestWithParam<ResizeCase>
{
};

TEST_P(WindowResize, GivesTheStep)
{
    const ResizeCase &c = GetParam();

    EXPECT_EQ(StepOfResize(c.state, c.isMinimizedToTray, c.isIconShown), c.expected);
}

constexpr auto kNormal = WindowState::Normal;
constexpr auto kMinimized = WindowState::Minimized;
constexpr auto kMaximized = WindowState::Maximized;

const ResizeCase kCases[] = {
    {"HidesWhenMinimised", kMinimized, false, true, ResizeStep::HideInTray},
    {"StaysMinimisedWithoutAnIcon", kMinimized, false, false, ResizeStep::Nothing},
    {"LeavesANormalWindow", kNormal, false, true, ResizeStep::Nothing},
    {"LeavesANormalWindowWithoutAnIcon", kNormal, false, false, ResizeStep::Nothing},
    {"LeavesAMaximisedWindow", kMaximized, false, true, ResizeStep::Nothing},
    {"LeavesAMaximisedWindowWithoutAnIcon", kMaximized, false, false, ResizeStep::Nothing},
    {"RestoresTheHiddenWindowAtAnyResize", kMinimized, true, true, ResizeStep::Restore},
    {"RestoresTheHiddenWindowMadeNormal", kNormal, true, true, ResizeStep::Restore},
    {"RestoresTheHiddenWindowMadeLarge", kMaximized, true, true, ResizeStep::Restore},
    {"RestoresTheHiddenWindowWithoutAnIcon", kMinimized, true, false, ResizeStep::Restore},
    {"RestoresTheHiddenNormalWindowWithoutAnIcon", kNormal, true, false, ResizeStep::Restore},
    {"RestoresTheHiddenLargeWindowWithoutAnIcon", kMaximized, true, false, ResizeStep::Restore},
};

INSTANTIATE_TEST_SUITE_P(Table, WindowResize, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

// The numbers that the trace lines show.
TEST(WindowState, IsCountedFromNormal)
{
    EXPECT_EQ(int(WindowState::Normal), 0);
    EXPECT_EQ(int(WindowState::Minimized), 1);
    EXPECT_EQ(int(WindowState::Maximized), 2);
}

TEST(IsRestoreMessage, KnowsTheTwoClicks)
{
    EXPECT_TRUE(IsRestoreMessage(513 * 15));
    EXPECT_TRUE(IsRestoreMessage(517 * 15));
}

TEST(IsRestoreMessage, IgnoresEveryOtherMessage)
{
    for (const int message : {0, 512, 514, 515, 516, 518, 519, -513})
        EXPECT_FALSE(IsRestoreMessage(message * 15)) << message;
}

TEST(IsRestoreMessage, TakesTheNearestWholePixel)
{
    EXPECT_TRUE(IsRestoreMessage(513 * 15 + 7));
    EXPECT_TRUE(IsRestoreMessage(513 * 15 - 7));
    EXPECT_FALSE(IsRestoreMessage(513 * 15 + 8));
    EXPECT_FALSE(IsRestoreMessage(513 * 15 - 8));
}

// 512.5 rounds to 512 and 513.5 to 514: the odd pixels 513 and 517 never get a half.
TEST(IsRestoreMessage, GivesAHalfToTheEvenPixel)
{
    for (const double pixel : {512.5, 513.5, 516.5, 517.5})
        EXPECT_FALSE(IsRestoreMessage(pixel * 15)) << pixel;
}

TEST(IsRestoreMessage, IgnoresWhatIsNoPixel)
{
    EXPECT_FALSE(IsRestoreMessage(1e9));
    EXPECT_FALSE(IsRestoreMessage(std::numeric_limits<double>::quiet_NaN()));
}

} // namespace
