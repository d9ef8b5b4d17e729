#include "desktop/panels.h"
#include "desktop/running_program.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

/// Panels that come and go while the program runs.
class tst_desktop_panels final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aPanelThatComesLaterGetsTheIcon_data() { AddPanels(); }
    void aPanelThatComesLaterGetsTheIcon();
    void aPanelThatReturnsGetsTheIconAgain_data() { AddPanels(); }
    void aPanelThatReturnsGetsTheIconAgain();
    void theIconComesBackToAHiddenWindow_data() { AddPanels(); }
    void theIconComesBackToAHiddenWindow();
    void aHiddenWindowDoesNotStayWithoutAPanel_data() { AddPanels(); }
    void aHiddenWindowDoesNotStayWithoutAPanel();

private:
    static void AddPanels();

    /// Starts a panel and waits until the icon is in it.
    [[nodiscard]] bool StartPanel(Panel::Kind kind);
    void Minimise() const;

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_panels::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
    m_program = std::make_unique<RunningProgram>(*m_desktop);
}

void tst_desktop_panels::cleanup()
{
    m_program.reset();
    m_panel.reset();
    m_desktop.reset();
}

void tst_desktop_panels::AddPanels()
{
    QTest::addColumn<Panel::Kind>("kind");
    QTest::newRow("status panel") << Panel::Kind::Status;
    QTest::newRow("X panel") << Panel::Kind::X;
}

bool tst_desktop_panels::StartPanel(Panel::Kind kind)
{
    m_panel = Panel::Start(kind, *m_desktop);
    return QTest::qWaitFor([this] { return m_panel->HasIcon(); }, kPatience);
}

void tst_desktop_panels::Minimise() const
{
    m_desktop->windows.ClickTitleBar(m_program->Window().id, WindowManager::TitleButton::Minimise);
}

void tst_desktop_panels::aPanelThatComesLaterGetsTheIcon()
{
    QFETCH(Panel::Kind, kind);
    QVERIFY(m_program->IsShown());

    QVERIFY(StartPanel(kind));

    Minimise();
    QVERIFY(m_program->IsHidden());
    m_panel->Click(Screen::Button::Left);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_panels::aPanelThatReturnsGetsTheIconAgain()
{
    QFETCH(Panel::Kind, kind);
    QVERIFY(m_program->IsShown());
    QVERIFY(StartPanel(kind));
    m_panel.reset();

    Minimise(); // in between there is only the task bar
    QVERIFY(m_program->IsMinimised());
    m_desktop->windows.Activate(m_program->Window().id);
    QVERIFY(m_program->IsShown());

    QVERIFY(StartPanel(kind));
    Minimise();
    QVERIFY(m_program->IsHidden());
    m_panel->Click(Screen::Button::Left);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_panels::theIconComesBackToAHiddenWindow()
{
    QFETCH(Panel::Kind, kind);
    QVERIFY(m_program->IsShown());
    QVERIFY(StartPanel(kind));
    Minimise();
    QVERIFY(m_program->IsHidden());

    m_panel.reset();
    QVERIFY(StartPanel(kind));

    QVERIFY(m_program->IsHidden());
    m_panel->Click(Screen::Button::Left);
    QVERIFY(m_program->IsShown());
}

void tst_desktop_panels::aHiddenWindowDoesNotStayWithoutAPanel()
{
    QFETCH(Panel::Kind, kind);
    QVERIFY(m_program->IsShown());
    QVERIFY(StartPanel(kind));
    Minimise();
    QVERIFY(m_program->IsHidden());
    QElapsedTimer away;
    away.start();
    m_panel.reset();

    QVERIFY(m_program->IsMinimised());

    QVERIFY2(away.elapsed() >= 9'000, qPrintable(QString::number(away.elapsed()) + " ms"));
    m_desktop->windows.Activate(m_program->Window().id);
    QVERIFY(m_program->IsShown());
}

QTEST_GUILESS_MAIN(tst_desktop_panels)
#include "tst_desktop_panels.moc"
