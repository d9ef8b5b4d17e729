#include "support/recorded_trace.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "gui/main_window.h"

namespace {

const QByteArray kProfiles = "[Profile0]\r\n"
                             "title=One place\r\n"
                             "baseURL=http://weather.test%PORT%/now?q=%LOC1%\r\n"
                             "copyright=Data (c) %YEAR% by %YEAR% people\r\n"
                             "copyrightURL=http://weather.test/\r\n"
                             "location1Title=City\r\n"
                             "mainNodeOpen=<now>\r\n"
                             "mainNodeClose=</now>\r\n"
                             "timeOpen=<time>\r\ntimeClose=</time>\r\n"
                             "locationOpen=<place>\r\nlocationClose=</place>\r\n"
                             "temperatureOpen=<temp>\r\ntemperatureClose=</temp>\r\n"
                             "temperatureUnits=[SP]F\r\n"
                             "conditionsOpen=<sky>\r\nconditionsClose=</sky>\r\n"
                             "humidityOpen=<hum>\r\nhumidityClose=</hum>\r\n"
                             "humidityUnits=[SP]%\r\n"
                             "visibilityUnits=?\r\n"
                             "precipOpen=<rain>\r\nprecipClose=</rain>\r\n"
                             "minTempUnits=%MIN%[SP]F\r\nmaxTempUnits=%MAX%[SP]F\r\n";

const QString kReply = "<html><now><time>9:53 AM</time><place>Salem, OR</place><temp>71</temp>"
                       "<sky>Sunny</sky><hum>40</hum><rain>0.1</rain> </now></html>";

} // namespace

/// The cycle from the countdown's tick over request and reply to the boxes and the output file.
class tst_UpdateCycle final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void requestsOnTheFirstTick();
    void showsHoursForLongIntervals();
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
    void goesFromTickToOutputFile();
    void keepsForeignKeysOfTheOutputFile();
    void keepsValuesAfterAReplyThatIsNone();
    void survivesAFailedTransfer();
    void hidesExtremesBeyondTheBounds_data();
    void hidesExtremesBeyondTheBounds();
    void savesWhatIsShown();
    void escapesLineBreaksInTheFile();
    void showsThePreviousDaysExtremes();
    void writesTheWholeOfALongValue();
    void keepsTheReplyForTheRawBox();
    void countsDownToTheForecastInTwentyTicks();
    void flagsAZoneCodeBesideABadStateCode();

private:
    void Receive(const QString &reply);
    void RequestAndReceive(const QString &reply);

    std::unique_ptr<MainWindow> m;
};

void tst_UpdateCycle::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini", kProfiles);
    QVERIFY(!m->Start());
    m->Type("txtLocation1", "Salem");
}

/// Ends the running transfer with `reply` and lets the window poll it.
void tst_UpdateCycle::Receive(const QString &reply)
{
    m->http.Finish(m->state.WeatherThreadHandle, reply);
    m->window->tmrMain_Timer();
}

void tst_UpdateCycle::RequestAndReceive(const QString &reply)
{
    m->window->btnGetWeather_Click();
    Receive(reply);
}

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
    QCOMPARE(m->state.WeatherThreadHandle, 0);
}

void tst_UpdateCycle::reportsARefusedRequest()
{
    m->http.refuseGet = true;
    m->window->StartWeatherRequest();
    QCOMPARE(m->Text("lblStatus"), "Unable to open HTTP handle on port 80 for weather request");

    // The handle stays open and is read and closed like any other that has ended.
    m->window->tmrMain_Timer();
    QCOMPARE(m->state.WeatherThreadHandle, 0);
    QVERIFY(m->http.open.empty());
}

void tst_UpdateCycle::waitsForTheReply()
{
    m->window->StartWeatherRequest();

    m->window->tmrMain_Timer();

    QCOMPARE(m->Text("lblStatus"), "Waiting for HTTP Host");
    QVERIFY(m->state.WeatherThreadHandle != 0);
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
    const TransferHandle first = m->state.WeatherThreadHandle;

    m->window->btnGetWeather_Click();

    QCOMPARE(m->http.calls.at(2), "close " + QString::number(first));
    QCOMPARE(m->http.calls.at(3), "open 80");
    QCOMPARE(m->http.open.size(), size_t(1));
}

void tst_UpdateCycle::goesFromTickToOutputFile()
{
    m->window->tmrWeatherCheck_Timer();
    const TransferHandle handle = m->state.WeatherThreadHandle;
    Receive(kReply);

    QCOMPARE(m->http.calls.last(), "close " + QString::number(handle));
    QCOMPARE(m->state.WeatherThreadHandle, 0);
    QCOMPARE(m->Text("lblStatus"), "Retrieved current weather data");
    QCOMPARE(m->Text("txtTime"), "9:53 AM");
    QCOMPARE(m->Text("txtLocation"), "Salem, OR");
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QCOMPARE(m->Text("txtCurrentConditions"), "Sunny");
    QCOMPARE(m->Text("txtWindSpeedDir"), "N/A");
    QCOMPARE(m->Text("txtHumidity"), "40 %");
    QCOMPARE(m->Text("txtVisibility"), "Not Available From Service");
    QCOMPARE(m->Text("txtPrevPrecip"), "0.1");
    QCOMPARE(m->Text("txtPrevMinTemp"), "N/A");
    QCOMPARE(m->Text("txtPrevMaxTemp"), "N/A");
    QCOMPARE(m->state.minMax.TodayMinTemp, 71.0);
    QCOMPARE(m->Read("Weather.ini"), "[Weather]\r\n"
                                     "TIME=9:53[SP]AM\r\n"
                                     "COPYRIGHT=Data[SP](c)[SP]2026[SP]by[SP]2026[SP]people\r\n"
                                     "COPYRIGHTURL=http://weather.test/\r\n"
                                     "CITY=Salem,[SP]OR\r\n"
                                     "TEMP=71.0[SP]F\r\n"
                                     "CONDITIONS=Sunny\r\n"
                                     "WINDS=N/A\r\n"
                                     "PRESSURE=N/A\r\n"
                                     "HUMIDITY=40[SP]%\r\n"
                                     "DEWPOINT=N/A\r\n"
                                     "WINDCHILL=N/A\r\n"
                                     "HEATINDEX=N/A\r\n"
                                     "VISIBILITY=Not[SP]Available[SP]From[SP]Service\r\n"
                                     "SUNRISE=N/A\r\n"
                                     "SUNSET=N/A\r\n"
                                     "PREVMIN=N/A\r\n"
                                     "PREVMAX=N/A\r\n");
}

void tst_UpdateCycle::keepsForeignKeysOfTheOutputFile()
{
    m->Write("Weather.ini", "; by hand\r\n[Weather]\r\nSTATION=KTVR\r\nTEMP=old\r\n");

    RequestAndReceive(kReply);

    const QByteArray bytes = m->Read("Weather.ini");
    QVERIFY(bytes.startsWith("; by hand\r\n[Weather]\r\nSTATION=KTVR\r\nTEMP=71.0[SP]F\r\n"));
}

void tst_UpdateCycle::keepsValuesAfterAReplyThatIsNone()
{
    RequestAndReceive(kReply);
    QVERIFY(QFile::remove(m->Path("Weather.ini")));

    RequestAndReceive("<html>Sorry</html>");

    QCOMPARE(m->Text("lblStatus"), "Could not find opening node tag in received data");
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QVERIFY(!m->Exists("Weather.ini"));
}

void tst_UpdateCycle::survivesAFailedTransfer()
{
    RequestAndReceive(kReply);
    const QByteArray before = m->Read("Weather.ini");
    const RecordedTrace trace;
    m->window->btnGetWeather_Click();

    m->http.Fail(m->state.WeatherThreadHandle, "HTTP 404");
    m->window->tmrMain_Timer();

    QCOMPARE(m->state.WeatherThreadHandle, 0);
    QVERIFY(trace.lines.contains("Weather transfer failed: HTTP 404"));
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QCOMPARE(m->Read("Weather.ini"), before);
}

void tst_UpdateCycle::hidesExtremesBeyondTheBounds_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing recorded, minimum") << "1000 F"
                                               << "N/A";
    QTest::newRow("nothing recorded, maximum") << "-1000 F"
                                               << "N/A";
    QTest::newRow("below the upper bound") << "199.9 F"
                                           << "199.9 F";
    QTest::newRow("upper bound") << "200 F"
                                 << "N/A";
    QTest::newRow("lower bound") << "-200"
                                 << "N/A";
    QTest::newRow("above the lower bound") << "-199"
                                           << "-199";
    QTest::newRow("no number") << "unknown"
                               << "unknown";
}

void tst_UpdateCycle::hidesExtremesBeyondTheBounds()
{
    QFETCH(QString, value);
    QFETCH(QString, shown);
    m->state.profiles.weather[0].values.minTempValue = value;
    m->state.profiles.weather[0].values.maxTempValue = value;

    m->window->DisplayWeatherData();
    m->window->SaveWeatherData();

    QCOMPARE(m->Text("txtPrevMinTemp"), shown);
    QCOMPARE(m->Text("txtPrevMaxTemp"), shown);
    QCOMPARE(m->Value("Weather.ini", u"Weather", u"PREVMIN"), shown);
    QCOMPARE(m->Value("Weather.ini", u"Weather", u"PREVMAX"), shown);
}

void tst_UpdateCycle::savesWhatIsShown()
{
    RequestAndReceive(kReply);

    m->window->ClearWeatherFields();
    m->window->SaveWeatherData();

    QCOMPARE(m->Read("Weather.ini"), "[Weather]\r\n"
                                     "TIME=\r\n"
                                     "COPYRIGHT=Data[SP](c)[SP]2026[SP]by[SP]2026[SP]people\r\n"
                                     "COPYRIGHTURL=http://weather.test/\r\n"
                                     "CITY=\r\nTEMP=\r\nCONDITIONS=\r\nWINDS=\r\nPRESSURE=\r\n"
                                     "HUMIDITY=\r\nDEWPOINT=\r\nWINDCHILL=\r\nHEATINDEX=\r\n"
                                     "VISIBILITY=\r\nSUNRISE=\r\nSUNSET=\r\nPREVMIN=\r\n"
                                     "PREVMAX=\r\n");
}

void tst_UpdateCycle::escapesLineBreaksInTheFile()
{
    m->state.profiles.weather[0].values.conditionsValue = "Rain\r\nand wind\t";

    m->window->DisplayWeatherData();
    m->window->SaveWeatherData();

    QVERIFY(m->Read("Weather.ini").contains("\r\nCONDITIONS=Rain[CR][LF]and[SP]wind[TAB]\r\n"));
}

void tst_UpdateCycle::showsThePreviousDaysExtremes()
{
    RequestAndReceive(kReply);
    m->clock.AdvanceSeconds(24 * 60 * 60);

    RequestAndReceive(QString(kReply).replace("71", "65"));

    QCOMPARE(m->Text("txtPrevMinTemp"), "71 F");
    QCOMPARE(m->Text("txtPrevMaxTemp"), "71 F");
    QCOMPARE(m->Value("TavrinWeatherMinMax.ini", u"GENERAL", u"CURRDAY"), "5");
}

void tst_UpdateCycle::writesTheWholeOfALongValue()
{
    const QString longText = QString(40000, u'x') + "end"; // beyond what a line edit holds

    RequestAndReceive(QString(kReply).replace("Sunny", longText));

    QVERIFY(m->Read("Weather.ini").contains("CONDITIONS=" + longText.toLatin1() + "\r\n"));
}

void tst_UpdateCycle::keepsTheReplyForTheRawBox()
{
    auto *raw = m->Find<QWidget>("frmWeatherRaw");
    QVERIFY(raw->isHidden());
    RequestAndReceive("<now>\n\t1</now>");

    QTest::mouseClick(m->Find("btnShowRaw"), Qt::LeftButton);

    QVERIFY(raw->isVisible());
    QCOMPARE(raw->pos(), QPoint(0, 0));
    QCOMPARE(raw->size(), m->window->size());
    const QString shown = m->Find("txtWeatherInfo")->property("plainText").toString();
    QCOMPARE(shown, "<now>\n     1</now>");
    QTest::mouseClick(raw->findChild<QPushButton *>("btnWeatherDone"), Qt::LeftButton);
    QVERIFY(raw->isHidden());
}

void tst_UpdateCycle::countsDownToTheForecastInTwentyTicks()
{
    QCOMPARE(m->state.ForecastRequestCountdown, qint16(5000));
    for (int tick = 0; tick < 19; ++tick)
        m->window->tmrMain_Timer();
    QCOMPARE(m->state.ForecastRequestCountdown, qint16(250));
    QCOMPARE(m->Text("lblNextForecastCheck"), "Loading...");

    m->window->tmrMain_Timer();
    QCOMPARE(m->state.ForecastRequestCountdown, qint16(0));
    QCOMPARE(m->Text("lblNextForecastCheck"), "Invalid Location");

    m->window->tmrMain_Timer();
    QCOMPARE(m->state.ForecastRequestCountdown, qint16(0));
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
    QCOMPARE(m->Text("lblNextForecastCheck"), "Forecast not available in this version");
}

QTEST_MAIN(tst_UpdateCycle)
#include "tst_update_cycle.moc"
