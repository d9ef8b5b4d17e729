#include "e2e/files.h"
#include "support/child_program.h"
#include "support/one_reply_service.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using namespace std::chrono_literals;

/// The built program in a folder of its own, beside a service on the loopback.
class tst_end_to_end final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void writesWeatherAndForecastOfTheDemoHost();
    void keepsToSessionAndCodePage();
    void writesNothingWithoutATemperature();
    void runsASessionOnce();
    void startsBehindAKilledCopy();
    void goesOnWhenNobodyReadsItsTraceAnyMore();

private:
    [[nodiscard]] QString Path(const QString &name) const { return m_folder->filePath(name); }

    /// Puts one of the test profile files into the folder, with the service's address filled in.
    void TakeProfiles(const QString &name, const QByteArray &host) const;
    void Start(const QStringList &arguments = {});
    [[nodiscard]] QProcessEnvironment Environment() const;
    void WaitForStart() const;

    /// Ends the program as the system does; it must obey, and have nothing to complain of.
    void EndProgram();

    /// The files in the folder, in alphabetical order.
    [[nodiscard]] QStringList Files() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ChildProgram> m_program;
};

void tst_end_to_end::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_end_to_end::cleanup()
{
    m_program.reset();
    m_folder.reset();
}

void tst_end_to_end::TakeProfiles(const QString &name, const QByteArray &host) const
{
    Write(Path("TavrinWeatherProfiles.ini"), Expected(name).replace("%HOST%", host));
}

void tst_end_to_end::Start(const QStringList &arguments)
{
    m_program = std::make_unique<ChildProgram>(TAVRIN_PROGRAM, arguments, Environment());
}

/// The last line that the start traces.
void tst_end_to_end::WaitForStart() const
{
    QTRY_VERIFY_WITH_TIMEOUT(Bytes(Path("trace.txt")).contains("Form_Load Point 10"), kPatience);
}

QProcessEnvironment tst_end_to_end::Environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char *proxy : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
        environment.remove(proxy);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("TAVRIN_WEATHER_FOLDER", m_folder->path());
    environment.insert("XDG_RUNTIME_DIR", m_folder->path()); // Qt warns where there is none
    environment.insert("TAVRIN_TRACE", Path("trace.txt"));
    return environment;
}

void tst_end_to_end::EndProgram()
{
    m_program->Terminate();
    const int exitCode = m_program->ExitCode();
    QCOMPARE(m_program->Errors(), "");
    QCOMPARE(exitCode, 0);
}

QStringList tst_end_to_end::Files() const
{
    return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void tst_end_to_end::writesWeatherAndForecastOfTheDemoHost()
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"});
    TakeProfiles("observation_profiles.ini", host.FirstLine().section(' ', -1).toLatin1());
    Write(Path("TavrinWeatherSettings.ini"),
          "[Profile0]\r\nlocation1=KBWI\r\n"
          "[Settings]\r\nForecastZone=MDZ011\r\nForecastState=MD\r\n");

    Start();

    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Weather.ini")), kPatience);
    QCOMPARE(Bytes(Path("Weather.ini")), Expected("observation_weather.ini"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Forecast.ini")), kPatience);
    QCOMPARE(Bytes(Path("Forecast.ini")), Expected("observation_forecast.ini"));
    EndProgram();
    QCOMPARE(Bytes(Path("Weather.ini")), Expected("observation_weather.ini"));
    QCOMPARE(Bytes(Path("Forecast.ini")), Expected("observation_forecast.ini"));
    QCOMPARE(Bytes(Path("TavrinWeatherSettings.ini")), Expected("observation_settings.ini"));
    QVERIFY(Bytes(Path("TavrinWeatherMinMax.ini")).contains("MIN=73.4\r\nMAX=73.4\r\n"));
}

void tst_end_to_end::keepsToSessionAndCodePage()
{
    const OneReplyService service("at=14:05;t=-7;sky=b\xC3\xB6ig, klar;v=12.6;d=NNW;rh=90;\n",
                                  "text/plain; charset=utf-8");
    TakeProfiles("harbour_profiles.ini", service.Address());
    Write(Path("TavrinWeatherSettings3.ini"), Expected("harbour_settings_before.ini"));

    Start({"/CODEPAGE=1252", "/SESSION=3"});

    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Weather3.ini")), kPatience);
    QCOMPARE(service.LastRequest(), "/now?place=Alter%20Hafen&mast=7");
    QVERIFY2(service.LastAgent().startsWith("TavrinWeatherUtility/" TAVRIN_VERSION),
             service.LastAgent());
    EndProgram();
    QCOMPARE(Bytes(Path("Weather3.ini")), Expected("harbour_weather3.ini"));
    QCOMPARE(Bytes(Path("TavrinWeatherSettings3.ini")), Expected("harbour_settings3.ini"));
    QCOMPARE(Files(), QStringList({"TavrinWeatherMinMax3.ini", "TavrinWeatherProfiles.ini",
                                   "TavrinWeatherSettings3.ini", "Weather3.ini", "trace.txt"}));
}

void tst_end_to_end::writesNothingWithoutATemperature()
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"});
    TakeProfiles("observation_profiles.ini", host.FirstLine().section(' ', -1).toLatin1());
    Write(Path("TavrinWeatherSettings.ini"), "[Profile0]\r\nlocation1=BIKF\r\n");

    Start();

    QTRY_VERIFY_WITH_TIMEOUT(
        Bytes(Path("trace.txt")).contains("Required value not found in received data: temperature"),
        kPatience);
    EndProgram();
    QVERIFY(!QFile::exists(Path("Weather.ini")));
}

void tst_end_to_end::runsASessionOnce()
{
    const OneReplyService service("at=14:05;t=-7;", "text/plain");
    TakeProfiles("harbour_profiles.ini", service.Address());
    Write(Path("TavrinWeatherSettings3.ini"), Expected("harbour_settings_before.ini"));
    Start({"/SESSION=3"});
    WaitForStart();
    const QByteArray settings = Bytes(Path("TavrinWeatherSettings3.ini"));

    ChildProgram second(TAVRIN_PROGRAM, {"/SESSION=3"}, Environment());
    QCOMPARE(second.ExitCode(), 0);
    QVERIFY(second.Errors().contains("running already"));
    QCOMPARE(Bytes(Path("TavrinWeatherSettings3.ini")), settings);

    ChildProgram other(TAVRIN_PROGRAM, {"/SESSION=4"}, Environment());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("TavrinWeatherSettings4.ini")), kPatience);
    other.Terminate();
    QCOMPARE(other.ExitCode(), 0);
    QCOMPARE(other.Errors(), "");
    m_program->Terminate();
    QCOMPARE(m_program->ExitCode(), 0); // the call has done it no harm
    QVERIFY(Files().filter(".lock").isEmpty());
}

void tst_end_to_end::startsBehindAKilledCopy()
{
    const OneReplyService service("at=14:05;t=-7;", "text/plain");
    TakeProfiles("harbour_profiles.ini", service.Address());
    Write(Path("TavrinWeatherSettings.ini"), Expected("harbour_settings_before.ini"));
    Start();
    WaitForStart();
    m_program.reset(); // killed
    QCOMPARE(Files().filter(".lock"), QStringList("TavrinWeatherUtility.lock"));
    QVERIFY(QFile::remove(Path("trace.txt")));
    Write(Path("Weather.ini.TavrinWeather-1a2b.tmp"), "half");
    Write(Path("Weather3.ini.TavrinWeather-1a2b.tmp"), "another session's");
    Write(Path("Weather.ini.backup"), "somebody's");

    Start();
    WaitForStart();

    QCOMPARE(Files().filter("Weather").filter(".ini."),
             QStringList({"Weather.ini.backup", "Weather3.ini.TavrinWeather-1a2b.tmp"}));
    EndProgram();
}

void tst_end_to_end::goesOnWhenNobodyReadsItsTraceAnyMore()
{
    const OneReplyService service("at=14:05;t=-7;sky=b\xC3\xB6ig, klar;v=12.6;d=NNW;rh=90;\n",
                                  "text/plain; charset=utf-8");
    TakeProfiles("harbour_profiles.ini", service.Address());
    Write(Path("TavrinWeatherSettings3.ini"), Expected("harbour_settings_before.ini"));
    const QByteArray pipe = QFile::encodeName(Path("trace.pipe"));
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    const int reader = ::open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QVERIFY(reader >= 0);
    auto environment = Environment();
    environment.insert("TAVRIN_TRACE", "1");
    m_program = std::make_unique<ChildProgram>(
        "/bin/sh",
        QStringList{"-c", R"(exec "$0" "$@" 2>trace.pipe)", TAVRIN_PROGRAM, "/SESSION=3"},
        environment, m_folder->path());
    char first = 0; // there is a trace
    QTRY_VERIFY_WITH_TIMEOUT(::read(reader, &first, 1) == 1, kPatience);
    ::close(reader);

    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Weather3.ini")), kPatience);

    QVERIFY(m_program->IsRunning());
    EndProgram();
    QCOMPARE(Bytes(Path("TavrinWeatherSettings3.ini")), Expected("harbour_settings3.ini"));
}

QTEST_GUILESS_MAIN(tst_end_to_end)
#include "tst_end_to_end.moc"
