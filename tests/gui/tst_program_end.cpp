#include "app/desktop_session.h"
#include "gui/main_window.h"
#include "support/recorded_trace.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

namespace {

const QByteArray kTwoProfiles = "[Profile0]\r\ntitle=First\r\nlocation1Title=City\r\n"
                                "[Profile1]\r\ntitle=Second\r\nlocation1Title=Station\r\n"
                                "[ForecastProfile0]\r\ncopyright=Forecast (c) %YEAR%\r\n";

/// A close event as the window system sends it when the title bar is used.
bool CloseAtTitleBar(frmMain &window)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(&window, &event);
    return event.isAccepted();
}

} // namespace

/// How the program ends, and what it keeps for the next start.
class tst_ProgramEnd final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m = std::make_unique<MainWindow>(); }
    void cleanup() { m.reset(); }

    void asksAtTheTitleBarOnly();
    void goesOnWhenTheExitIsRefused();
    void endsWithoutAQuestion_data();
    void endsWithoutAQuestion();
    void quittingEndsWithoutAQuestion();
    void savesOnceHoweverItEnds();
    void savesWhileItGoesOn();
    void writesEveryKeyWhenItEnds();
    void keepsFilesPerSession();
    void keepsTheProfileNumberWithoutProfiles();
    void keepsAMultiLineLocation();
    void keepsLocationsAndProfilePerSession();

private:
    std::unique_ptr<MainWindow> m;
};

void tst_ProgramEnd::asksAtTheTitleBarOnly()
{
    QVERIFY(!m->Start());
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    const RecordedTrace trace;

    QVERIFY(CloseAtTitleBar(*m->window));

    QCOMPARE(
        m->questions,
        QStringList{"Confirm Exit: Are you sure you want to exit the Tavrin Weather Utility?"});
    QCOMPARE(trace.lines, QStringList{"unloadmode = 0"});
    QCOMPARE(unloaded.count(), 1);
}

void tst_ProgramEnd::goesOnWhenTheExitIsRefused()
{
    QVERIFY(!m->Start());
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    m->answer = false;

    QVERIFY(!CloseAtTitleBar(*m->window));

    QCOMPARE(unloaded.count(), 0);
    QVERIFY(m->window->isVisible());
    QCOMPARE(m->Read("TavrinWeatherSettings.ini"), "[Settings]\r\nFirstRun=False\r\n");
}

void tst_ProgramEnd::endsWithoutAQuestion_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("code") << 1;
    QTest::newRow("end of the desktop session") << 2;
    QTest::newRow("signal") << 3;
}

void tst_ProgramEnd::endsWithoutAQuestion()
{
    QFETCH(int, mode);
    QVERIFY(!m->Start());
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    m->answer = false;
    const RecordedTrace trace;

    if (mode == 1)
        QVERIFY(m->window->close());
    else
        QVERIFY(m->window->Unload(UnloadMode(mode)));

    QCOMPARE(m->questions, QStringList());
    QCOMPARE(trace.lines, QStringList{"unloadmode = " + QString::number(mode)});
    QCOMPARE(unloaded.count(), 1);
    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"HTTPPort"), "80");
}

void tst_ProgramEnd::quittingEndsWithoutAQuestion()
{
    QVERIFY(!m->Start());
    m->window->hide(); // as in the tray
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    DesktopSession session(*qApp, {});
    connect(&session, &DesktopSession::EndRequested, m->window.get(),
            [this] { m->window->Unload(UnloadMode::DesktopSession); });
    const RecordedTrace trace;

    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);

    QCOMPARE(unloaded.count(), 1);
    QCOMPARE(m->questions, QStringList());
    QCOMPARE(trace.lines, QStringList{"unloadmode = 2"});
    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"HTTPPort"), "80");
}

void tst_ProgramEnd::savesWhileItGoesOn()
{
    QVERIFY(!m->Start());
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    m->Type("txtZoneCode", "MDZ011");
    m->PassSeconds(2);
    QVERIFY(m->Exists("TavrinWeatherRecovery.ini"));

    m->window->SaveSettings();

    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"ForecastZone"), "MDZ011");
    QVERIFY(!m->Exists("TavrinWeatherRecovery.ini")); // there is nothing left to recover
    QCOMPARE(unloaded.count(), 0);
    m->Type("txtZoneCode", "MDZ012");
    m->window->Unload(UnloadMode::Code);
    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"ForecastZone"), "MDZ012");
}

void tst_ProgramEnd::savesOnceHoweverItEnds()
{
    QVERIFY(!m->Start());
    QSignalSpy unloaded(m->window.get(), &frmMain::Unloaded);
    m->window->Unload(UnloadMode::Signal);
    m->Write("TavrinWeatherSettings.ini", "");

    QVERIFY(m->window->Unload(UnloadMode::DesktopSession));
    QVERIFY(CloseAtTitleBar(*m->window));
    m->window->SaveSettings();

    QCOMPARE(m->Read("TavrinWeatherSettings.ini"), "");
    QCOMPARE(m->questions, QStringList());
    QCOMPARE(unloaded.count(), 1);
}

void tst_ProgramEnd::writesEveryKeyWhenItEnds()
{
    QVERIFY(!m->Start());
    m->window->Unload(UnloadMode::Code);

    const QString file = "TavrinWeatherSettings.ini";
    QCOMPARE(m->Value(file, u"Profile0", u"location1"), "");
    QCOMPARE(m->Value(file, u"Profile9", u"location4"), "");
    QCOMPARE(m->Value(file, u"Settings", u"FirstRun"), "False");
    QCOMPARE(m->Value(file, u"Settings", u"ForecastZone"), "");
    QCOMPARE(m->Value(file, u"Settings", u"ForecastState"), "");
    QCOMPARE(m->Value(file, u"Settings", u"ForecastSched0"), "True");
    QCOMPARE(m->Value(file, u"Settings", u"ForecastSched3"), "True");
    QCOMPARE(m->Value(file, u"Settings", u"CurrentProfile"), "0");
    QCOMPARE(m->Value(file, u"Settings", u"MinimizeOnStartup"), "True");
    QCOMPARE(m->Value(file, u"Settings", u"HTTPPort"), "80");
}

void tst_ProgramEnd::keepsFilesPerSession()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    QVERIFY(!m->Start("/SESSION=2"));
    m->window->SaveWeatherData();
    m->window->Unload(UnloadMode::Code);

    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->count(), 2); // from the shared file
    QVERIFY(m->Exists("TavrinWeatherSettings2.ini"));
    QVERIFY(m->Exists("TavrinWeatherMinMax2.ini"));
    QVERIFY(m->Exists("Weather2.ini"));
    QVERIFY(!m->Exists("TavrinWeatherSettings.ini"));
    QVERIFY(!m->Exists("TavrinWeatherMinMax.ini"));
    QVERIFY(!m->Exists("Weather.ini"));
    QVERIFY(!m->Exists("TavrinWeatherProfiles2.ini"));
}

void tst_ProgramEnd::keepsTheProfileNumberWithoutProfiles()
{
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nCurrentProfile=7\r\n");
    QVERIFY(!m->Start());
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(-1));
    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->currentIndex(), -1);

    m->window->tmrWeatherCheck_Timer();
    m->window->tmrMain_Timer();
    m->window->btnGetWeather_Click();
    m->window->ReloadWeatherProfile();
    m->window->Unload(UnloadMode::Code);

    QCOMPARE(m->http.calls, QStringList());
    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"CurrentProfile"), "7");
}

void tst_ProgramEnd::keepsAMultiLineLocation()
{
    const QString location = "two  blanks\ta tab\r\na line";
    m->Write("TavrinWeatherSettings.ini",
             "[Profile4]\r\nlocation3=two[SP][SP]blanks[TAB]a[SP]tab[CR][LF]a[SP]line\r\n");
    QVERIFY(!m->Start());
    QCOMPARE(m->station->profiles.weather[4].location[2], location);

    QVERIFY(!m->Restart()); // which stores it

    QCOMPARE(m->station->profiles.weather[4].location[2], location);
}

void tst_ProgramEnd::keepsLocationsAndProfilePerSession()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    QVERIFY(!m->Start());
    m->Type("txtLocation1", "Springfield");
    m->window->StartWeatherRequest(); // takes the boxes' texts into the profile
    QVERIFY(!m->Restart("/SESSION=3"));
    QCOMPARE(m->Text("txtLocation1"), "");
    m->Type("txtLocation1", "Portland");
    m->Find<QComboBox>("cboSelectedProfile")->setCurrentIndex(1);

    QVERIFY(!m->Restart());
    QCOMPARE(m->Text("txtLocation1"), "Springfield");
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(0));
    QVERIFY(!m->Restart("/SESSION=3"));
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(1));
    QCOMPARE(m->station->profiles.weather[0].location[0], "Portland");
}

QTEST_MAIN(tst_ProgramEnd)
#include "tst_program_end.moc"
