#include "support/qt_printers.h"
#include "support/test_files.h"
#include "support/weather_values.h"
#include "weather/weather_output.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

QString ShownMinimum(const QString &value)
{
    WeatherValues values;
    values[Quantity::MinTemp] = value;
    return DisplayedValues(values)[Quantity::MinTemp];
}

QString ShownMaximum(const QString &value)
{
    WeatherValues values;
    values[Quantity::MaxTemp] = value;
    return DisplayedValues(values)[Quantity::MaxTemp];
}

TEST(DisplayedValues, HideTheStoresNeutralExtremes)
{
    EXPECT_EQ(ShownMinimum("1000 F"), "N/A");
    EXPECT_EQ(ShownMaximum("-1000 F"), "N/A");
    for (const auto shown : {ShownMinimum, ShownMaximum}) {
        EXPECT_EQ(shown("199.9 F"), "199.9 F");
        EXPECT_EQ(shown("200 F"), "N/A");
        EXPECT_EQ(shown("-200 F"), "N/A");
        EXPECT_EQ(shown("-199 F"), "-199 F");
        EXPECT_EQ(shown("no number"), "no number");
        EXPECT_EQ(shown(""), "");
        EXPECT_EQ(shown("1e999"), "N/A");
    }
}

TEST(DisplayedValues, AreOtherwiseUnchanged)
{
    WeatherValues values;
    for (const Quantity quantity : kValues)
        values[quantity] = RowOf(quantity).value.toString();
    values[Quantity::Temperature] = "1000 F";

    EXPECT_EQ(DisplayedValues(values), values);
}

class WeatherOutput : public testing::Test
{
protected:
    TestFolder folder;
    IniPath file{folder.Path("Weather3.ini"), CodePage::Utf8};
    WeatherProfile profile;
};

TEST_F(WeatherOutput, HoldsSeventeenKeysInOrder)
{
    profile.copyright = "Data (c) %YEAR%";
    profile.copyrightURL = "https://host/%YEAR%";
    const WeatherValues shown = ValuesOf({
        {Quantity::Temperature, "61.3 F"},
        {Quantity::Conditions, "Light Rain"},
        {Quantity::WindSpeed, "10 at NW"},
        {Quantity::Humidity, "75%"},
        {Quantity::AtmosPress, "30.1 in"},
        {Quantity::DewPoint, "53.1 F"},
        {Quantity::WindChill, "N/A"},
        {Quantity::HeatIndex, "62 F"},
        {Quantity::Visibility, "10 mi"},
        {Quantity::Sunrise, "7:01 AM"},
        {Quantity::Sunset, "4:31 PM"},
        {Quantity::MinTemp, "12.5 F"},
        {Quantity::MaxTemp, "71 F"},
        {Quantity::Precip, "0.02 in"},
        {Quantity::Time, "14:53"},
        {Quantity::Location, "Oak Hill"},
    });

    DirectFileWriter().Put(WeatherPatch(file, shown, &profile, 2024));

    EXPECT_EQ(folder.Bytes("Weather3.ini"), "[Weather]\r\n"
                                            "TIME=14:53\r\n"
                                            "COPYRIGHT=Data[SP](c)[SP]2024\r\n"
                                            "COPYRIGHTURL=https://host/%YEAR%\r\n"
                                            "CITY=Oak[SP]Hill\r\n"
                                            "TEMP=61.3[SP]F\r\n"
                                            "CONDITIONS=Light[SP]Rain\r\n"
                                            "WINDS=10[SP]at[SP]NW\r\n"
                                            "PRESSURE=30.1[SP]in\r\n"
                                            "HUMIDITY=75%\r\n"
                                            "DEWPOINT=53.1[SP]F\r\n"
                                            "WINDCHILL=N/A\r\n"
                                            "HEATINDEX=62[SP]F\r\n"
                                            "VISIBILITY=10[SP]mi\r\n"
                                            "SUNRISE=7:01[SP]AM\r\n"
                                            "SUNSET=4:31[SP]PM\r\n"
                                            "PREVMIN=12.5[SP]F\r\n"
                                            "PREVMAX=71[SP]F\r\n");
}

TEST_F(WeatherOutput, EscapesLineBreaks)
{
    WeatherValues shown;
    shown[Quantity::Conditions] = "a\r\nb\tc";

    DirectFileWriter().Put(WeatherPatch(file, shown, &profile, 2024));

    EXPECT_TRUE(folder.Bytes("Weather3.ini").contains("\r\nCONDITIONS=a[CR][LF]b[TAB]c\r\n"));
}

TEST_F(WeatherOutput, WritesEmptyValuesAndTheCreditsAfterClearing)
{
    profile.copyright = "Source";
    profile.copyrightURL = "https://host/";

    DirectFileWriter().Put(WeatherPatch(file, {}, &profile, 2024));

    EXPECT_EQ(folder.Bytes("Weather3.ini"),
              "[Weather]\r\nTIME=\r\nCOPYRIGHT=Source\r\nCOPYRIGHTURL=https://host/\r\nCITY=\r\n"
              "TEMP=\r\nCONDITIONS=\r\nWINDS=\r\nPRESSURE=\r\nHUMIDITY=\r\nDEWPOINT=\r\n"
              "WINDCHILL=\r\nHEATINDEX=\r\nVISIBILITY=\r\nSUNRISE=\r\nSUNSET=\r\nPREVMIN=\r\n"
              "PREVMAX=\r\n");
}

TEST_F(WeatherOutput, LeavesTheCreditsAloneWithoutAProfile)
{
    folder.Write("Weather3.ini", "[Weather]\r\nCOPYRIGHT=old\r\n");

    DirectFileWriter().Put(
        WeatherPatch(file, ValuesOf({{Quantity::Temperature, "1.0"}}), nullptr, 2024));

    const QByteArray written = folder.Bytes("Weather3.ini");
    EXPECT_TRUE(written.startsWith("[Weather]\r\nCOPYRIGHT=old\r\nTIME=\r\nCITY=\r\nTEMP=1.0\r\n"));
    EXPECT_FALSE(written.contains("COPYRIGHTURL"));
}

TEST_F(WeatherOutput, KeepsOtherWritersKeys)
{
    folder.Write("Weather3.ini", "; note\n[weather]\nTEMP = 5\nOwn=1\n\n[Other]\nx=y");

    DirectFileWriter().Put(
        WeatherPatch(file, ValuesOf({{Quantity::Temperature, "61.3 F"}}), nullptr, 2024));

    const QByteArray written = folder.Bytes("Weather3.ini");
    EXPECT_TRUE(written.startsWith("; note\n[weather]\nTEMP=61.3[SP]F\r\nOwn=1\nTIME=\r\n"));
    EXPECT_TRUE(written.endsWith("PREVMAX=\r\n\n[Other]\nx=y"));
}

TEST_F(WeatherOutput, ChangesNothingWhereItCannotWrite)
{
    ASSERT_TRUE(QDir().mkdir(file.path)); // a folder in place of the file

    DirectFileWriter().Put(
        WeatherPatch(file, ValuesOf({{Quantity::Temperature, "61.3 F"}}), &profile, 2024));

    EXPECT_TRUE(QFileInfo(file.path).isDir());
    EXPECT_EQ(QFileInfo(file.path).dir().entryList(QDir::Files | QDir::Hidden).size(), 0);
}

} // namespace
