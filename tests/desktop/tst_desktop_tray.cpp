#include "desktop/panels.h"
#include "desktop/running_program.h"

#include <QTest>

#include <memory>

/// Minimising and coming back, on desktops with either kind of panel and with none.
class tst_desktop_tray final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void withoutAPanelItStaysInTheTaskBar();
    void withoutAPanelTheSecondRunStartsInTheTaskBar();
    void minimisedItHidesAndAClickBringsItBack_data();
    void minimisedItHidesAndAClickBringsItBack();
    void theSecondRunStartsHidden_data() { AddPanels(); }
    void theSecondRunStartsHidden();
    void aSecondStartBringsItBack_data() { AddPanels(); }
    void aSecondStartBringsItBack();
    void theIconNamesTheSession();
    void withoutAMessageBusTheXPanelTakesIt();

private:
    static void AddPanels();
    void Start(const QStringList &arguments = {});

    /// Makes the next start a second run, which begins minimised.
    void LetTheFirstRunBeOver() const;
    void Minimise() const;

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_tray::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
}

void tst_desktop_tray::cleanup()
{
    m_program.reset();
    m_desktop.reset();
}

void tst_desktop_tray::AddPanels()
{
    QTest::addColumn<Panel::Kind>("kind");
    QTest::newRow("status panel") << Panel::Kind::Status;
    QTest::newRow("X panel") << Panel::Kind::X;
}

void tst_desktop_tray::Start(const QStringList &arguments)
{
    m_program = std::make_unique<RunningProgram>(*m_desktop, arguments);
}

void tst_desktop_tray::LetTheFirstRunBeOver() const
{
    m_desktop->Write("TavrinWeatherSettings.ini",
                     "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=True\r\n");
}

void tst_desktop_tray::Minimise() const
{
    m_desktop->windows.ClickTitleBar(m_program->Window().id, WindowManager::TitleButton::Minimise);
}

void tst_desktop_tray::withoutAPanelItStaysInTheTaskBar()
{
    Start();
    QVERIFY(m_program->IsShown());

    Minimise();
    QVERIFY(m_program->IsMinimised());

    m_desktop->windows.Activate(m_program->Window().id);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_tray::withoutAPanelTheSecondRunStartsInTheTaskBar()
{
    LetTheFirstRunBeOver();

    Start();

    QVERIFY(m_program->IsMinimised());
    m_desktop->windows.Activate(m_program->Window().id);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_tray::minimisedItHidesAndAClickBringsItBack_data()
{
    QTest::addColumn<Panel::Kind>("kind");
    QTest::addColumn<Screen::Button>("button");
    QTest::newRow("status panel, left") << Panel::Kind::Status << Screen::Button::Left;
    QTest::newRow("status panel, right") << Panel::Kind::Status << Screen::Button::Right;
    QTest::newRow("X panel, left") << Panel::Kind::X << Screen::Button::Left;
    QTest::newRow("X panel, right") << Panel::Kind::X << Screen::Button::Right;
}

void tst_desktop_tray::minimisedItHidesAndAClickBringsItBack()
{
    QFETCH(Panel::Kind, kind);
    QFETCH(Screen::Button, button);
    const auto panel = Panel::Start(kind, *m_desktop);
    Start();
    QVERIFY(m_program->IsShown());
    QTRY_VERIFY_WITH_TIMEOUT(panel->HasIcon(), kPatience);

    Minimise();
    QVERIFY(m_program->IsHidden());

    panel->Click(button);
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->IsActive());

    m_program->Process().Terminate();
    QCOMPARE(m_program->Process().ExitCode(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!panel->HasIcon(), kPatience);
}

void tst_desktop_tray::theSecondRunStartsHidden()
{
    QFETCH(Panel::Kind, kind);
    const auto panel = Panel::Start(kind, *m_desktop);
    LetTheFirstRunBeOver();

    Start();

    QTRY_VERIFY_WITH_TIMEOUT(panel->HasIcon(), kPatience);
    // Not hidden merely because it is not up yet.
    QTRY_VERIFY_WITH_TIMEOUT(
        m_program->Trace().contains("WindowState = 1IsMinimizedToTray = True\n"), kPatience);
    QVERIFY(m_program->IsHidden());
    panel->Click(Screen::Button::Left);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_tray::aSecondStartBringsItBack()
{
    QFETCH(Panel::Kind, kind);
    const auto panel = Panel::Start(kind, *m_desktop);
    Start();
    QVERIFY(m_program->IsShown());
    QTRY_VERIFY_WITH_TIMEOUT(panel->HasIcon(), kPatience);
    Minimise();
    QVERIFY(m_program->IsHidden());

    RunningProgram second(*m_desktop);

    QCOMPARE(second.Process().ExitCode(), 0);
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->IsActive());
}

void tst_desktop_tray::theIconNamesTheSession()
{
    const StatusPanel panel(*m_desktop);

    Start({"/SESSION=2"});

    QTRY_COMPARE_WITH_TIMEOUT(panel.ToolTip(), "Restore Tavrin Weather Utility [2]", kPatience);
}

void tst_desktop_tray::withoutAMessageBusTheXPanelTakesIt()
{
    m_desktop->HideBus();
    const XPanel panel(*m_desktop);
    Start();
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->Window().id.isEmpty(), kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(panel.HasIcon(), kPatience);

    Minimise();
    QTRY_VERIFY_WITH_TIMEOUT(m_program->Window().id.isEmpty(), kPatience);

    panel.Click(Screen::Button::Left);
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->Window().id.isEmpty(), kPatience);
    QVERIFY(m_program->IsActive());
    QVERIFY(!m_program->Window().isMinimised);
}

QTEST_GUILESS_MAIN(tst_desktop_tray)
#include "tst_desktop_tray.moc"
