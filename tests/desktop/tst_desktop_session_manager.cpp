#include "desktop/running_program.h"
#include "desktop/session_manager.h"
#include "support/one_reply_service.h"

#include <QFileInfo>
#include <QTest>

#include <memory>

namespace {

const QString kSettingsFile = "TavrinWeatherSettings.ini";
const QString kLock = "TavrinWeatherUtility.lock";
const QByteArray kNoMinimising = "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n";

} // namespace

/// What a desktop's session manager asks of the program.
class tst_desktop_session_manager final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aCheckpointStoresTheSettings();
    void aCancelledLogOutStoresTheSettings();
    void aLogOutEndsTheProgram();
    void aLogOutEndsAnOpenQuestion();
    void theNextSessionStartsItAgain_data();
    void theNextSessionStartsItAgain();

private:
    void Start(const QStringList &arguments = {});
    void StartWith(const OneReplyService &service);
    void ChangeTheZone();
    void ExpectItGoesOn();

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<SessionManager> m_manager;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_session_manager::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
    m_manager = std::make_unique<SessionManager>();
    QVERIFY(!m_manager->Address().isEmpty());
    m_desktop->UseSessionManager(m_manager->Address());
}

void tst_desktop_session_manager::cleanup()
{
    if (QTest::currentTestFailed())
        qInfo() << "The session manager heard" << m_manager->Said();
    m_program.reset();
    m_manager.reset();
    m_desktop.reset();
}

void tst_desktop_session_manager::Start(const QStringList &arguments)
{
    m_program = std::make_unique<RunningProgram>(*m_desktop, arguments);
    QVERIFY(m_program->IsShown());
    QVERIFY(m_manager->HasNewClient());
}

void tst_desktop_session_manager::StartWith(const OneReplyService &service)
{
    m_desktop->Write("TavrinWeatherProfiles.ini",
                     "[Profile0]\r\ntitle=Service\r\nbaseURL=" + service.Address()
                         + "\r\nlocation1Title=Place\r\ntemperatureOpen=t=\r\n"
                           "temperatureClose=;\r\n");
    m_desktop->Write(kSettingsFile, kNoMinimising + "[Profile0]\r\nlocation1=a\r\n");
    Start();
}

void tst_desktop_session_manager::ChangeTheZone()
{
    QVERIFY(m_program->Click("cmdPage1"));
    QVERIFY(m_program->TypeInto("txtZoneCode", "MDZ011"));
    QVERIFY(!m_desktop->Read(kSettingsFile).contains("MDZ011"));
}

/// The program has stored the change, holds its session and makes its next request.
void tst_desktop_session_manager::ExpectItGoesOn()
{
    QVERIFY(m_desktop->Read(kSettingsFile).contains("ForecastZone=MDZ011\r\n"));
    QVERIFY(m_program->Process().IsRunning());
    RunningProgram second(*m_desktop);
    QCOMPARE(second.Process().ExitCode(), 0);
    QVERIFY(second.Process().Errors().contains("is running already"));
    const qsizetype before = m_program->Trace().count("Request URL: ");
    QVERIFY(m_program->Click("cmdPage0"));
    QVERIFY(m_program->Click("btnGetWeather"));
    QTRY_VERIFY_WITH_TIMEOUT(m_program->Trace().count("Request URL: ") > before, kPatience);
    QVERIFY(!m_program->Trace().contains("unloadmode"));

    m_program->Process().Terminate();
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_program->Trace().contains("unloadmode = 3\n"));
}

void tst_desktop_session_manager::aCheckpointStoresTheSettings()
{
    const OneReplyService service("t=61;", "text/plain");
    StartWith(service);
    ChangeTheZone();

    QVERIFY(m_manager->Checkpoint());

    ExpectItGoesOn();
}

void tst_desktop_session_manager::aCancelledLogOutStoresTheSettings()
{
    const OneReplyService service("t=61;", "text/plain");
    StartWith(service);
    ChangeTheZone();

    QVERIFY(m_manager->BeginLogOut());
    m_manager->CancelLogOut();

    ExpectItGoesOn();
}

void tst_desktop_session_manager::aLogOutEndsTheProgram()
{
    Start();
    ChangeTheZone();

    QVERIFY(m_manager->BeginLogOut());
    QVERIFY(!m_program->Trace().contains("unloadmode")); // the log-out may yet be cancelled
    QVERIFY(m_manager->EndSession());

    QCOMPARE(m_program->Process().ExitCode(), 0); // with a question it would not end
    QVERIFY(m_desktop->Read(kSettingsFile).contains("ForecastZone=MDZ011\r\n"));
    QVERIFY(!m_desktop->Files().contains(kLock));
    QVERIFY(m_program->Trace().contains("unloadmode = 2\n"));
    QVERIFY(!m_program->Trace().contains("unloadmode = 0\n"));
}

void tst_desktop_session_manager::aLogOutEndsAnOpenQuestion()
{
    Start();
    QVERIFY(m_program->IsActive());
    m_desktop->screen.Press("alt+F4");
    QVERIFY(m_program->IsTitledShown("Confirm Exit"));

    QVERIFY(m_manager->BeginLogOut());
    QVERIFY(m_manager->EndSession());

    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read(kSettingsFile).contains("HTTPPort=80\r\n"));
    QVERIFY(!m_desktop->Files().contains(kLock));
}

void tst_desktop_session_manager::theNextSessionStartsItAgain_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("title");
    QTest::newRow("default session") << QStringList() << "Tavrin Weather Utility";
    QTest::newRow("session 4") << QStringList({"/CODEPAGE=1252", "/SESSION=4"})
                               << "Tavrin Weather Utility - Session 4";
}

void tst_desktop_session_manager::theNextSessionStartsItAgain()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, title);
    Start(arguments);
    QVERIFY(m_manager->BeginLogOut());
    QStringList command = m_manager->RestartCommand();
    QVERIFY(m_manager->EndSession());
    QCOMPARE(m_program->Process().ExitCode(), 0);

    QCOMPARE(command.size(), 3 + arguments.size());
    QCOMPARE(command[0], QFileInfo(TAVRIN_PROGRAM).canonicalFilePath());
    QCOMPARE(command[1], "-session");
    QVERIFY2(command[2].startsWith("id-of-the-first-start_"), qUtf8Printable(command[2]));
    QCOMPARE(command.mid(3), arguments);

    command.removeFirst();
    m_program = std::make_unique<RunningProgram>(*m_desktop, command);
    QVERIFY(m_manager->HasClient("id-of-the-first-start"));
    QVERIFY(m_program->IsMinimised()); // no longer the first run
    QCOMPARE(m_program->Window().title, title);
    QVERIFY(m_program->Trace().contains("\nCommand:" + arguments.join(' ').toUtf8() + "\n"));

    QVERIFY(m_manager->BeginLogOut());
    const QStringList again = m_manager->RestartCommand();
    QCOMPARE(again.size(), 3 + arguments.size()); // with one id, not one more each time
    QCOMPARE(again.mid(3), arguments);
    QVERIFY(m_manager->EndSession());
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_program->Trace().endsWith("unloadmode = 2\n"));
}

QTEST_GUILESS_MAIN(tst_desktop_session_manager)
#include "tst_desktop_session_manager.moc"
