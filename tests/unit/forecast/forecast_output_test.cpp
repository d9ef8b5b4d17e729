#include "forecast/forecast_output.h"
#include "support/qt_printers.h"
#include "support/test_files.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class ForecastOutput : public testing::Test
{
protected:
    TestFolder folder;
    IniPath file{folder.Path("Forecast2.ini"), CodePage::Utf8};
    ForecastProfile profile;
};

TEST_F(ForecastOutput, HoldsThreeKeysInOrder)
{
    profile.copyright = "NWS %YEAR%, %YEAR% %year%";
    profile.copyrightURL = "https://host/%YEAR%";
    profile.forecastText = "TODAY. Sunny.\r\n\r\nTONIGHT.\tClear.";

    DirectFileWriter().Put(ForecastPatch(file, profile, 2026));

    EXPECT_EQ(folder.Bytes("Forecast2.ini"),
              "[FORECAST]\r\n"
              "COPYRIGHT=NWS[SP]2026,[SP]2026[SP]%year%\r\n"
              "COPYRIGHTURL=https://host/%YEAR%\r\n"
              "DATA=TODAY.[SP]Sunny.[CR][LF][CR][LF]TONIGHT.[TAB]Clear.\r\n");
}

TEST_F(ForecastOutput, ReadsBackAsTheSameLines)
{
    profile.copyright = "No year here";
    profile.forecastText = "  first\r\nsecond\r\r\n\r\n third ";

    DirectFileWriter().Put(ForecastPatch(file, profile, 2026));

    const IniFile written(file);
    EXPECT_EQ(ReadIniValue(written, u"FORECAST", u"DATA"), profile.forecastText);
    EXPECT_EQ(ReadIniValue(written, u"FORECAST", u"COPYRIGHT"), "No year here");
}

TEST_F(ForecastOutput, HasTheDataKeyForAnEmptyForecast)
{
    DirectFileWriter().Put(ForecastPatch(file, profile, 2026));

    EXPECT_EQ(folder.Bytes("Forecast2.ini"),
              "[FORECAST]\r\nCOPYRIGHT=\r\nCOPYRIGHTURL=\r\nDATA=\r\n");
}

TEST_F(ForecastOutput, KeepsOtherWritersKeys)
{
    folder.Write("Forecast2.ini", "; note\n[forecast]\ndata = old\nOwn=1\n\n[Other]\nx=y");
    profile.forecastText = "new";

    DirectFileWriter().Put(ForecastPatch(file, profile, 2026));

    EXPECT_EQ(folder.Bytes("Forecast2.ini"),
              "; note\n[forecast]\ndata=new\r\nOwn=1\nCOPYRIGHT=\r\nCOPYRIGHTURL=\r\n"
              "\n[Other]\nx=y");
}

TEST_F(ForecastOutput, ChangesNothingWhereItCannotWrite)
{
    ASSERT_TRUE(QDir().mkdir(file.path)); // a folder in place of the file

    DirectFileWriter().Put(ForecastPatch(file, profile, 2026));

    EXPECT_TRUE(QFileInfo(file.path).isDir());
    EXPECT_EQ(QFileInfo(file.path).dir().entryList(QDir::Files | QDir::Hidden).size(), 0);
}

} // namespace
