#include "store/settings_file.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

class SettingsFile : public testing::Test
{
protected:
    [[nodiscard]] IniPath Ini(const QString &name = "s.ini") const
    {
        return {.path = folder.Path(name)};
    }

    /// The settings of a file that has these lines in its section and is not of the first run.
    [[nodiscard]] LoadedSettings LoadFrom(const QByteArray &lines) const
    {
        folder.Write("s.ini", "[Settings]\r\nFirstRun=False\r\n" + lines);
        return LoadSettings(Ini());
    }

    TestFolder folder;
};

TEST_F(SettingsFile, FirstStartHasTheDefaultsAndWritesFirstRunOnly)
{
    const LoadedSettings loaded = LoadSettings(Ini());

    EXPECT_EQ(folder.Bytes("s.ini"), QByteArray("[Settings]\r\nFirstRun=False\r\n"));
    EXPECT_TRUE(loaded.settings.IsFirstRun);
    EXPECT_TRUE(loaded.settings.MinimizeOnStartupEnabled);
    for (const auto &location : loaded.settings.location)
        EXPECT_EQ(location, (std::array<QString, 4>{}));
    EXPECT_EQ(loaded.settings.currentWeatherProfile, 0);
    EXPECT_EQ(loaded.badCurrentProfile, std::nullopt);
    EXPECT_EQ(loaded.settings.ForecastZone, QString());
    EXPECT_EQ(loaded.settings.ForecastState, QString());
    EXPECT_EQ(loaded.settings.ForecastSched, (std::array{true, true, true, true}));
    EXPECT_EQ(loaded.settings.HTTPPort, QString("80"));
}

TEST_F(SettingsFile, SecondStartIsNotTheFirst)
{
    ASSERT_TRUE(LoadSettings(Ini()).settings.IsFirstRun);

    EXPECT_FALSE(LoadSettings(Ini()).settings.IsFirstRun);
}

TEST_F(SettingsFile, FirstRunIsTrueForTheExactTextOnly)
{
    folder.Write("s.ini", "[Settings]\nFirstRun=TRUE\n");
    EXPECT_FALSE(LoadSettings(Ini()).settings.IsFirstRun);
    EXPECT_EQ(folder.Bytes("s.ini"), QByteArray("[Settings]\nFirstRun=TRUE\n"));

    folder.Write("s.ini", "[Settings]\nFirstRun=True\n");
    EXPECT_TRUE(LoadSettings(Ini()).settings.IsFirstRun);
    EXPECT_EQ(folder.Bytes("s.ini"), QByteArray("[Settings]\nFirstRun=False\r\n"));
}

TEST_F(SettingsFile, LaterStartsWriteNothing)
{
    folder.Write("s.ini", "; mine\n[Settings]\nFirstRun = False\nHTTPPort=81");

    (void)LoadSettings(Ini());

    EXPECT_EQ(folder.Bytes("s.ini"),
              QByteArray("; mine\n[Settings]\nFirstRun = False\nHTTPPort=81"));
}

TEST_F(SettingsFile, MinimizingIsOnForTheExactTextOnly)
{
    EXPECT_TRUE(LoadFrom("MinimizeOnStartup=True").settings.MinimizeOnStartupEnabled);
    EXPECT_FALSE(LoadFrom("MinimizeOnStartup=TRUE").settings.MinimizeOnStartupEnabled);
    EXPECT_FALSE(LoadFrom("MinimizeOnStartup=true").settings.MinimizeOnStartupEnabled);
    EXPECT_FALSE(LoadFrom("MinimizeOnStartup=").settings.MinimizeOnStartupEnabled);
    EXPECT_FALSE(LoadFrom("MinimizeOnStartup=False").settings.MinimizeOnStartupEnabled);
}

TEST_F(SettingsFile, ScheduleBoxIsOffForTheExactTextOnly)
{
    EXPECT_EQ(LoadFrom("ForecastSched0=False\nForecastSched1=FALSE\nForecastSched2=no\n"
                       "ForecastSched3=\n")
                  .settings.ForecastSched,
              (std::array{false, true, true, true}));
    EXPECT_EQ(LoadFrom("ForecastSched3=False\n").settings.ForecastSched,
              (std::array{true, true, true, false}));
}

TEST_F(SettingsFile, PortIsLoadedAsItStands)
{
    EXPECT_EQ(LoadFrom("HTTPPort=8080").settings.HTTPPort, QString("8080"));
    EXPECT_EQ(LoadFrom("HTTPPort=").settings.HTTPPort, QString());
    EXPECT_EQ(LoadFrom("HTTPPort=proxy").settings.HTTPPort, QString("proxy"));
}

TEST_F(SettingsFile, CheckIntervalIsOneOfFourTexts)
{
    for (const int minutes : {15, 30, 60, 180}) {
        EXPECT_EQ(LoadFrom("CheckInterval=" + QByteArray::number(minutes)).settings.CheckInterval,
                  std::optional(minutes));
    }
    for (const char *text : {"", "0", "14", "30.0", "030", "+60", "1e2", "900", "30 min", "x"}) {
        EXPECT_EQ(LoadFrom(QByteArray("CheckInterval=") + text).settings.CheckInterval,
                  std::nullopt);
    }
    EXPECT_EQ(LoadFrom({}).settings.CheckInterval, std::nullopt);
}

TEST_F(SettingsFile, CheckIntervalIsStoredOnlyWhereThereIsOne)
{
    folder.Write("s.ini", "[Settings]\r\nCheckInterval=soon\r\n");
    SaveSettings(Ini(), {});
    EXPECT_EQ(ReadIniValue(IniFile(Ini()), u"Settings", u"CheckInterval"), "soon");

    Settings settings;
    settings.CheckInterval = 180;
    SaveSettings(Ini(), settings);
    EXPECT_EQ(ReadIniValue(IniFile(Ini()), u"Settings", u"CheckInterval"), "180");
}

struct CurrentProfileCase
{
    const char *name;
    QByteArray text;
    int expected;
};

void PrintTo(const CurrentProfileCase &c, std::ostream *out)
{
    *out << c.name;
}

class CurrentProfileNumber : public SettingsFile,
                             public testing::WithParamInterface<CurrentProfileCase>
{
};

TEST_P(CurrentProfileNumber, IsLoaded)
{
    const LoadedSettings loaded = LoadFrom("CurrentProfile=" + GetParam().text);

    EXPECT_EQ(loaded.badCurrentProfile, std::nullopt);
    EXPECT_EQ(loaded.settings.currentWeatherProfile, GetParam().expected);
}

const CurrentProfileCase kCurrentProfileCases[] = {
    {"Zero", "0", 0},
    {"Nine", "9", 9},
    {"OutOfTheListStays", "12", 12},
    {"NegativeStays", "-1", -1},
    {"BlanksAround", "[SP]3[TAB]", 3},
    {"HalfGoesToEven", "2.5", 2},
    {"Exponent", "7e0", 7},
    {"LargestOf16Bits", "32767", 32767},
    {"Beyond16Bits", "32768", 0},
    {"FarBeyond", "1e999", 0},
};

INSTANTIATE_TEST_SUITE_P(Table, CurrentProfileNumber, testing::ValuesIn(kCurrentProfileCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(SettingsFile, CurrentProfileThatIsNoNumberIsReported)
{
    for (const QString text : {"", "abc", "5abc", "1.2.3", "True", "5%"}) {
        const LoadedSettings loaded = LoadFrom("CurrentProfile=" + text.toUtf8());

        EXPECT_EQ(loaded.badCurrentProfile, std::optional(text));
        EXPECT_EQ(loaded.settings.currentWeatherProfile, 0);
    }
}

TEST_F(SettingsFile, BadCurrentProfileStillTakesTheFirstRun)
{
    folder.Write("s.ini", "[Settings]\nCurrentProfile=x\n");

    const LoadedSettings loaded = LoadSettings(Ini());

    EXPECT_EQ(loaded.badCurrentProfile, std::optional(QString("x")));
    EXPECT_EQ(folder.Bytes("s.ini"),
              QByteArray("[Settings]\nCurrentProfile=x\nFirstRun=False\r\n"));
}

Settings Example()
{
    Settings settings;
    settings.MinimizeOnStartupEnabled = false;
    settings.location[0] = {"Springfield, OR", "", "", ""};
    settings.location[9] = {"a\tb", "line\r\nbreak", " edges ", "[x]=;\"y\""};
    settings.currentWeatherProfile = 9;
    settings.ForecastZone = "042";
    settings.ForecastState = "OR";
    settings.ForecastSched = {true, false, true, false};
    settings.HTTPPort = "8080";
    return settings;
}

TEST_F(SettingsFile, SavedFileHasEveryKeyInOrder)
{
    SaveSettings(Ini(), Example());

    QByteArray expected =
        "[Profile0]\r\nlocation1=Springfield,[SP]OR\r\nlocation2=\r\nlocation3=\r\nlocation4=\r\n";
    for (char i = '1'; i <= '8'; ++i) {
        expected += QByteArray("[Profile") + i
                  + "]\r\nlocation1=\r\nlocation2=\r\nlocation3=\r\nlocation4=\r\n";
    }
    expected += "[Profile9]\r\nlocation1=a[TAB]b\r\nlocation2=line[CR][LF]break\r\n"
                "location3=[SP]edges[SP]\r\nlocation4=[x]=;\"y\"\r\n"
                "[Settings]\r\nForecastZone=042\r\nForecastState=OR\r\nForecastSched0=True\r\n"
                "ForecastSched1=False\r\nForecastSched2=True\r\nForecastSched3=False\r\n"
                "CurrentProfile=9\r\nMinimizeOnStartup=False\r\nHTTPPort=8080\r\n";
    EXPECT_EQ(folder.Bytes("s.ini"), expected);
}

TEST_F(SettingsFile, WhatIsSavedIsLoaded)
{
    const Settings saved = Example();
    ASSERT_TRUE(LoadSettings(Ini()).settings.IsFirstRun);

    SaveSettings(Ini(), saved);
    const LoadedSettings loaded = LoadSettings(Ini());

    EXPECT_FALSE(loaded.settings.IsFirstRun);
    EXPECT_EQ(loaded.settings.MinimizeOnStartupEnabled, saved.MinimizeOnStartupEnabled);
    EXPECT_EQ(loaded.settings.location, saved.location);
    EXPECT_EQ(loaded.settings.currentWeatherProfile, saved.currentWeatherProfile);
    EXPECT_EQ(loaded.badCurrentProfile, std::nullopt);
    EXPECT_EQ(loaded.settings.ForecastZone, saved.ForecastZone);
    EXPECT_EQ(loaded.settings.ForecastState, saved.ForecastState);
    EXPECT_EQ(loaded.settings.ForecastSched, saved.ForecastSched);
    EXPECT_EQ(loaded.settings.HTTPPort, saved.HTTPPort);
}

TEST_F(SettingsFile, SavingNeverWritesFirstRun)
{
    Settings settings = Example();
    settings.IsFirstRun = true;

    SaveSettings(Ini(), settings);

    EXPECT_FALSE(folder.Bytes("s.ini").contains("FirstRun"));
}

TEST_F(SettingsFile, SavingKeepsForeignLines)
{
    folder.Write("s.ini", "; note\n[Settings]\nFirstRun=False\nhttpport=1\nMine=2\n[Else]\nx=3\n");

    SaveSettings(Ini(), Example());

    const QByteArray bytes = folder.Bytes("s.ini");
    EXPECT_TRUE(bytes.startsWith("; note\n[Settings]\nFirstRun=False\nhttpport=8080\r\nMine=2\n"
                                 "ForecastZone=042\r\n"));
    EXPECT_TRUE(bytes.contains("\n[Else]\nx=3\n[Profile0]\r\n"));
}

TEST_F(SettingsFile, SessionsKeepTheirOwn)
{
    Settings second = Example();
    second.currentWeatherProfile = 2;
    second.location[0][0] = "Salem";

    SaveSettings(Ini("s.ini"), Example());
    SaveSettings(Ini("s2.ini"), second);

    EXPECT_EQ(LoadSettings(Ini("s.ini")).settings.location[0][0], QString("Springfield, OR"));
    EXPECT_EQ(LoadSettings(Ini("s.ini")).settings.currentWeatherProfile, 9);
    EXPECT_EQ(LoadSettings(Ini("s2.ini")).settings.location[0][0], QString("Salem"));
    EXPECT_EQ(LoadSettings(Ini("s2.ini")).settings.currentWeatherProfile, 2);
}

TEST_F(SettingsFile, SavingIsOneCommit)
{
    // A failed commit is traced, so the lines show how many there were.
    ASSERT_TRUE(QDir().mkdir(folder.Path("s.ini")));
    const RecordedTrace trace;

    SaveSettings(Ini(), Example());

    EXPECT_EQ(trace.lines.size(), 1);
}

TEST_F(SettingsFile, UnwritableFileLoadsTheDefaults)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("s.ini")));

    const LoadedSettings loaded = LoadSettings(Ini());

    EXPECT_TRUE(loaded.settings.IsFirstRun);
    EXPECT_EQ(loaded.settings.HTTPPort, QString("80"));
}

} // namespace
