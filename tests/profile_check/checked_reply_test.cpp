#include "profile_check/checked_reply.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2026, 3, 5), QTime(6, 7, 8));

WeatherProfile Harbour()
{
    WeatherProfile profile;
    profile.location[0] = "PIER";
    profile[Quantity::Temperature] = {.Open = "Air ", .Close = ";", .Units = " C"};
    profile[Quantity::Conditions] = {.Open = "Sky ", .Close = ";", .Units = "?"};
    profile[Quantity::Precip] = {.Open = "Rain ", .Close = ";", .Units = "?"};
    return profile;
}

QString PlaceOf(const CheckedReply &reply, Quantity value)
{
    qsizetype i = 0;
    for (const Quantity quantity : kValues) {
        if (quantity == value)
            return reply.places.value(i);
        ++i;
    }
    return {};
}

TEST(CheckedReply, HoldsAPlaceForEachValue)
{
    const CheckedReply reply = CheckReply(Harbour(), "r", "Air 5;", kNow);

    EXPECT_EQ(reply.places.size(), qsizetype(kValues.size()));
    EXPECT_TRUE(reply.parsed);
    EXPECT_EQ(reply.values[Quantity::Temperature], QString("5.0 C"));
    EXPECT_EQ(reply.values[Quantity::Time], QString("3/5/2026 6:07:08 AM"));
    EXPECT_EQ(reply.values[Quantity::Location], QString("PIER"));
}

TEST(CheckedReply, CountsPositionsInTheSearchedTextFromOne)
{
    // The search does not see line ends.
    const CheckedReply reply = CheckReply(Harbour(), "r", "Air 5;\r\n\tSky fair;", kNow);

    EXPECT_EQ(PlaceOf(reply, Quantity::Temperature), QString("opening tag at 1, closing tag at 6"));
    EXPECT_EQ(PlaceOf(reply, Quantity::Conditions), QString("opening tag at 7, closing tag at 15"));
}

TEST(CheckedReply, LooksUpWhatIsRequiredThoughTheServiceHasNone)
{
    WeatherProfile profile = Harbour();
    profile.required = {"precip"};

    const CheckedReply reply = CheckReply(profile, "r", "Air 5;", kNow);

    EXPECT_FALSE(reply.parsed);
    EXPECT_EQ(reply.status, QString("Required value not found in received data: precip"));
    EXPECT_EQ(PlaceOf(reply, Quantity::Precip), QString("opening tag missing"));
    EXPECT_EQ(PlaceOf(CheckReply(Harbour(), "r", "Air 5;", kNow), Quantity::Precip),
              QString("the profile says that the service has none"));
}

TEST(CheckedReply, LeavesTheGivenProfileAlone)
{
    const WeatherProfile profile = Harbour();

    static_cast<void>(CheckReply(profile, "r", "Air 5;", kNow));

    EXPECT_EQ(profile.values, WeatherValues());
}

TEST(TableText, ShowsNothingThatSteersATerminal)
{
    const CheckedReply reply = CheckReply(Harbour(), "r\x1b", "Air 5; Sky \x1b[2Jfair;", kNow);

    EXPECT_FALSE(TableText(reply).contains('\x1b'));
    EXPECT_TRUE(TableText(reply).startsWith("r?\n"));
    EXPECT_TRUE(TableText(reply).contains("?[2Jfair"));
}

TEST(TableText, LetsALongValueMoveItsOwnLineOnly)
{
    const QString longSky(200, 'x');

    const QStringList lines =
        TableText(CheckReply(Harbour(), "r", "Air 5; Sky " + longSky + ';', kNow)).split('\n');

    // Two blanks, twelve columns of names, two blanks, 48 columns of values, two blanks.
    EXPECT_EQ(lines[1].indexOf("opening tag"), 66);
    EXPECT_EQ(lines[2].indexOf("opening tag"), 218);
}

TEST(IniText, EscapesValuesAsTheOutputFileDoes)
{
    const QStringList lines =
        IniText(CheckReply(Harbour(), "a b.txt", "Air 5; Sky light  rain;", kNow)).split('\n');

    EXPECT_EQ(lines[0], QString("[a b.txt]"));
    EXPECT_EQ(lines[1], QString("temperatureValue=5.0[SP]C"));
    EXPECT_EQ(lines[2], QString("conditionsValue=light[SP][SP]rain"));
    EXPECT_EQ(lines[17], QString("parsed=True"));
    EXPECT_EQ(lines.size(), 19);
}

TEST(IniText, SaysThatAReplyWasRefused)
{
    WeatherProfile profile = Harbour();
    profile.required = {"temperature"};

    const QStringList lines = IniText(CheckReply(profile, "r", "nothing", kNow)).split('\n');

    EXPECT_EQ(lines[1], QString("temperatureValue="));
    EXPECT_EQ(lines[17], QString("parsed=False"));
}

} // namespace
