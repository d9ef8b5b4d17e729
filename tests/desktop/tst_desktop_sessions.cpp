#include "desktop/running_program.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <memory>

/// Several starts of the program, side by side in one folder.
class tst_desktop_sessions final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sessionsRunSideBySide();
    void aSecondStartRaisesTheFirstWindow_data();
    void aSecondStartRaisesTheFirstWindow();
    void aSecondStartBringsBackAMinimisedWindow();
    void startsAtOneTimeLeaveOneRunning();
    void aKilledCopyDoesNotBlockTheNextStart();
    void anEndedCopyDoesNotBlockTheNextStart();

private:
    using Program = std::unique_ptr<RunningProgram>;

    [[nodiscard]] Program Start(const QStringList &arguments = {}) const
    {
        return std::make_unique<RunningProgram>(*m_desktop, arguments);
    }

    /// Waits until the window is above all others.
    [[nodiscard]] bool IsOnTop(const RunningProgram &program) const;

    std::unique_ptr<Desktop> m_desktop;
};

void tst_desktop_sessions::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
}

void tst_desktop_sessions::cleanup()
{
    m_desktop.reset();
}

bool tst_desktop_sessions::IsOnTop(const RunningProgram &program) const
{
    const auto isOnTop = [&] {
        const QString window = program.Window().id;
        return !window.isEmpty() && m_desktop->windows.TopWindow() == window;
    };
    return QTest::qWaitFor(isOnTop, kPatience);
}

void tst_desktop_sessions::sessionsRunSideBySide()
{
    const Program first = Start();
    QVERIFY(first->IsShown());
    const Program second = Start({"/SESSION=2"});
    QVERIFY(second->IsShown());
    const Program third = Start({"/SESSION=3"});
    QVERIFY(third->IsShown());

    QCOMPARE(first->Window().title, "Tavrin Weather Utility");
    QCOMPARE(second->Window().title, "Tavrin Weather Utility - Session 2");
    QCOMPARE(third->Window().title, "Tavrin Weather Utility - Session 3");
    for (const Program *program : {&first, &second, &third}) {
        (*program)->Process().Terminate();
        QCOMPARE((*program)->Process().ExitCode(), 0);
    }
    for (const char *number : {"", "2", "3"}) {
        const QByteArray settings =
            m_desktop->Read("TavrinWeatherSettings" + QString(number) + ".ini");
        QVERIFY2(settings.contains("HTTPPort=80\r\n"), settings);
    }
}

void tst_desktop_sessions::aSecondStartRaisesTheFirstWindow_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("others");
    QTest::newRow("default session") << QStringList() << QStringList("/SESSION=4");
    QTest::newRow("session 4") << QStringList("/SESSION=4") << QStringList();
}

void tst_desktop_sessions::aSecondStartRaisesTheFirstWindow()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, others);
    const Program first = Start(arguments);
    QVERIFY(first->IsShown());
    const Program other = Start(others);
    QVERIFY(other->IsShown());
    QVERIFY(IsOnTop(*other));

    const Program second = Start(arguments);

    QCOMPARE(second->Process().ExitCode(), 0);
    QVERIFY(IsOnTop(*first));
    QVERIFY(first->IsActive());
    QVERIFY(first->Click("cmdPage1")); // and it goes on
    QTRY_VERIFY_WITH_TIMEOUT(first->Is("frmPage1", RunningProgram::State::Showing), kPatience);
    QCOMPARE(m_desktop->windows.Windows().size(), 2);
}

void tst_desktop_sessions::aSecondStartBringsBackAMinimisedWindow()
{
    const Program first = Start();
    QVERIFY(first->IsShown());
    m_desktop->windows.ClickTitleBar(first->Window().id, WindowManager::TitleButton::Minimise);
    QVERIFY(first->IsMinimised());

    const Program second = Start();

    QCOMPARE(second->Process().ExitCode(), 0);
    QVERIFY(first->IsShown());
    QVERIFY(first->IsActive());
}

void tst_desktop_sessions::startsAtOneTimeLeaveOneRunning()
{
    std::array<Program, 4> programs;
    std::generate(programs.begin(), programs.end(), [this] { return Start(); });
    const auto countRunning = [&] {
        return std::count_if(programs.begin(), programs.end(),
                             [](const Program &program) { return program->Process().IsRunning(); });
    };

    QTRY_COMPARE_WITH_TIMEOUT(countRunning(), 1, kPatience);

    const auto last = std::find_if(programs.begin(), programs.end(), [](const Program &program) {
        return program->Process().IsRunning();
    });
    QVERIFY((*last)->IsShown());
    QCOMPARE(m_desktop->windows.Windows().size(), 1);
    for (const Program &program : programs) {
        program->Process().Terminate(); // only the last one still runs
        QCOMPARE(program->Process().ExitCode(), 0);
    }
}

void tst_desktop_sessions::aKilledCopyDoesNotBlockTheNextStart()
{
    const Program killed = Start();
    QVERIFY(killed->IsShown());
    killed->Process().Kill();
    QTRY_VERIFY_WITH_TIMEOUT(!killed->Process().IsRunning(), kPatience);

    const Program next = Start();

    // Not shown: this is no longer the first run, so it starts minimised.
    QVERIFY(next->IsMinimised());
    QVERIFY(next->Process().IsRunning());
}

void tst_desktop_sessions::anEndedCopyDoesNotBlockTheNextStart()
{
    const Program ended = Start();
    QVERIFY(ended->IsShown());
    ended->Process().Terminate();
    QCOMPARE(ended->Process().ExitCode(), 0);

    const Program next = Start();

    QVERIFY(next->IsMinimised());
    QVERIFY(next->Process().IsRunning());
}

QTEST_GUILESS_MAIN(tst_desktop_sessions)
#include "tst_desktop_sessions.moc"
