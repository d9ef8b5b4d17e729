#include "store/settings_recovery.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

class RecoveryFile : public testing::Test
{
protected:
    [[nodiscard]] IniPath Ini() const { return {folder.Path("r.ini"), CodePage::Utf8}; }

    TestFolder folder;
};

Settings Example()
{
    Settings settings;
    settings.MinimizeOnStartupEnabled = false;
    settings.location[3] = {"Springfield, OR", "b", "", "d"};
    settings.currentWeatherProfile = 3;
    settings.ForecastZone = "MDZ011";
    settings.ForecastState = "MD";
    settings.ForecastSched = {false, true, true, false};
    settings.HTTPPort = "8080";
    return settings;
}

TEST_F(RecoveryFile, IsThereFromTheFirstChangeOn)
{
    SettingsRecovery recovery(Ini());
    Settings settings = Example();
    recovery.Keep(settings);
    recovery.Keep(settings);
    EXPECT_FALSE(QFile::exists(Ini().path));

    settings.ForecastZone = "MDZ012";
    recovery.Keep(settings);

    EXPECT_TRUE(folder.Bytes("r.ini").contains("ForecastZone=MDZ012\r\n"));
    EXPECT_FALSE(folder.Bytes("r.ini").contains("FirstRun"));
}

TEST_F(RecoveryFile, BringsEverySettingBack)
{
    SettingsRecovery before(Ini());
    before.Keep({});
    before.Keep(Example());

    Settings settings;
    settings.IsFirstRun = true;
    SettingsRecovery(Ini()).Apply(settings);

    EXPECT_TRUE(settings.IsFirstRun); // not its business
    settings.IsFirstRun = false;
    EXPECT_TRUE(settings == Example());
}

TEST_F(RecoveryFile, HasTheLastChange)
{
    SettingsRecovery recovery(Ini());
    recovery.Keep(Example());
    Settings settings = Example();
    settings.HTTPPort = "81";
    recovery.Keep(settings);
    recovery.Keep(Example()); // back to what the settings file has

    SettingsRecovery(Ini()).Apply(settings);
    EXPECT_EQ(settings.HTTPPort, "8080");
}

TEST_F(RecoveryFile, IsGoneAfterASave)
{
    SettingsRecovery recovery(Ini());
    recovery.Keep({});
    recovery.Keep(Example());
    ASSERT_TRUE(QFile::exists(Ini().path));

    recovery.Discard(Example());
    EXPECT_FALSE(QFile::exists(Ini().path));
    recovery.Discard(Example()); // nothing there

    recovery.Keep(Example()); // no change since
    EXPECT_FALSE(QFile::exists(Ini().path));
}

TEST_F(RecoveryFile, SaysWhenItIsUsed)
{
    Settings settings;
    const RecordedTrace trace;
    SettingsRecovery(Ini()).Apply(settings);
    EXPECT_TRUE(trace.lines.isEmpty());

    folder.Write("r.ini", "[Settings]\r\nHTTPPort=8080\r\n");
    SettingsRecovery(Ini()).Apply(settings);

    EXPECT_EQ(trace.lines, QStringList("Settings recovered from " + folder.Path("r.ini")));
    EXPECT_EQ(settings.HTTPPort, "8080");
}

TEST_F(RecoveryFile, ChangesNothingThatItDoesNotHold)
{
    folder.Write("r.ini", "[Settings]\r\nForecastZone=MDZ012\r\nCurrentProfile=x\r\n");
    Settings settings = Example();

    SettingsRecovery(Ini()).Apply(settings);

    Settings expected = Example();
    expected.ForecastZone = "MDZ012";
    EXPECT_TRUE(settings == expected);
}

TEST_F(RecoveryFile, LeavesEveryCharacterOfWhatItDoesNotHold)
{
    folder.Write("r.ini", "[Settings]\r\nForecastState=MD\r\n");
    Settings settings = Example();
    settings.location[0][0] = " at the pier ";
    settings.location[0][1] = "[TAB]";
    settings.location[9][3] = QString(4096, 'x');
    settings.ForecastZone = " MDZ011";
    settings.HTTPPort = "80 ";
    const Settings expected = settings;

    SettingsRecovery(Ini()).Apply(settings);

    EXPECT_TRUE(settings == expected);
}

TEST_F(RecoveryFile, ThatCannotBeWrittenIsTriedAgainAtTheNextChange)
{
    ASSERT_TRUE(QDir().mkdir(folder.Path("r.ini")));
    SettingsRecovery recovery(Ini());
    recovery.Keep({});
    const RecordedTrace trace;

    recovery.Keep(Example());
    recovery.Keep(Example());
    EXPECT_EQ(trace.lines.size(), 1);

    ASSERT_TRUE(QDir().rmdir(folder.Path("r.ini")));
    recovery.Keep({});
    EXPECT_TRUE(folder.Bytes("r.ini").contains("HTTPPort=80\r\n"));
}

} // namespace
