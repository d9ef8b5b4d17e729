#include "e2e/service_test.h"

/// One round, a look at what is set up, and what the console answers.
class tst_service_round final : public ServiceTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { Finish(); }

    void storesAllInOneRound();
    void tellsInOneRoundWhatWasStored_data();
    void tellsInOneRoundWhatWasStored();
    void endsARoundWhenAsked();
    void saysWhatIsSetUp();
    void refusesSettingsThatCannotBeUsed();
    void answersOnTheConsole();
    void keepsToSessionAndCodePage();
};

void tst_service_round::storesAllInOneRound()
{
    Write("Weather.ini.TavrinWeather-1a2b.tmp", "half"); // of a copy that was killed

    Run({"--once"});

    QCOMPARE(m_errors, "");
    QCOMPARE(m_exitCode, 0);
    QVERIFY(Bytes(Path("Weather.ini")).contains("TEMP=71.0[SP]F\r\n"));
    QVERIFY(Bytes(Path("Forecast.ini")).contains("DATA=TODAY.[SP]Sunny."));
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), kSettings);
    QCOMPARE(Files(),
             QStringList({"Forecast.ini", "TavrinWeatherMinMax.ini", "TavrinWeatherProfiles.ini",
                          "TavrinWeatherSettings.ini", "Weather.ini"}));
}

void tst_service_round::tellsInOneRoundWhatWasStored_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<bool>("failsWeather");
    QTest::addColumn<bool>("failsForecast");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("errors");
    const QByteArray me = "TavrinWeatherService: ";
    const QByteArray noWeather = me + "the weather failed: HTTP 404\n";
    const QByteArray noForecast = me + "the forecast failed: HTTP 404\n";
    QTest::newRow("weather alone") << kNoZone << false << true << 0 << QByteArray();
    QTest::newRow("forecast alone") << kNoLocation << true << false << 0 << QByteArray();
    QTest::newRow("no weather") << kSettings << true << false << 1 << noWeather;
    QTest::newRow("no forecast") << kSettings << false << true << 1 << noForecast;
    QTest::newRow("the only one fails") << kNoZone << true << true << 2 << noWeather;
    QTest::newRow("nothing is set up")
        << QByteArray("[Settings]\r\n") << false << false << 3
        << me
               + "the weather is not set up: location1 of Profile0 (One place) in "
                 "~/TavrinWeatherSettings.ini\n"
               + me
               + "the forecast is not set up: ForecastState, ForecastZone in "
                 "~/TavrinWeatherSettings.ini\n";
}

void tst_service_round::tellsInOneRoundWhatWasStored()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const bool, failsWeather);
    QFETCH(const bool, failsForecast);
    Write("TavrinWeatherSettings.ini", settings);
    m_host->failsWeather = failsWeather;
    m_host->failsForecast = failsForecast;

    Run({"--once"});

    QTEST(m_exitCode, "exitCode");
    QTEST(m_errors, "errors");
    QCOMPARE(m_output, "");
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), settings);
    QVERIFY(Files().filter(".lock").isEmpty());
}

void tst_service_round::endsARoundWhenAsked()
{
    const LoopbackServer silent(
        [](LoopbackConnection &connection, const std::string &) { connection.Hold(); });
    Write("TavrinWeatherProfiles.ini",
          m_host->Profiles().replace(m_host->Address(),
                                     silent.Url().substr(0, silent.Url().size() - 1).c_str()));
    StartService({"--once"});
    QTRY_VERIFY_WITH_TIMEOUT(silent.Heads().size() == 2, kPatience);

    m_service->Terminate();

    QCOMPARE(m_service->ExitCode(), 2);
    QCOMPARE(m_service->Errors(), "");
    QVERIFY(Files().filter(".lock").isEmpty());
}

void tst_service_round::saysWhatIsSetUp()
{
    Run({"--check"});
    QCOMPARE(m_output, "weather: set up: One place, Salem\n"
                       "forecast: set up: zone MDZ011, state MD\n");
    QCOMPARE(m_exitCode, 0);

    Write("TavrinWeatherSettings.ini", "[Settings]\r\nForecastState=MD\r\n");
    Run({"--check"});
    QCOMPARE(QString(m_output).replace(m_folder->path(), "~"),
             "weather: missing: location1 of Profile0 (One place) in ~/TavrinWeatherSettings.ini\n"
             "forecast: missing: ForecastZone in ~/TavrinWeatherSettings.ini\n");
    QCOMPARE(m_exitCode, 3);

    QCOMPARE(m_errors, "");
    QCOMPARE(Files(), QStringList({"TavrinWeatherProfiles.ini", "TavrinWeatherSettings.ini"}));
    QVERIFY(!m_host->WasAskedFor("/now?q=Salem"));
}

void tst_service_round::refusesSettingsThatCannotBeUsed()
{
    const QByteArray settings = "[Settings]\r\nCurrentProfile=two\r\n";
    Write("TavrinWeatherSettings.ini", settings);
    for (const QStringList &arguments : {QStringList(), {"--once"}, {"--check"}}) {
        Run(arguments);
        QCOMPARE(m_exitCode, 3);
        QVERIFY2(m_errors.contains("CurrentProfile is \"two\""), m_errors);
    }
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), settings);
    QVERIFY(Files().filter(".lock").isEmpty());
}

void tst_service_round::answersOnTheConsole()
{
    Run({"--version"});
    QCOMPARE(m_output, "TavrinWeatherService " TAVRIN_VERSION "\n");
    QCOMPARE(m_exitCode, 0);
    Run({"--help"});
    QVERIFY(m_output.startsWith("Usage: TavrinWeatherService "));
    QCOMPARE(m_exitCode, 0);
    Run({"--onec"});
    QCOMPARE(m_errors, "TavrinWeatherService: there is no option --onec\n");
    QCOMPARE(m_exitCode, 64);
}

void tst_service_round::keepsToSessionAndCodePage()
{
    Write("TavrinWeatherSettings3.ini", "[Profile0]\r\nlocation1=Gl\xFC"
                                        "ckstadt\r\n");

    Run({"/CODEPAGE=1252", "/SESSION=3", "--once"});

    QCOMPARE(m_exitCode, 0);
    QVERIFY(m_host->WasAskedFor("/now?q=Gl%C3%BCckstadt"));
    QCOMPARE(Files().filter("Weather3"), QStringList("Weather3.ini"));
    QVERIFY(!QFile::exists(Path("Weather.ini")));
}

QTEST_GUILESS_MAIN(tst_service_round)
#include "tst_service_round.moc"
