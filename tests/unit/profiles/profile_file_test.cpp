#include "profiles/profile_file.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

namespace {

class ProfileFile : public testing::Test
{
protected:
    [[nodiscard]] IniPath Ini() const { return {.path = folder.Path("p.ini")}; }

    /// The first profile of a file that has these lines in its section.
    [[nodiscard]] WeatherProfile LoadFrom(const QByteArray &lines) const
    {
        folder.Write("p.ini", "[Profile0]\r\n" + lines);
        ProfileTable profiles;
        LoadWeatherProfiles(profiles, Ini());
        return profiles.weather[0];
    }

    TestFolder folder;
};

// The file's keys, spelled out again: a key that the program misspells is lost.
const std::array<const char *, kQuantityCount> kStems{
    "temperature", "conditions", "windspeed", "windDir",    "humidity", "atmosPress",
    "dewPoint",    "windchill",  "heatindex", "visibility", "sunrise",  "sunset",
    "minTemp",     "maxTemp",    "precip",    "time",       "location"};

/// A section with every key of a profile; each value names its key.
QByteArray FullSection(int index)
{
    const QByteArray number = QByteArray::number(index);
    QByteArray lines = "[Profile" + number + "]\r\n";
    for (const char *stem : kStems) {
        for (const char *group : {"Open", "Close", "Prefix", "Suffix", "Units", "Factor"})
            lines += QByteArray(stem) + group + "=" + stem + "-" + group + number + "\r\n";
    }
    for (const char *key : {"title", "copyright", "copyrightURL", "baseURL", "description",
                            "location1Title", "location2Title", "location3Title", "location4Title",
                            "mainNodeClose", "mainNodeOpen", "windSpeedDirFormat"})
        lines += QByteArray(key) + "=the " + key + number + "\r\n";
    return lines + "concatinateWindSpeedDir=TRUE\r\nrequired=temperature\r\n";
}

void ExpectFull(const WeatherProfile &profile, int index)
{
    const QString number = QString::number(index);
    EXPECT_EQ(profile.title, "the title" + number);
    EXPECT_EQ(profile.copyright, "the copyright" + number);
    EXPECT_EQ(profile.copyrightURL, "the copyrightURL" + number);
    EXPECT_EQ(profile.baseURL, "the baseURL" + number);
    EXPECT_EQ(profile.description, "the description" + number);
    EXPECT_EQ(profile.mainNodeOpen, "the mainNodeOpen" + number);
    EXPECT_EQ(profile.mainNodeClose, "the mainNodeClose" + number);
    EXPECT_EQ(profile.windSpeedDirFormat, "the windSpeedDirFormat" + number);
    EXPECT_EQ(profile.locationTitle[0], "the location1Title" + number);
    EXPECT_EQ(profile.locationTitle[1], "the location2Title" + number);
    EXPECT_EQ(profile.locationTitle[2], "the location3Title" + number);
    EXPECT_EQ(profile.locationTitle[3], "the location4Title" + number);
    EXPECT_TRUE(profile.concatinateWindSpeedDir);
    EXPECT_EQ(profile.required, QStringList{"temperature"});
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const QString stem = kStems[i];
        EXPECT_EQ(profile.tags[i].Open, stem + "-Open" + number);
        EXPECT_EQ(profile.tags[i].Close, stem + "-Close" + number);
        EXPECT_EQ(profile.tags[i].Prefix, stem + "-Prefix" + number);
        EXPECT_EQ(profile.tags[i].Suffix, stem + "-Suffix" + number);
        EXPECT_EQ(profile.tags[i].Units, stem + "-Units" + number);
        EXPECT_EQ(profile.tags[i].Factor, stem + "-Factor" + number);
    }
}

TEST_F(ProfileFile, EveryKeyOfEveryProfileIsLoaded)
{
    QByteArray bytes;
    for (int i = 0; i < 10; ++i)
        bytes += FullSection(i);
    folder.Write("p.ini", bytes);
    ProfileTable profiles;

    LoadWeatherProfiles(profiles, Ini());

    for (int i = 0; i < 10; ++i)
        ExpectFull(profiles.weather[static_cast<std::size_t>(i)], i);
    EXPECT_EQ(folder.Bytes("p.ini"), bytes); // only read
}

TEST_F(ProfileFile, TagsAreFoundByTheirQuantity)
{
    WeatherProfile profile = LoadFrom(FullSection(0).sliced(12));

    EXPECT_EQ(profile[Quantity::Temperature].Open, QString("temperature-Open0"));
    EXPECT_EQ(profile[Quantity::WindDir].Factor, QString("windDir-Factor0"));
    EXPECT_EQ(profile[Quantity::Location].Units, QString("location-Units0"));
}

TEST_F(ProfileFile, LoadingEmptiesTheValues)
{
    folder.Write("p.ini", "[Profile0]\ntitle=A\n");
    ProfileTable profiles;
    for (const Quantity quantity : kValues)
        profiles.weather[0].values[quantity] = "old";

    LoadWeatherProfiles(profiles, Ini());

    EXPECT_EQ(profiles.weather[0].values, WeatherValues());
}

TEST_F(ProfileFile, LoadingLeavesTheLocations)
{
    folder.Write("p.ini", "[Profile0]\ntitle=A\nlocation1=no\n");
    ProfileTable profiles;
    profiles.weather[0].location = {"a", "b", "c", "d"};

    LoadWeatherProfiles(profiles, Ini());

    EXPECT_EQ(profiles.weather[0].location, (std::array<QString, 4>{"a", "b", "c", "d"}));
}

TEST_F(ProfileFile, MissingFileLeavesAllSlotsUnused)
{
    ProfileTable profiles;

    LoadWeatherProfiles(profiles, Ini());

    for (const WeatherProfile &profile : profiles.weather)
        EXPECT_EQ(profile.title, QString());
}

TEST_F(ProfileFile, BlankTitleLeavesTheSlotAsItWas)
{
    for (const QByteArray title : {"", "title=\r\n", "title=  \r\n", "title=\"\"\r\n"}) {
        folder.Write("p.ini", "[Profile0]\r\n" + title
                                  + "baseURL=x\r\ncopyright=x\r\ntemperatureOpen=x\r\n");
        ProfileTable profiles;
        profiles.weather[0].baseURL = "before";
        profiles.weather[0].values[Quantity::Time] = "noon";

        LoadWeatherProfiles(profiles, Ini());

        EXPECT_EQ(profiles.weather[0].title, QString());
        EXPECT_EQ(profiles.weather[0].baseURL, QString("before"));
        EXPECT_EQ(profiles.weather[0].copyright, QString());
        EXPECT_EQ(profiles.weather[0][Quantity::Temperature].Open, QString());
        EXPECT_EQ(profiles.weather[0].values[Quantity::Time], QString("noon"));
    }
}

TEST_F(ProfileFile, UnusedSlotsBetweenProfilesAreLeftOut)
{
    folder.Write("p.ini", "[Profile3]\ntitle=Three\n[Profile9]\ntitle=Nine\n"
                          "[Profile10]\ntitle=Ten\n[Profile03]\ntitle=No\n");
    ProfileTable profiles;

    LoadWeatherProfiles(profiles, Ini());

    EXPECT_EQ(profiles.weather[0].title, QString());
    EXPECT_EQ(profiles.weather[3].title, QString("Three"));
    EXPECT_EQ(profiles.weather[9].title, QString("Nine"));
}

TEST_F(ProfileFile, WindIsJoinedForTheExactTextOnly)
{
    EXPECT_TRUE(LoadFrom("title=A\nconcatinateWindSpeedDir=TRUE").concatinateWindSpeedDir);
    for (const char *text : {"True", "true", "1", "-1", "YES", "FALSE", ""}) {
        EXPECT_FALSE(LoadFrom(QByteArray("title=A\nconcatinateWindSpeedDir=") + text)
                         .concatinateWindSpeedDir)
            << text;
    }
    EXPECT_FALSE(LoadFrom("title=A").concatinateWindSpeedDir);
}

TEST_F(ProfileFile, DescriptionMayHaveLines)
{
    EXPECT_EQ(LoadFrom("title=A\ndescription=Line one[CRLF]Line two[CRLF]").description,
              QString("Line one\r\nLine two\r\n"));
    EXPECT_EQ(LoadFrom("title=A\ndescription=Line one[crlf]Line two").description,
              QString("Line one[crlf]Line two"));
}

TEST_F(ProfileFile, LineMarkIsForDescriptionsOnly)
{
    EXPECT_EQ(LoadFrom("title=A[CRLF]B\ncopyright=[CRLF]").copyright, QString("[CRLF]"));
}

TEST_F(ProfileFile, EscapesApplyToEveryValue)
{
    const WeatherProfile profile =
        LoadFrom("title=A[SP]B\ntemperatureUnits=[SP]F\ntemperatureClose=[LF]\n");

    EXPECT_EQ(profile.title, QString("A B"));
    EXPECT_EQ(profile[Quantity::Temperature].Units, QString(" F"));
    EXPECT_EQ(profile[Quantity::Temperature].Close, QString("\n"));
}

TEST_F(ProfileFile, RequiredIsACommaList)
{
    EXPECT_EQ(LoadFrom("title=A").required, QStringList());
    EXPECT_EQ(LoadFrom("title=A\nrequired=").required, QStringList());
    EXPECT_EQ(LoadFrom("title=A\nrequired=temperature").required, QStringList{"temperature"});
    EXPECT_EQ(LoadFrom("title=A\nrequired= temperature , windDir,[SP]time").required,
              (QStringList{"temperature", "windDir", "time"}));
    EXPECT_EQ(LoadFrom("title=A\nrequired=,, , temperature,").required, QStringList{"temperature"});
}

TEST_F(ProfileFile, FileOfAnotherCodePageIsRead)
{
    EXPECT_EQ(LoadFrom("title=A\ntemperatureUnits=\xB0"
                       "F\n")[Quantity::Temperature]
                  .Units,
              QStringLiteral(u"\u00B0F"));
    EXPECT_EQ(LoadFrom("title=A\ntemperatureUnits=\xC2\xB0"
                       "F\n")[Quantity::Temperature]
                  .Units,
              QStringLiteral(u"\u00B0F"));
}

TEST_F(ProfileFile, ForecastHasDefaults)
{
    ForecastProfile forecast;
    forecast.forecastText = "old";

    const auto caption = LoadForecastProfile(forecast, Ini(), 2026);

    EXPECT_EQ(caption,
              std::optional(QString("Public domain sources at U.S. National Weather Services.")));
    EXPECT_EQ(forecast.title, QString("NOAA 7-Day Forecast for USA Locations"));
    EXPECT_EQ(forecast.host, QString("https://tgftp.nws.noaa.gov"));
    EXPECT_EQ(forecast.baseURL, QString("https://tgftp.nws.noaa.gov%PORT%/pub/data/forecasts/zone/"
                                        "%STATE%/%ZONECODE%.txt"));
    EXPECT_EQ(forecast.copyright,
              QString("Public domain sources at U.S. National Weather Services."));
    EXPECT_EQ(forecast.copyrightURL, QString("https://tgftp.nws.noaa.gov/"));
    EXPECT_EQ(forecast.description,
              QString("Seven-day weather forecast data is provided for the USA by NOAA"));
    EXPECT_EQ(forecast.forecastText, QString());
}

TEST_F(ProfileFile, ForecastTakesWhatTheFileHas)
{
    folder.Write(
        "p.ini",
        "[ForecastProfile0]\ntitle=T\nhost=http://H:81\nbaseURL=B\ncopyright=C %YEAR%, %YEAR%\n"
        "copyrightURL=U\ndescription=one[CRLF]two\n");
    ForecastProfile forecast;

    const auto caption = LoadForecastProfile(forecast, Ini(), 2026);

    EXPECT_EQ(caption, std::optional(QString("C 2026, 2026")));
    EXPECT_EQ(forecast.title, QString("T"));
    EXPECT_EQ(forecast.host, QString("http://H:81"));
    EXPECT_EQ(forecast.baseURL, QString("B"));
    EXPECT_EQ(forecast.copyright, QString("C %YEAR%, %YEAR%"));
    EXPECT_EQ(forecast.copyrightURL, QString("U"));
    EXPECT_EQ(forecast.description, QString("one[CRLF]two")); // a line mark has no meaning here
}

TEST_F(ProfileFile, ForecastKeyThatIsBlankIsNotDefaulted)
{
    folder.Write("p.ini", "[ForecastProfile0]\nbaseURL=\ncopyright=\n");
    ForecastProfile forecast;

    EXPECT_EQ(LoadForecastProfile(forecast, Ini(), 2026), std::optional(QString()));
    EXPECT_EQ(forecast.title, QString("NOAA 7-Day Forecast for USA Locations"));
    EXPECT_EQ(forecast.baseURL, QString());
}

TEST_F(ProfileFile, BlankForecastTitleLeavesTheOtherFields)
{
    folder.Write("p.ini", "[ForecastProfile0]\ntitle=\nbaseURL=B\ncopyright=C\n");
    ForecastProfile forecast;

    EXPECT_EQ(LoadForecastProfile(forecast, Ini(), 2026), std::nullopt);
    EXPECT_EQ(forecast.title, QString());
    EXPECT_EQ(forecast.baseURL, QString());
    EXPECT_EQ(forecast.copyright, QString());
    EXPECT_EQ(forecast.copyrightURL, QString());
    EXPECT_EQ(forecast.description, QString());
}

TEST_F(ProfileFile, ForecastHostIsReadBesideABlankTitle)
{
    ForecastProfile forecast;

    folder.Write("p.ini", "[ForecastProfile0]\ntitle=\nhost=http://mirror.example\n");
    EXPECT_EQ(LoadForecastProfile(forecast, Ini(), 2026), std::nullopt);
    EXPECT_EQ(forecast.host, QString("http://mirror.example"));

    folder.Write("p.ini", "[ForecastProfile0]\ntitle=\n");
    EXPECT_EQ(LoadForecastProfile(forecast, Ini(), 2026), std::nullopt);
    EXPECT_EQ(forecast.host, QString("https://tgftp.nws.noaa.gov"));
}

TEST_F(ProfileFile, BlankForecastTitleKeepsTheLastForecast)
{
    folder.Write("p.ini", "[ForecastProfile0]\ntitle=\n");
    ForecastProfile forecast;
    forecast.baseURL = "before";
    forecast.forecastText = "sunny";

    EXPECT_EQ(LoadForecastProfile(forecast, Ini(), 2026), std::nullopt);
    EXPECT_EQ(forecast.baseURL, QString("before"));
    EXPECT_EQ(forecast.forecastText, QString("sunny"));
}

class ClearedProfile : public ProfileFile
{
protected:
    void SetUp() override
    {
        profile = LoadFrom(FullSection(0).sliced(12));
        profile.timeStamp = 45000.5;
        profile.location = {"a", "b", "c", "d"};
        for (const Quantity quantity : kValues)
            profile.values[quantity] = RowOf(quantity).value.toString();
    }

    WeatherProfile profile;
};

TEST_F(ClearedProfile, LosesItsTexts)
{
    ClearWeatherProfile(profile);

    EXPECT_EQ(profile.timeStamp, 0);
    for (const QString &text :
         {profile.title, profile.copyright, profile.description, profile.baseURL,
          profile.windSpeedDirFormat, profile.mainNodeOpen, profile.mainNodeClose})
        EXPECT_EQ(text, QString());
    EXPECT_EQ(profile.location, (std::array<QString, 4>{}));
    EXPECT_EQ(profile.locationTitle, (std::array<QString, 4>{}));
    EXPECT_EQ(profile.required, QStringList());
}

TEST_F(ClearedProfile, LosesTheFirstFourteenValues)
{
    ClearWeatherProfile(profile);

    WeatherValues expected;
    expected[Quantity::Time] = "timeValue";
    expected[Quantity::Location] = "locationValue";
    EXPECT_EQ(profile.values, expected);
}

TEST_F(ClearedProfile, LosesTheTagsOfTheFirstFifteenQuantities)
{
    ClearWeatherProfile(profile);

    for (std::size_t i = 0; i < 15; ++i) {
        const QuantityTags &tags = profile.tags[i];
        for (const QString &text :
             {tags.Open, tags.Close, tags.Prefix, tags.Suffix, tags.Units, tags.Factor})
            EXPECT_EQ(text, QString());
    }
}

TEST_F(ClearedProfile, KeepsTimeAndLocationTagsAndCopyrightUrl)
{
    ClearWeatherProfile(profile);

    EXPECT_EQ(profile.copyrightURL, QString("the copyrightURL0"));
    for (std::size_t i = 15; i < kQuantityCount; ++i) {
        const QString stem = kStems[i];
        EXPECT_EQ(profile.tags[i].Open, stem + "-Open0");
        EXPECT_EQ(profile.tags[i].Close, stem + "-Close0");
        EXPECT_EQ(profile.tags[i].Prefix, stem + "-Prefix0");
        EXPECT_EQ(profile.tags[i].Suffix, stem + "-Suffix0");
        EXPECT_EQ(profile.tags[i].Units, stem + "-Units0");
        EXPECT_EQ(profile.tags[i].Factor, stem + "-Factor0");
    }
}

TEST_F(ClearedProfile, KeepsWhetherWindIsJoined)
{
    ClearWeatherProfile(profile);
    EXPECT_TRUE(profile.concatinateWindSpeedDir);

    profile.concatinateWindSpeedDir = false;
    ClearWeatherProfile(profile);
    EXPECT_FALSE(profile.concatinateWindSpeedDir);
}

} // namespace
