#include "desktop/running_program.h"
#include "support/one_reply_service.h"

#include <QTest>

#include <memory>

namespace {

const QString kSettings = "TavrinWeatherSettings.ini";
const QString kRecovery = "TavrinWeatherRecovery.ini";
const QByteArray kFirstRunOnly = "[Settings]\r\nFirstRun=False\r\n";

} // namespace

/// The ways in which the program can end.
class tst_desktop_end final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theTitleBarAsks_data();
    void theTitleBarAsks();
    void aSignalEndsWithoutAQuestion();
    void aSignalEndsAnOpenQuestion();
    void theEndOfTheScreenLeavesFilesWhole();
    void aSettingSurvivesTheEndOfTheScreen();

private:
    void MoveToANewScreen();

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_end::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
}

void tst_desktop_end::cleanup()
{
    m_program.reset();
    m_desktop.reset();
}

void tst_desktop_end::theTitleBarAsks_data()
{
    QTest::addColumn<bool>("byKeys");
    QTest::newRow("button") << false;
    QTest::newRow("keys") << true;
}

void tst_desktop_end::theTitleBarAsks()
{
    QFETCH(bool, byKeys);
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    const auto close = [&] {
        if (byKeys)
            m_desktop->screen.Press("alt+F4");
        else
            m_desktop->windows.ClickTitleBar(m_program->Window().id,
                                             WindowManager::TitleButton::Close);
    };
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->IsActive());

    close();
    QVERIFY(m_program->IsTitledShown("Confirm Exit"));
    QVERIFY(m_program->IsTitledShown("Are you sure you want to exit the Tavrin Weather Utility?"));
    QVERIFY(m_program->ClickTitled("No"));
    QVERIFY(m_program->IsActive());
    QVERIFY(m_program->Click("cmdPage1")); // it goes on
    QTRY_VERIFY_WITH_TIMEOUT(m_program->Is("frmPage1", RunningProgram::State::Showing), kPatience);
    QCOMPARE(m_desktop->Read(kSettings), kFirstRunOnly);

    close();
    QVERIFY(m_program->ClickTitled("Yes"));
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read(kSettings).contains("HTTPPort=80\r\n"));
}

void tst_desktop_end::aSignalEndsWithoutAQuestion()
{
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    QVERIFY(m_program->IsShown());

    m_program->Process().Terminate();

    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read(kSettings).contains("HTTPPort=80\r\n"));
    QVERIFY(m_program->Trace().contains("unloadmode = 3\n"));
}

void tst_desktop_end::aSignalEndsAnOpenQuestion()
{
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->IsActive());
    m_desktop->screen.Press("alt+F4");
    QVERIFY(m_program->IsTitledShown("Confirm Exit"));

    m_program->Process().Terminate();

    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read(kSettings).contains("HTTPPort=80\r\n"));
}

void tst_desktop_end::theEndOfTheScreenLeavesFilesWhole()
{
    const OneReplyService service("t=61;", "text/plain");
    m_desktop->Write("TavrinWeatherProfiles.ini",
                     "[Profile0]\r\ntitle=Service\r\nbaseURL=" + service.Address()
                         + "\r\nlocation1Title=Place\r\ntemperatureOpen=t=\r\n"
                           "temperatureClose=;\r\n");
    m_desktop->Write(kSettings,
                     kFirstRunOnly + "MinimizeOnStartup=False\r\n[Profile0]\r\nlocation1=a\r\n");
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    QVERIFY(m_program->IsShown());
    QTRY_VERIFY_WITH_TIMEOUT(m_desktop->Files().contains("Weather.ini"), kPatience);
    const QByteArray weather = m_desktop->Read("Weather.ini");
    QVERIFY(weather.contains("61"));

    m_desktop->screen.Kill();

    QTRY_VERIFY_WITH_TIMEOUT(!m_program->Process().IsRunning(), kPatience);
    QCOMPARE(m_desktop->Read("Weather.ini"), weather);
    QVERIFY(m_desktop->Read(kSettings).startsWith(kFirstRunOnly));
    QVERIFY(m_desktop->Read(kSettings).endsWith("\r\n"));
    // No part of a file that was being written, under any name; the session's lock stays.
    QCOMPARE(m_desktop->Files(),
             QStringList({"TavrinWeatherMinMax.ini", "TavrinWeatherProfiles.ini", kSettings,
                          "TavrinWeatherUtility.lock", "Weather.ini"}));
}

/// Goes on with the same files on a desktop whose X server is alive.
void tst_desktop_end::MoveToANewScreen()
{
    auto next = std::make_unique<Desktop>();
    QVERIFY(next->IsUp());
    for (const QString &name : m_desktop->Files())
        next->Write(name, m_desktop->Read(name));
    m_program.reset();
    m_desktop = std::move(next);
}

void tst_desktop_end::aSettingSurvivesTheEndOfTheScreen()
{
    const QByteArray settings = kFirstRunOnly + "MinimizeOnStartup=False\r\n";
    m_desktop->Write(kSettings, settings);
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    QVERIFY(m_program->IsShown());
    QVERIFY(!m_desktop->Files().contains(kRecovery));
    QVERIFY(m_program->Click("cmdPage1"));
    QVERIFY(m_program->TypeInto("txtZoneCode", "MDZ011"));
    QTRY_VERIFY_WITH_TIMEOUT(m_desktop->Read(kRecovery).contains("ForecastZone=MDZ011\r\n"),
                             kPatience);

    m_desktop->screen.Kill();
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->Process().IsRunning(), kPatience);
    QCOMPARE(m_desktop->Read(kSettings), settings);
    QVERIFY(m_desktop->Files().contains(kRecovery));

    MoveToANewScreen();
    m_program = std::make_unique<RunningProgram>(*m_desktop);
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->Trace().contains("Settings recovered from "));
    QVERIFY(m_program->Click("cmdPage1"));
    QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtZoneCode"), "MDZ011", kPatience);
    QVERIFY(m_desktop->Files().contains(kRecovery)); // until the settings are stored themselves

    m_program->Process().Terminate();
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read(kSettings).contains("ForecastZone=MDZ011\r\n"));
    QVERIFY(!m_desktop->Files().contains(kRecovery));
}

QTEST_GUILESS_MAIN(tst_desktop_end)
#include "tst_desktop_end.moc"
