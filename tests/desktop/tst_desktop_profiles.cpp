#include "desktop/running_program.h"
#include "support/one_reply_service.h"

#include <QTest>

#include <memory>

/// The list of profiles under a user's hands. Each profile has an address of its own, by which the
/// service can tell which one has asked.
class tst_desktop_profiles final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aChoiceByMouseIsRequested();
    void aChoiceByKeysIsRequested();
    void aChoiceInTheOpenedListByKeysIsRequested();
    void theWheelOverTheClosedListChangesNothing();

private:
    using State = RunningProgram::State;

    [[nodiscard]] bool HasRequested(const QByteArray &path) const;

    /// Brings the list onto the screen once the first profile has been requested.
    [[nodiscard]] bool OpenSettings() const;

    /// Leaves the list and presses the button, instead of waiting for the five seconds to pass.
    [[nodiscard]] bool RequestNow() const;

    std::unique_ptr<OneReplyService> m_service;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_profiles::init()
{
    m_service = std::make_unique<OneReplyService>("t=61;", "text/plain");
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
    QByteArray profiles;
    for (const char *number : {"0", "1", "2"}) {
        profiles += QByteArray("[Profile") + number + "]\r\ntitle=Service " + number
                  + "\r\nbaseURL=" + m_service->Address() + "/" + number
                  + "\r\nlocation1Title=Place\r\ntemperatureOpen=t=\r\ntemperatureClose=;\r\n";
    }
    m_desktop->Write("TavrinWeatherProfiles.ini", profiles);
    m_desktop->Write("TavrinWeatherSettings.ini",
                     "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n"
                     "[Profile0]\r\nlocation1=a\r\n[Profile1]\r\nlocation1=b\r\n"
                     "[Profile2]\r\nlocation1=c\r\n");
    m_program = std::make_unique<RunningProgram>(*m_desktop);
}

void tst_desktop_profiles::cleanup()
{
    m_program.reset();
    m_desktop.reset();
    m_service.reset();
}

bool tst_desktop_profiles::HasRequested(const QByteArray &path) const
{
    return QTest::qWaitFor([&] { return m_service->LastRequest() == path; }, kPatience);
}

bool tst_desktop_profiles::OpenSettings() const
{
    return m_program->IsShown() && HasRequested("/0") && m_program->Click("btnWeatherSettings")
        && QTest::qWaitFor([this] { return m_program->Is("cboSelectedProfile", State::Focused); },
                           kPatience);
}

bool tst_desktop_profiles::RequestNow() const
{
    return m_program->ClickTitled("Done") && m_program->Click("btnGetWeather");
}

void tst_desktop_profiles::aChoiceByMouseIsRequested()
{
    QVERIFY(OpenSettings());

    QVERIFY(m_program->Click("cboSelectedProfile"));
    QVERIFY(m_program->ClickTitled("Service 2"));

    QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtLocation1"), "c", kPatience);
    QVERIFY(HasRequested("/2"));
    m_program->Process().Terminate();
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QVERIFY(m_desktop->Read("TavrinWeatherSettings.ini").contains("CurrentProfile=2\r\n"));
}

void tst_desktop_profiles::aChoiceByKeysIsRequested()
{
    QVERIFY(OpenSettings());

    m_desktop->screen.Press("Down");

    QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtLocation1"), "b", kPatience);
    QVERIFY(RequestNow());
    QVERIFY(HasRequested("/1"));
}

void tst_desktop_profiles::aChoiceInTheOpenedListByKeysIsRequested()
{
    QVERIFY(OpenSettings());

    m_desktop->screen.Press("alt+Down");
    QVERIFY(m_program->IsTitledShown("Service 2"));
    m_desktop->screen.Press("End");
    m_desktop->screen.Press("Return");

    QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtLocation1"), "c", kPatience);
    QVERIFY(RequestNow());
    QVERIFY(HasRequested("/2"));
}

void tst_desktop_profiles::theWheelOverTheClosedListChangesNothing()
{
    QVERIFY(OpenSettings());

    QVERIFY(m_program->Click("cboSelectedProfile", Screen::Button::WheelDown, 3));
    // The program sees mouse events in their order: what follows comes after the wheel.
    const qsizetype before = m_service->Requests().size();
    QVERIFY(RequestNow());

    QTRY_COMPARE_WITH_TIMEOUT(m_service->Requests().size(), before + 1, kPatience);
    QCOMPARE(m_service->LastRequest(), "/0");
    QCOMPARE(m_program->Text("txtLocation1"), "a");
}

QTEST_GUILESS_MAIN(tst_desktop_profiles)
#include "tst_desktop_profiles.moc"
