#include "service/one_round.h"
#include "service/service.h"
#include "support/qt_printers.h"
#include "unit/station/station_fixture.h"

using namespace std::chrono_literals;

namespace {

class ServiceOneRound : public StationFixture
{
protected:
    void StartRound()
    {
        MakeStation(Owner::Service);
        ASSERT_FALSE(BringUp(*station));
        round.emplace(*station, [this](const QString &line) { said.append(line); });
        round->Start();
    }

    void TearDown() override { round.reset(); } // before its station

    QStringList said;
    std::optional<OneRound> round;
};

TEST_F(ServiceOneRound, AsksForBothAtOnce)
{
    StartRound();
    EXPECT_EQ(Requests("http://weather.test/now?q=Salem"), 1);
    EXPECT_EQ(Requests("http://forecast.test/data/forecasts/zone/md/mdz011.txt"), 1);
    EXPECT_EQ(round->Result(), ExitCode::NoneStored);

    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    station->Poll();
    EXPECT_EQ(round->Result(), ExitCode::SomeStored);
    EXPECT_FALSE(round->IsDone());
    http.Finish(station->ForecastThreadHandle(), "TODAY. Sunny.");
    station->Poll();

    EXPECT_EQ(round->Result(), ExitCode::Done);
    EXPECT_TRUE(round->IsDone());
    EXPECT_EQ(said, QStringList());
}

TEST_F(ServiceOneRound, SaysWhatFailed)
{
    StartRound();

    http.Fail(station->WeatherThreadHandle(), "HTTP 404");
    http.Finish(station->ForecastThreadHandle(), "TODAY. Sunny.");
    station->Poll();

    EXPECT_EQ(round->Result(), ExitCode::SomeStored);
    EXPECT_EQ(said, QStringList("the weather failed: HTTP 404"));
}

TEST_F(ServiceOneRound, IsDoneWithoutWhatIsNotSetUp)
{
    folder.Write("TavrinWeatherSettings.ini", "[Profile0]\r\nlocation1=Salem\r\n");
    StartRound();
    http.Finish(station->WeatherThreadHandle(), kOnePlaceReply);
    station->Poll();

    EXPECT_EQ(round->Result(), ExitCode::Done);
    EXPECT_EQ(Requests("http://forecast.test"), 0);
    EXPECT_EQ(said, QStringList());
}

TEST_F(ServiceOneRound, SaysThatNothingIsSetUp)
{
    folder.Write("TavrinWeatherSettings.ini", "[Settings]\r\n");
    StartRound();

    EXPECT_TRUE(round->IsDone());
    EXPECT_EQ(round->Result(), ExitCode::NothingSetUp);
    EXPECT_FALSE(station->IsRunning());
    EXPECT_EQ(said.size(), 2);
    EXPECT_TRUE(http.calls.isEmpty());
}

} // namespace
