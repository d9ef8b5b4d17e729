#pragma once

#include "support/fake_transfers.h"
#include "support/fixed_clock.h"
#include "support/one_place.h"
#include "support/open_station.h"
#include "support/recorded_view.h"
#include "support/test_files.h"

#include <QFileInfo>

#include <memory>

/// A station in a folder of its own, with transfers and a clock that the test moves.
class StationFixture : public testing::Test
{
protected:
    StationFixture()
    {
        folder.Write("TavrinWeatherProfiles.ini",
                     kOnePlaceProfile + "[ForecastProfile0]\r\nhost=http://forecast.test\r\n");
        folder.Write("TavrinWeatherSettings.ini",
                     "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nFirstRun=False\r\n"
                     "ForecastZone=MDZ011\r\nForecastState=MD\r\n");
    }

    /// Makes a station that has not read anything yet.
    void MakeStation(Owner owner)
    {
        station = std::make_unique<OpenStation>(
            ProgramFiles{.folder = QFileInfo(folder.Path("x")).path()}, clock, http, writer, owner);
    }

    /// Brings a station up.
    /// @return what keeps it from starting.
    std::optional<QString> Start(Owner owner = Owner::Window)
    {
        MakeStation(owner);
        station->SetView(&view);
        station->LoadProfiles();
        if (auto problem = station->LoadSettings())
            return problem;
        station->ShowWeatherProfile();
        station->LoadExtremes();
        station->Start();
        return std::nullopt;
    }

    /// Lets time pass, with the ticks due in it.
    void PassSeconds(int seconds)
    {
        for (int i = 0; i < seconds; ++i) {
            clock.AdvanceSeconds(1);
            PollTimes(4);
            station->TickSecond();
        }
    }

    void PollTimes(int times)
    {
        for (int i = 0; i < times; ++i)
            station->Poll();
    }

    [[nodiscard]] int Requests(const QString &begin) const
    {
        return int(http.calls.filter("get " + begin).size());
    }

    [[nodiscard]] QString Value(const QString &file, QStringView section, QStringView key) const
    {
        return ReadIniValue(IniFile({folder.Path(file)}), section, key, u"missing");
    }

    TestFolder folder;
    FixedClock clock{QDateTime(QDate(2026, 7, 4), QTime(10, 0))};
    FakeTransfers http;
    DirectFileWriter writer;
    RecordedView view;
    std::unique_ptr<OpenStation> station;
};
