#include "e2e/service_test.h"

/// The service as it runs for years: what it writes and says, its signals, and a second start.
class tst_service final : public ServiceTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { Finish(); }

    void writesWhatTheWindowWrites();
    void saysAFailureAndTheEndOfIt();
    void endsInGoodOrder_data();
    void endsInGoodOrder();
    void readsItsFilesAnewOnSighup();
    void ignoresTheCallForAWindow();
    void givesWayToTheHolder_data();
    void givesWayToTheHolder();
    void callsTheWindowThatHoldsTheSession();
};

void tst_service::writesWhatTheWindowWrites()
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"});
    const QByteArray settings = "[Profile0]\r\nlocation1=KBWI\r\n"
                                "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n";
    Write("TavrinWeatherProfiles.ini",
          Expected("observation_profiles.ini")
              .replace("%HOST%", host.FirstLine().section(' ', -1).toLatin1()));
    Write("TavrinWeatherSettings.ini", settings);

    StartService();

    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Weather.ini")), kPatience);
    QCOMPARE(Bytes(Path("Weather.ini")), Expected("observation_weather.ini"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Forecast.ini")), kPatience);
    QCOMPARE(Bytes(Path("Forecast.ini")), Expected("observation_forecast.ini"));
    m_service->Terminate();
    QCOMPARE(m_service->ExitCode(), 0);
    QCOMPARE(m_service->Errors(), "");
    QCOMPARE(m_service->Output(), "");
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), settings);
    QCOMPARE(Files(),
             QStringList({"Forecast.ini", "TavrinWeatherMinMax.ini", "TavrinWeatherProfiles.ini",
                          "TavrinWeatherSettings.ini", "Weather.ini"}));
}

void tst_service::saysAFailureAndTheEndOfIt()
{
    m_host->failsWeather = true;
    Write("TavrinWeatherSettings.ini", kNoZone);
    StartService();
    const QByteArray missing = "TavrinWeatherService: the forecast is not set up: ForecastState, "
                               "ForecastZone in ~/TavrinWeatherSettings.ini\n";
    const QByteArray failed = "TavrinWeatherService: the weather failed: HTTP 404\n";
    WaitForErrors(missing + failed);

    m_host->failsWeather = false;
    Write("TavrinWeatherSettings.ini", QByteArray(kNoZone).replace("Salem", "Eugene"));
    Signal(SIGHUP); // the next request would be in a quarter of an hour

    WaitForErrors(missing + failed + missing + "TavrinWeatherService: the weather works again\n");
}

void tst_service::endsInGoodOrder_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_service::endsInGoodOrder()
{
    QFETCH(const int, number);
    StartService();
    WaitForRequests();
    QCOMPARE(Files().filter(".lock"), QStringList("TavrinWeatherUtility.lock"));

    Signal(number);

    QCOMPARE(m_service->ExitCode(), 0);
    QCOMPARE(m_service->Errors(), "");
    QVERIFY(Files().filter(".lock").isEmpty());
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), kSettings);
}

void tst_service::readsItsFilesAnewOnSighup()
{
    StartService();
    WaitForRequests();
    const QByteArray settings = QByteArray(kSettings).replace("Salem", "Eugene");
    Write("TavrinWeatherSettings.ini", settings);

    Signal(SIGHUP);
    QTRY_VERIFY_WITH_TIMEOUT(m_host->WasAskedFor("/now?q=Eugene"), kPatience);
    Signal(SIGHUP); // and again, for as long as it runs

    Signal(SIGTERM);
    QCOMPARE(m_service->ExitCode(), 0);
    QCOMPARE(m_service->Errors(), "");
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), settings);
    QVERIFY(!QFile::exists(Path("TavrinWeatherRecovery.ini")));
}

void tst_service::ignoresTheCallForAWindow()
{
    StartService();
    WaitForRequests();

    Signal(SIGUSR1);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Forecast.ini")), kPatience); // five seconds later

    QVERIFY(m_service->IsRunning());
    m_service->Terminate();
    QCOMPARE(m_service->ExitCode(), 0);
    QCOMPARE(m_service->Errors(), "");
}

void tst_service::givesWayToTheHolder_data()
{
    QTest::addColumn<QString>("holder");
    QTest::addColumn<QString>("starter");
    QTest::addColumn<QStringList>("arguments");
    const QString window = TAVRIN_PROGRAM;
    const QString service = TAVRIN_SERVICE;
    QTest::newRow("service beside window") << window << service << QStringList();
    QTest::newRow("one round beside window") << window << service << QStringList("--once");
    QTest::newRow("service beside service") << service << service << QStringList();
    QTest::newRow("one round beside service") << service << service << QStringList("--once");
    QTest::newRow("window beside service") << service << window << QStringList();
}

void tst_service::givesWayToTheHolder()
{
    QFETCH(const QString, holder);
    QFETCH(const QString, starter);
    QFETCH(const QStringList, arguments);
    m_service = Start(holder);
    WaitForRequests();
    const QByteArray settings = Bytes(Path("TavrinWeatherSettings.ini"));

    const auto second = Start(starter, arguments);
    QByteArray errors;
    const auto saysIt = [&] { return (errors += second->Errors()).contains('\n'); };
    QTRY_VERIFY_WITH_TIMEOUT(saysIt(), kPatience);
    errors.truncate(errors.indexOf('\n') + 1); // the window system may add words of its own
    if (starter == TAVRIN_PROGRAM)
        second->Terminate(); // closes its message; the service ends by itself

    QCOMPARE(second->ExitCode(), 4);
    QCOMPARE(QString(errors), QString("%1: this session is held by %2 (process %3)\n")
                                  .arg(QFileInfo(starter).fileName(), QFileInfo(holder).fileName())
                                  .arg(m_service->ProcessId()));
    QVERIFY(m_service->IsRunning());
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), settings);
    m_service->Terminate();
    QCOMPARE(m_service->ExitCode(), 0);
    QCOMPARE(m_service->Errors(), "");
}

void tst_service::callsTheWindowThatHoldsTheSession()
{
    m_service = Start(TAVRIN_PROGRAM);
    WaitForRequests();

    const auto second = Start(TAVRIN_PROGRAM);

    QCOMPARE(second->ExitCode(), 0);
    QCOMPARE(QString(second->Errors()).replace(m_folder->path(), "~"),
             "TavrinWeatherUtility: this session is running already. If it is not, delete "
             "~/TavrinWeatherUtility.lock\n");
    m_service->Terminate();
    QCOMPARE(m_service->ExitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_service)
#include "tst_service.moc"
