#include "service/service.h"
#include "service/setup.h"
#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

namespace {

class ServiceSetup : public StationFixture
{
protected:
    /// The report on the files as they are now, with "~" for their folder.
    QString Report()
    {
        MakeStation(Owner::Service);
        EXPECT_FALSE(BringUp(*station));
        return SetupReport(*station).replace(station->Files().folder, "~");
    }

    void WriteProfiles(const QByteArray &bytes) const
    {
        folder.Write("TavrinWeatherProfiles.ini", bytes);
    }
    void WriteSettings(const QByteArray &bytes) const
    {
        folder.Write("TavrinWeatherSettings.ini", bytes);
    }
};

TEST_F(ServiceSetup, NamesWhatIsAskedFor)
{
    EXPECT_EQ(Report(), "weather: set up: One place, Salem\n"
                        "forecast: set up: zone MDZ011, state MD\n");
    EXPECT_TRUE(IsAnythingSetUp(*station));
    EXPECT_TRUE(http.calls.isEmpty());
}

TEST_F(ServiceSetup, NamesEachMissingKeyAndItsFile)
{
    WriteProfiles(kOnePlaceProfile + "location3Title=Mast\r\n");
    WriteSettings("[Profile0]\r\nlocation1=[SP]\r\n[Settings]\r\nForecastState=MD\r\n");

    EXPECT_EQ(Report(), "weather: missing: location1, location3 of Profile0 (One place) in "
                        "~/TavrinWeatherSettings.ini\n"
                        "forecast: missing: ForecastZone in ~/TavrinWeatherSettings.ini\n");
    EXPECT_FALSE(IsAnythingSetUp(*station));
}

TEST_F(ServiceSetup, NamesBothCodesOfTheForecast)
{
    WriteSettings("[Profile0]\r\nlocation1=Salem\r\n");

    EXPECT_EQ(Report(), "weather: set up: One place, Salem\n"
                        "forecast: missing: ForecastState, ForecastZone in "
                        "~/TavrinWeatherSettings.ini\n");
    EXPECT_TRUE(IsAnythingSetUp(*station));
}

TEST_F(ServiceSetup, NeedsAProfileWithAnAddress)
{
    WriteProfiles("[Profile0]\r\ntitle=One place\r\n");
    EXPECT_EQ(Report().section('\n', 0, 0),
              "weather: missing: Profile0 in ~/TavrinWeatherProfiles.ini has no baseURL");

    WriteProfiles({});
    EXPECT_EQ(Report().section('\n', 0, 0),
              "weather: missing: there is no profile in ~/TavrinWeatherProfiles.ini");

    WriteProfiles("[Profile1]\r\ntitle=Behind a gap\r\n");
    EXPECT_EQ(Report().section('\n', 0, 0),
              "weather: missing: there is no Profile0 in ~/TavrinWeatherProfiles.ini");
}

} // namespace
