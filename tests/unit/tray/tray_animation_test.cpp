#include "support/qt_printers.h"
#include "tray/tray_animation.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

void PrintTo(const TrayPicture &picture, std::ostream *out)
{
    *out << (picture.set == TraySet::Idle ? "idle " : "activity ") << picture.index;
}

namespace {

/// Runs both halves of one tick and returns what it shows.
std::optional<TrayPicture> Tick(TrayState &state)
{
    const std::optional<TrayPicture> picture = PictureOfTick(state);
    EndTick(state);
    return picture;
}

std::vector<std::optional<TrayPicture>> Cycle(TrayState &state)
{
    std::vector<std::optional<TrayPicture>> shown(56);
    for (auto &picture : shown)
        picture = Tick(state);
    return shown;
}

/// Eleven pictures of `set`, then 45 ticks without one.
std::vector<std::optional<TrayPicture>> CycleOf(TraySet set)
{
    std::vector<std::optional<TrayPicture>> pictures(56);
    for (qint16 i = 0; i < 11; ++i)
        pictures[size_t(i)] = TrayPicture{.set = set, .index = i};
    return pictures;
}

TEST(TrayAnimation, ShowsElevenPicturesThenRestsFor45Ticks)
{
    TrayState state;

    EXPECT_EQ(Cycle(state), CycleOf(TraySet::Idle));
    EXPECT_EQ(Cycle(state), CycleOf(TraySet::Idle));
}

TEST(TrayAnimation, CountsEachTickOnce)
{
    TrayState state;

    for (qint16 frame = 0; frame < 56; ++frame) {
        EXPECT_EQ(state.TrayFrame, frame);
        Tick(state);
    }
    EXPECT_EQ(state.TrayFrame, 56);
    EXPECT_EQ(Tick(state), TrayPicture{});
    EXPECT_EQ(state.TrayFrame, 1);
}

TEST(TrayAnimation, PlaysTheActivitySetOnce)
{
    TrayState state;

    StartIconAnimation(state);

    EXPECT_EQ(Cycle(state), CycleOf(TraySet::Activity));
    EXPECT_EQ(Cycle(state), CycleOf(TraySet::Idle));
}

TEST(TrayAnimation, EndsTheActivitySetBehindItsFrame10)
{
    TrayState state;
    StartIconAnimation(state);

    for (int i = 0; i < 10; ++i)
        Tick(state);
    EXPECT_TRUE(state.TrayAnimating);
    EXPECT_EQ(state.TrayFrame, 10);

    EXPECT_EQ(Tick(state), (TrayPicture{.set = TraySet::Activity, .index = 10}));
    EXPECT_FALSE(state.TrayAnimating);
    EXPECT_EQ(Tick(state), std::nullopt);
}

TEST(TrayAnimation, StartsTheActivitySetInTheMiddleOfACycle)
{
    TrayState state{.TrayFrame = 30};

    StartIconAnimation(state);

    EXPECT_TRUE(state.TrayAnimating);
    EXPECT_EQ(state.TrayFrame, 0);
    EXPECT_EQ(Tick(state), (TrayPicture{.set = TraySet::Activity, .index = 0}));
}

TEST(TrayAnimation, StartsARunningActivitySetAnew)
{
    TrayState state{.TrayFrame = 1, .TrayAnimating = true};

    StartIconAnimation(state);

    EXPECT_TRUE(state.TrayAnimating);
    EXPECT_EQ(state.TrayFrame, 0);
}

TEST(TrayAnimation, LeavesAnActivitySetAtItsFirstFrameAlone)
{
    TrayState state;

    StartIconAnimation(state);
    StartIconAnimation(state);

    EXPECT_TRUE(state.TrayAnimating);
    EXPECT_EQ(state.TrayFrame, 0);
}

TEST(TrayAnimation, StartsTheActivitySetAtTheFirstFrameOfTheIdleSet)
{
    TrayState state{.TrayFrame = 0, .TrayAnimating = false};

    StartIconAnimation(state);

    EXPECT_TRUE(state.TrayAnimating);
    EXPECT_EQ(state.TrayFrame, 0);
}

TEST(TrayAnimation, TakesAFrameOutsideTheCycleAsTheFirst)
{
    for (const qint16 frame : std::initializer_list<qint16>{-1, -32768, 56, 57, 32767}) {
        TrayState state{.TrayFrame = frame};

        EXPECT_EQ(Tick(state), TrayPicture{}) << frame;
        EXPECT_EQ(state.TrayFrame, 1) << frame;
    }
}

TEST(TrayAnimation, TakesTheLastFrameAsItIs)
{
    TrayState state{.TrayFrame = 55};

    EXPECT_EQ(Tick(state), std::nullopt);
    EXPECT_EQ(state.TrayFrame, 56);
}

TEST(TrayAnimation, CountsTheTicksThatChangeNothing)
{
    EXPECT_EQ(QuietTicks({.TrayFrame = 0}), 0);
    EXPECT_EQ(QuietTicks({.TrayFrame = 10}), 0);
    EXPECT_EQ(QuietTicks({.TrayFrame = 11}), 45);
    EXPECT_EQ(QuietTicks({.TrayFrame = 55}), 1);
    EXPECT_EQ(QuietTicks({.TrayFrame = 56}), 0); // treated as the first
    EXPECT_EQ(QuietTicks({.TrayFrame = -1}), 0);
}

TEST(TrayAnimation, StaysAtItsFrameWithoutASecondHalf)
{
    TrayState state{.TrayFrame = 4, .TrayAnimating = true};

    EXPECT_EQ(PictureOfTick(state), (TrayPicture{.set = TraySet::Activity, .index = 4}));

    EXPECT_EQ(state.TrayFrame, 4);
    EXPECT_TRUE(state.TrayAnimating);
}

TEST(TrayTip, NamesTheProgramAlone)
{
    EXPECT_EQ(TrayTip({}), "Restore Tavrin Weather Utility");
}

TEST(TrayTip, NamesTheSession)
{
    EXPECT_EQ(TrayTip("2"), "Restore Tavrin Weather Utility [2]");
}

// "Restore Tavrin Weather Utility" has 30 characters, blank and brackets are three more.
TEST(TrayTip, FillsItsFieldOf64Characters)
{
    const QString just = TrayTip(QString(31, 'x'));
    EXPECT_EQ(just.size(), 64);
    EXPECT_TRUE(just.endsWith("x]"));

    const QString oneMore = TrayTip(QString(32, 'x'));
    EXPECT_EQ(oneMore.size(), 64);
    EXPECT_TRUE(oneMore.endsWith("xx"));
}

} // namespace
