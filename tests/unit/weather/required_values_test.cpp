#include "support/qt_printers.h"
#include "weather/required_values.h"

#include <gtest/gtest.h>

namespace {

/// A profile that requires `stem`, found between "v=" and ";".
WeatherProfile Requiring(const QString &stem)
{
    WeatherProfile profile;
    profile.required = {stem};
    for (QuantityTags &tags : profile.tags)
        tags = {.Open = "v=", .Close = ";"};
    return profile;
}

bool Accepts(const QString &stem, const QString &text)
{
    WeatherProfile profile = Requiring(stem);
    const std::optional<QString> missing = MissingRequiredValue(profile, text);
    EXPECT_EQ(missing.value_or(stem), stem);
    return !missing;
}

TEST(RequiredValues, AreNoneWithoutAList)
{
    WeatherProfile profile;

    EXPECT_EQ(MissingRequiredValue(profile, u""), std::nullopt);
}

TEST(RequiredValues, NeedBothTags)
{
    EXPECT_TRUE(Accepts("temperature", "a v=21;"));
    EXPECT_FALSE(Accepts("temperature", "a w=21;"));
    EXPECT_FALSE(Accepts("temperature", "a v=21"));
    EXPECT_FALSE(Accepts("temperature", "21; v="));
}

TEST(RequiredValues, NeedADigit)
{
    EXPECT_TRUE(Accepts("temperature", "v=-9 F;"));
    EXPECT_TRUE(Accepts("humidity", "v=0;"));
    EXPECT_FALSE(Accepts("temperature", "v=null;5;"));
    EXPECT_FALSE(Accepts("temperature", "v=;5;"));
    EXPECT_FALSE(Accepts("sunrise", "v=never;"));
}

TEST(RequiredValues, NeedAnyCharacterInATextQuantity)
{
    for (const char *stem : {"conditions", "windDir", "time", "location"}) {
        EXPECT_TRUE(Accepts(stem, "v=x;")) << stem;
        EXPECT_FALSE(Accepts(stem, "v= ;x;")) << stem;
    }
    EXPECT_FALSE(Accepts("windspeed", "v=x;"));
}

TEST(RequiredValues, LookBehindThePrefixAsTheValueDoes)
{
    WeatherProfile profile = Requiring("temperature");
    profile[Quantity::Temperature].Prefix = "value:";

    EXPECT_EQ(MissingRequiredValue(profile, u"v={unit:x; value:21;}"), std::nullopt);
    EXPECT_EQ(MissingRequiredValue(profile, u"v={unit:5; value:null;}"), "temperature");
}

TEST(RequiredValues, ResolveLineEndTags)
{
    WeatherProfile profile = Requiring("temperature");
    profile[Quantity::Temperature].Close = "%LF%";

    EXPECT_EQ(MissingRequiredValue(profile, u"v=21"), "temperature");
    EXPECT_EQ(MissingRequiredValue(profile, u"v=21\n"), std::nullopt);
}

TEST(RequiredValues, AreNeverThereForAStemThatNoQuantityHas)
{
    EXPECT_FALSE(Accepts("Temperature", "v=21;"));
    EXPECT_FALSE(Accepts("rain", "v=21;"));
}

TEST(RequiredValues, AreNeverThereForAQuantityWithoutTags)
{
    WeatherProfile profile = Requiring("temperature");
    profile[Quantity::Temperature] = {};

    EXPECT_EQ(MissingRequiredValue(profile, u"21"), "temperature");
}

TEST(RequiredValues, NameTheFirstOneMissing)
{
    WeatherProfile profile;
    profile.required = {"temperature", "humidity", "conditions"};
    profile[Quantity::Temperature] = {.Open = "t=", .Close = ";"};
    profile[Quantity::Humidity] = {.Open = "h=", .Close = ";"};
    profile[Quantity::Conditions] = {.Open = "c=", .Close = ";"};

    EXPECT_EQ(MissingRequiredValue(profile, u"t=1;"), "humidity");
    EXPECT_EQ(MissingRequiredValue(profile, u"t=1;h=2;c=3;"), std::nullopt);
}

} // namespace
