#include "gui/main_window_test.h"
#include "support/one_place.h"
#include "support/recorded_trace.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

/// The countdowns, the request of the current weather and the wait for its reply.
class tst_UpdateCycle final : public OnePlaceTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void requestsOnTheFirstTick();
    void showsHoursForLongIntervals();
    void showsAndKeepsTheIntervalOfTheSettings();
    void startsOverAfterAManualRequest();
    void movesTheFocusFromThePressedButton();
    void freezesTheCountdownWithoutALocation();
    void ignoresLocationsThatAreNotShown();
    void checksLocationsWhateverPageIsShown();
    void usesTheLoadedPort();
    void reportsAPortThatCannotBeOpened();
    void reportsARefusedRequest();
    void waitsForTheReply();
    void neverDisablesItsButton();
    void discardsTheTransferBefore();
    void ignoresTheReplyToAnotherProfilesRequest();
    void countsDownToTheForecastInTwentyTicks();
    void flagsAZoneCodeBesideABadStateCode();
};

void tst_UpdateCycle::requestsOnTheFirstTick()
{
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Loading...");

    m->window->tmrWeatherCheck_Timer();
    const QStringList requested{"open 80", "get http://weather.test/now?q=Salem"};
    QCOMPARE(m->http.calls, requested);
    QCOMPARE(m->Text("lblStatus"), "Requesting Weather...");
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 0:00");

    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 14:59");
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 14:58");
    QCOMPARE(m->http.calls, requested);
}

void tst_UpdateCycle::showsHoursForLongIntervals()
{
    m->Find<QRadioButton>("optCheckInterval3")->setChecked(true);
    m->window->tmrWeatherCheck_Timer();
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 2:59:59");

    m->Find<QRadioButton>("optCheckInterval2")->setChecked(true);
    m->window->btnGetWeather_Click();
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 1:00:00");
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 59:59");

    m->Find<QRadioButton>("optCheckInterval1")->setChecked(true);
    m->window->btnGetWeather_Click();
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 30:00");
}

void tst_UpdateCycle::showsAndKeepsTheIntervalOfTheSettings()
{
    const QString file = "TavrinWeatherSettings.ini";
    QVERIFY(!m->Restart());
    QVERIFY(m->Find<QRadioButton>("optCheckInterval0")->isChecked());
    m->Find<QRadioButton>("optCheckInterval3")->setChecked(true);
    m->window->SaveSettings();
    QCOMPARE(m->Value(file, u"Settings", u"CheckInterval"), "missing");

    m->window->Unload(UnloadMode::Code);
    m->Write(file, m->Read(file).replace("[Settings]\r\n", "[Settings]\r\nCheckInterval=60\r\n"));
    QVERIFY(!m->Start());
    QVERIFY(m->Find<QRadioButton>("optCheckInterval2")->isChecked());
    QCOMPARE(m->station->CheckInterval(), 3600);

    m->Find<QRadioButton>("optCheckInterval1")->click();
    QVERIFY(!m->Restart());
    QCOMPARE(m->Value(file, u"Settings", u"CheckInterval"), "30");
    QVERIFY(m->Find<QRadioButton>("optCheckInterval1")->isChecked());
}

void tst_UpdateCycle::startsOverAfterAManualRequest()
{
    for (int tick = 0; tick <= 900 - 192; ++tick)
        m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 3:12");

    QTest::mouseClick(m->Find("btnGetWeather"), Qt::LeftButton);
    m->window->tmrWeatherCheck_Timer();

    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 15:00");
    QCOMPARE(m->http.calls.count("open 80"), 2);
}

void tst_UpdateCycle::movesTheFocusFromThePressedButton()
{
    m->Find("btnGetWeather")->setFocus();

    m->window->btnGetWeather_Click();

    QCOMPARE(m->window->focusWidget(), m->Find("txtFocus"));
}

void tst_UpdateCycle::freezesTheCountdownWithoutALocation()
{
    m->window->tmrWeatherCheck_Timer();
    m->window->tmrWeatherCheck_Timer();
    m->Type("txtLocation1", "   ");
    for (int tick = 0; tick < 5; ++tick)
        m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Invalid Location");

    m->Type("txtLocation1", "Salem");
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 14:58");
}

void tst_UpdateCycle::ignoresLocationsThatAreNotShown()
{
    QCOMPARE(m->Text("txtLocation2"), "");
    QVERIFY(!m->IsShown("frmLoc2"));

    m->window->tmrWeatherCheck_Timer();

    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 0:00");
}

void tst_UpdateCycle::checksLocationsWhateverPageIsShown()
{
    m->window->cmdPage_Click(2);
    m->Type("txtLocation1", "");

    m->window->tmrWeatherCheck_Timer();

    QCOMPARE(m->Text("lblNextWeatherCheck"), "Invalid Location");
    QCOMPARE(m->http.calls, QStringList());
}

void tst_UpdateCycle::usesTheLoadedPort()
{
    m->Write("TavrinWeatherSettings.ini",
             "[Settings]\r\nHTTPPort=8080\r\n[Profile0]\r\nlocation1=New[SP]York\r\n");
    QVERIFY(!m->Start());

    m->window->tmrWeatherCheck_Timer();

    const QStringList requested{"open 8080", "get http://weather.test:8080/now?q=New%20York"};
    QCOMPARE(m->http.calls, requested);
}

void tst_UpdateCycle::reportsAPortThatCannotBeOpened()
{
    m->Type("txtHTTPPort", "99999");
    m->http.refuseOpen = true;
    const RecordedTrace trace;

    m->window->StartWeatherRequest();

    QCOMPARE(m->Text("lblStatus"), "Unable to open HTTP handle on port 99999 for weather request");
    QVERIFY(trace.lines.contains("Unable to open HTTP handle on port 99999 for current weather"));
    QCOMPARE(m->station->WeatherThreadHandle(), 0);
}

void tst_UpdateCycle::reportsARefusedRequest()
{
    m->http.refuseGet = true;
    m->window->StartWeatherRequest();
    QCOMPARE(m->Text("lblStatus"), "Unable to open HTTP handle on port 80 for weather request");

    // The handle stays open and is read and closed like any other that has ended.
    m->window->tmrMain_Timer();
    QCOMPARE(m->station->WeatherThreadHandle(), 0);
    QVERIFY(m->http.open.empty());
}

void tst_UpdateCycle::waitsForTheReply()
{
    m->window->StartWeatherRequest();

    m->window->tmrMain_Timer();

    QCOMPARE(m->Text("lblStatus"), "Waiting for HTTP Host");
    QVERIFY(m->station->WeatherThreadHandle() != 0);
}

void tst_UpdateCycle::neverDisablesItsButton()
{
    const auto *button = m->Find<QPushButton>("btnGetWeather");
    m->window->btnGetWeather_Click();
    QVERIFY(button->isEnabled());
    m->window->tmrMain_Timer();
    QVERIFY(button->isEnabled());
}

void tst_UpdateCycle::discardsTheTransferBefore()
{
    m->window->btnGetWeather_Click();
    const TransferHandle first = m->station->WeatherThreadHandle();

    m->window->btnGetWeather_Click();

    QCOMPARE(m->http.calls.at(2), "close " + QString::number(first));
    QCOMPARE(m->http.calls.at(3), "open 80");
    QCOMPARE(m->http.open.size(), size_t(1));
}

void tst_UpdateCycle::ignoresTheReplyToAnotherProfilesRequest()
{
    // Two profiles that could both read the reply, for two places.
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini",
             kOnePlaceProfile + QByteArray(kOnePlaceProfile).replace("Profile0", "Profile1"));
    QVERIFY(!m->Start());
    m->Type("txtLocation1", "Salem");
    m->window->StartWeatherRequest();
    const TransferHandle handle = m->station->WeatherThreadHandle();

    m->Find<QComboBox>("cboSelectedProfile")->setCurrentIndex(1);
    m->http.Finish(handle, kOnePlaceReply);
    m->window->tmrMain_Timer();

    QCOMPARE(m->Text("txtCurrentTemp"), "");
    QVERIFY(!m->Exists("Weather.ini"));
    QVERIFY(m->http.open.empty());
    QCOMPARE(m->station->WeatherThreadHandle(), 0);
}

void tst_UpdateCycle::countsDownToTheForecastInTwentyTicks()
{
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(5000));
    for (int tick = 0; tick < 19; ++tick)
        m->window->tmrMain_Timer();
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(250));
    QCOMPARE(m->Text("lblNextForecastCheck"), "Loading...");

    m->window->tmrMain_Timer();
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Location");

    m->window->tmrMain_Timer();
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
}

void tst_UpdateCycle::flagsAZoneCodeBesideABadStateCode()
{
    m->Type("txtStateCode", "OREGON");
    m->Type("txtZoneCode", " ORZ006 ");
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Location");

    m->Type("txtStateCode", "OR");
    m->Type("txtLocation1", ""); // whatever the weather's location is like
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextForecastCheck"), "Next Update in 0:05");
}

QTEST_MAIN(tst_UpdateCycle)
#include "tst_update_cycle.moc"
