#include "controls/long_text_box.h"
#include "gui/main_window.h"
#include "support/one_place.h"
#include "support/recorded_trace.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>

namespace {

const QString kUrl = "http://forecast.test/data/forecasts/zone/md/mdz011.txt";

const QString kProduct = "Expires:202607041500;;123456\nFPUS51 KLWX 040800\nZFPLWX\n\n"
                         "MDZ011-041500-\nSouthern Baltimore-\n400 AM EDT Sat Jul 4 2026\n\n"
                         ".TODAY...Sunny.\n.TONIGHT...Clear.\n\n$$\n";

// After the zone's line, each line end gets a carriage return and each heading a paragraph of its
// own.
const QString kCleaned = "Southern Baltimore-\r\n400 AM EDT Sat Jul 4 2026\r\n\r\n\r\n"
                         "TODAY. Sunny.\r\n\r\nTONIGHT. Clear.\r\n\r\n";

} // namespace

/// The page "Forecast": requests, the schedule, reception and the forecast file.
class tst_Forecast final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void requestsFiveSecondsAfterTheStart();
    void requestsAtOnceWhenAsked();
    void refusesARequestWithoutBothCodes();
    void reportsAPortThatCannotBeOpened();
    void showsAndSavesWhatItReceives();
    void touchesNothingBeforeTheFirstSuccess();
    void savesTheLastForecastAgainAfterAFailure();
    void requestsWhenASlotComes();
    void firesASlotWithoutItsBox();
    void showsTheWaitForTheNextSlot();
    void runsBesideAWeatherTransfer();
    void receivesZoneCodes();
    void holdsAForecastOfMegabytes();

private:
    void Receive(const QString &text)
    {
        m->http.Finish(m->station->ForecastThreadHandle(), text);
        m->window->tmrMain_Timer();
    }
    [[nodiscard]] QString Shown() const { return m->Find<LongTextBox>("txtForecast")->Text(); }

    std::unique_ptr<MainWindow> m;
};

void tst_Forecast::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini",
             kOnePlaceProfile
                 + "[ForecastProfile0]\r\nhost=http://forecast.test\r\n"
                   "copyright=NWS %YEAR%\r\ncopyrightURL=http://credit.test/\r\n");
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nFirstRun=False\r\n"
                                          "MinimizeOnStartup=False\r\nForecastZone=MDZ011\r\n"
                                          "ForecastState=MD\r\n");
    QVERIFY(!m->Start());
}

void tst_Forecast::requestsFiveSecondsAfterTheStart()
{
    for (int tick = 0; tick < 19; ++tick)
        m->window->tmrMain_Timer();
    QVERIFY(m->http.calls.isEmpty());

    m->window->tmrMain_Timer();

    const QStringList requested{"open 80", "get " + kUrl};
    QCOMPARE(m->http.calls, requested);
    QCOMPARE(m->Text("lblStatus"), "Requesting Forecast...");
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
    QCOMPARE(m->station->Forecast().ForecastZoneCode(), "MDZ011");
}

void tst_Forecast::requestsAtOnceWhenAsked()
{
    m->window->show();
    m->window->cmdPage_Click(1);

    QTest::mouseClick(m->Find<QPushButton>("btnGetForecast"), Qt::LeftButton);

    QCOMPARE(m->http.calls.last(), "get " + kUrl);
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
}

void tst_Forecast::refusesARequestWithoutBothCodes()
{
    m->Type("txtStateCode", "  ");

    m->window->btnGetForecast_Click();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Location");

    m->Find<QLabel>("lblNextForecastCheck")->setText("before");
    for (int tick = 0; tick < 20; ++tick)
        m->window->tmrMain_Timer();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Location");
    QVERIFY(m->http.calls.isEmpty());
}

void tst_Forecast::reportsAPortThatCannotBeOpened()
{
    m->http.refuseOpen = true;
    m->Type("txtHTTPPort", "x");

    m->window->StartForecastRequest();

    QCOMPARE(m->Text("lblStatus"), "Unable to open HTTP handle on port x for forecast request");
    QCOMPARE(m->station->ForecastThreadHandle(), 0);
}

void tst_Forecast::showsAndSavesWhatItReceives()
{
    m->window->StartForecastRequest();
    m->window->tmrMain_Timer();
    QCOMPARE(Shown(), "");

    Receive(kProduct);

    QCOMPARE(m->Text("lblStatus"), "Received forecast data");
    QCOMPARE(Shown(), kCleaned);
    QCOMPARE(m->Read("Forecast.ini"),
             "[FORECAST]\r\nCOPYRIGHT=NWS[SP]2026\r\nCOPYRIGHTURL=http://credit.test/\r\n"
             "DATA=Southern[SP]Baltimore-[CR][LF]400[SP]AM[SP]EDT[SP]Sat[SP]Jul[SP]4[SP]2026"
             "[CR][LF][CR][LF][CR][LF]TODAY.[SP]Sunny.[CR][LF][CR][LF]TONIGHT.[SP]Clear."
             "[CR][LF][CR][LF]\r\n");
    QCOMPARE(m->station->ForecastThreadHandle(), 0);
    QVERIFY(m->http.open.empty());
}

void tst_Forecast::touchesNothingBeforeTheFirstSuccess()
{
    m->Write("Forecast.ini", "[FORECAST]\r\nDATA=yesterday\r\n");
    m->window->StartForecastRequest();
    const RecordedTrace trace;

    m->http.Fail(m->station->ForecastThreadHandle(), "HTTP 503");
    m->window->tmrMain_Timer();

    QCOMPARE(m->Text("lblStatus"), "An error occured receiving forecast");
    QVERIFY(trace.lines.contains("An error occurred while retrieving the forecast. HTTP 503"));
    QCOMPARE(Shown(), "");
    QCOMPARE(m->Read("Forecast.ini"), "[FORECAST]\r\nDATA=yesterday\r\n");
    // Half a minute, less the share of this very tick.
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(29750));
}

void tst_Forecast::savesTheLastForecastAgainAfterAFailure()
{
    m->window->StartForecastRequest();
    Receive(kProduct);
    m->Write("Forecast.ini", "");

    m->window->StartForecastRequest();
    Receive(" ");

    QCOMPARE(m->Text("lblStatus"), "Forecast host returned no forecast data");
    QCOMPARE(Shown(), kCleaned);
    QVERIFY(m->Read("Forecast.ini").contains("DATA=Southern"));
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
}

void tst_Forecast::requestsWhenASlotComes()
{
    m->station->SetForecastRequestCountdown(0);
    m->clock.Set(QDateTime(QDate(2026, 7, 4), QTime(5, 59, 59)));
    m->window->CheckForecastSchedule();
    QVERIFY(m->http.calls.isEmpty());

    m->clock.Set(QDateTime(QDate(2026, 7, 4), QTime(6, 0, 5)));
    m->window->CheckForecastSchedule();
    QCOMPARE(m->http.calls.last(), "get " + kUrl);
    QCOMPARE(m->Text("lblNextForecastCheck"), "Next Update in 5:59:55");

    m->clock.AdvanceSeconds(1);
    m->window->CheckForecastSchedule();
    QCOMPARE(m->http.calls.size(), 2); // opened and started once
}

void tst_Forecast::firesASlotWithoutItsBox()
{
    m->station->SetForecastRequestCountdown(0);
    for (int i = 0; i < 4; ++i)
        m->Find<QCheckBox>("chkForecastTime" + QString::number(i))->setChecked(false);
    m->clock.Set(QDateTime(QDate(2026, 7, 4), QTime(18, 0, 0)));

    m->window->CheckForecastSchedule();

    QCOMPARE(m->http.calls.last(), "get " + kUrl);
    QCOMPARE(m->Text("lblNextForecastCheck"), "No Schedule Selected");
}

void tst_Forecast::showsTheWaitForTheNextSlot()
{
    m->window->CheckForecastSchedule();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Next Update in 0:05");

    m->station->SetForecastRequestCountdown(0);
    m->window->CheckForecastSchedule();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Next Update in 2:00:00"); // at ten o'clock

    m->Type("txtZoneCode", "MDZ");
    m->Type("txtStateCode", "OREGON");
    m->window->CheckForecastSchedule();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Zone Code/State");
}

void tst_Forecast::runsBesideAWeatherTransfer()
{
    m->Type("txtLocation1", "Salem");
    m->window->StartWeatherRequest();
    m->window->StartForecastRequest();
    m->http.Finish(m->station->WeatherThreadHandle(), kOnePlaceReply);

    Receive(kProduct);

    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QCOMPARE(Shown(), kCleaned);
    QVERIFY(m->http.open.empty());
}

void tst_Forecast::receivesZoneCodes()
{
    m->station->AwaitZoneCodes(m->http.Net_HTTPThreadOpen("80"));
    const RecordedTrace trace;

    m->window->tmrMain_Timer();
    QCOMPARE(trace.lines, QStringList{"Checking NOAAZoneCodeHandle 1"});

    m->http.Finish(1, "codes");
    m->window->tmrMain_Timer();
    QCOMPARE(m->Text("lblStatus"), "Finished retrieving zone codes.");
    QCOMPARE(m->station->ZoneCodeThreadHandle(), 0);
    QVERIFY(m->http.open.empty());
}

void tst_Forecast::holdsAForecastOfMegabytes()
{
    const QString body = QString(QString(70, 'x') + '\n').repeated(60'000);
    m->window->StartForecastRequest();

    Receive("MDZ011-\n" + body + "$$");

    QCOMPARE(Shown().size(), qsizetype(60'000) * 72);
    QVERIFY(m->Read("Forecast.ini").size() > qsizetype(60'000) * 70);
}

QTEST_MAIN(tst_Forecast)
#include "tst_forecast.moc"
