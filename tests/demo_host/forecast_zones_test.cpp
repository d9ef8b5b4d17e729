#include "demo_host/forecast_zones.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(ForecastStates, AreFoundByTheCodeOfTheirFolder)
{
    ASSERT_NE(FindForecastState(u"wa"), nullptr);
    EXPECT_EQ(FindForecastState(u"wa")->code.toString(), "WA");
    EXPECT_EQ(FindForecastState(u"WA"), nullptr);
    EXPECT_EQ(FindForecastState(u"dc"), nullptr);
    EXPECT_EQ(FindForecastState(u""), nullptr);
}

TEST(ForecastZones, HoldTheNeighboursAndANameInCapitals)
{
    QStringList names;
    for (const ForecastZone &zone : ForecastZones(*FindForecastState(u"md")))
        names.append(zone.fileName);

    EXPECT_EQ(names.size(), 28); // 25 of its own, 2 of the neighbour, 1 once more
    EXPECT_EQ(names.first(4),
              QStringList({"MDZ025.TXT", "dcz001.txt", "dcz002.txt", "mdz001.txt"}));
    EXPECT_EQ(names.last(), "mdz025.txt");
}

TEST(WrappedText, BreaksAtTheLastBlankThatFits)
{
    const QString word(66, 'a');

    EXPECT_EQ(Wrapped(word), word);
    EXPECT_EQ(Wrapped(word + " b"), word + "\nb");
    EXPECT_EQ(Wrapped("b " + word), "b\n" + word);
    EXPECT_EQ(Wrapped("b " + word + " c d"), "b\n" + word + "\nc d");
}

TEST(WrappedText, BreaksBehindDots)
{
    const QString place(60, 'a');

    EXPECT_EQ(Wrapped(place + "...bbbb...c"), place + "...\nbbbb...c");
    EXPECT_EQ(Wrapped("..." + place + " b c d e"), "..." + place + " b\nc d e");
}

TEST(WrappedText, LeavesAWordThatFitsNoLine)
{
    const QString word(80, 'a');

    EXPECT_EQ(Wrapped(word + " b"), word + " b");
}

} // namespace
