#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "weather/formulas.h"

#include <gtest/gtest.h>

namespace {

constexpr double kClose = 5e-4;

TEST(GetHeatIndexF, GivesTheRegression)
{
    EXPECT_NEAR(GetHeatIndexF(90, 50), 94.5969, kClose);
    EXPECT_NEAR(GetHeatIndexF(86, 60), 91.0977, kClose);
}

TEST(GetHeatIndexF, IncludesBothLowerBounds)
{
    const RecordedTrace trace;

    // The regression is used, gives 79.93 and so is below the temperature.
    EXPECT_EQ(GetHeatIndexF(80, 40), -32000);

    EXPECT_EQ(trace.lines, (QStringList{"GetHeatIndexF - getheatindexf was less than temp",
                                        "GetHeatIndexF(temp:80, humidity:40):-32000"}));
}

TEST(GetHeatIndexF, IncludesBothUpperBounds)
{
    EXPECT_GT(GetHeatIndexF(90, 100), 90);
    EXPECT_GT(GetHeatIndexF(150, 50), 150);
    EXPECT_EQ(GetHeatIndexF(150.1, 50), -32000);
}

TEST(GetHeatIndexF, DoesNotApplyOutsideItsRange)
{
    const RecordedTrace trace;

    EXPECT_EQ(GetHeatIndexF(79.9, 90), -32000);
    EXPECT_EQ(GetHeatIndexF(90, 39.9), -32000);
    EXPECT_EQ(GetHeatIndexF(90, 100.1), -32000);

    EXPECT_EQ(trace.lines, (QStringList{"GetHeatIndexF(temp:79.9, humidity:90):-32000",
                                        "GetHeatIndexF(temp:90, humidity:39.9):-32000",
                                        "GetHeatIndexF(temp:90, humidity:100.1):-32000"}));
}

TEST(GetHeatIndexC, IsTheFahrenheitResultConverted)
{
    // 30 C are 86 F; 91.0977 F are 32.8320 C.
    EXPECT_NEAR(GetHeatIndexC(30, 60), 32.8320, kClose);
    EXPECT_EQ(GetHeatIndexC(20, 60), -32000);
}

TEST(GetWindChillF, GivesTheIndex)
{
    EXPECT_NEAR(GetWindChillF(0, 15), -19.3979, kClose);
    EXPECT_NEAR(GetWindChillF(20, 15), 6.2189, kClose);
}

TEST(GetWindChillF, DoesNotApplyAboveFortyDegrees)
{
    EXPECT_NE(GetWindChillF(40, 20), -32000);
    EXPECT_EQ(GetWindChillF(40.1, 20), -32000);
}

TEST(GetWindChillF, DoesNotApplyWhereItExceedsTheTemperature)
{
    const RecordedTrace trace;

    EXPECT_EQ(GetWindChillF(40, 0), -32000); // 35.74 + 24.86 = 60.6

    EXPECT_EQ(trace.lines, (QStringList{"GetWindChillF - temp was less than getwindchillf",
                                        "GetWindChillF(temp:40, windspeed:0):-32000"}));
}

TEST(GetWindChillF, DoesNotApplyToANegativeWindSpeed)
{
    const RecordedTrace trace;

    EXPECT_EQ(GetWindChillF(20, -5), -32000);

    EXPECT_EQ(trace.lines, (QStringList{"GetWindChillF(temp:20, windspeed:-5):-32000"}));
}

TEST(GetWindChillC, GivesTheIndexUpToFiveDegrees)
{
    const RecordedTrace trace;

    EXPECT_NEAR(GetWindChillC(5, 20), 1.0670, kClose);
    EXPECT_EQ(GetWindChillC(5.1, 20), -32000);
    EXPECT_EQ(GetWindChillC(5, 0), -32000); // 13.12 + 3.1 is above 5
    EXPECT_EQ(GetWindChillC(5, -1), -32000);

    EXPECT_TRUE(trace.lines.isEmpty());
}

TEST(GetDewPointF, IsLinearFromFiftyPercentOn)
{
    EXPECT_DOUBLE_EQ(GetDewPointF(70, 50), 52);
    EXPECT_DOUBLE_EQ(GetDewPointF(70, 100), 70);
    EXPECT_EQ(GetDewPointF(70, 49.9), -32000);
}

TEST(GetDewPointC, IsLinearFromFiftyPercentOn)
{
    EXPECT_DOUBLE_EQ(GetDewPointC(20, 80), 16);
    EXPECT_EQ(GetDewPointC(20, 49.9), -32000);
}

} // namespace
