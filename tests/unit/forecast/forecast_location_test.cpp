#include "forecast/forecast_location.h"

#include <gtest/gtest.h>

namespace {

TEST(ForecastLocation, IsInvalidForAZoneCodeBesideABadStateCode)
{
    EXPECT_TRUE(IsForecastLocationInvalid(u"", u"ORZ006"));
    EXPECT_TRUE(IsForecastLocationInvalid(u"OREGON", u" ORZ006 "));
    EXPECT_FALSE(IsForecastLocationInvalid(u"OR", u"ORZ006"));
    EXPECT_FALSE(IsForecastLocationInvalid(u" OR ", u"ORZ006"));
    EXPECT_FALSE(IsForecastLocationInvalid(u"OREGON", u"ORZ06"));
    EXPECT_FALSE(IsForecastLocationInvalid(u"", u""));
}

TEST(ForecastLocation, IsGivenWithBothCodes)
{
    EXPECT_TRUE(IsForecastLocationGiven(u"OR", u"ORZ006"));
    EXPECT_FALSE(IsForecastLocationGiven(u" ", u"ORZ006"));
    EXPECT_FALSE(IsForecastLocationGiven(u"OR", u""));
}

} // namespace
