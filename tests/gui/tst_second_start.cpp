#include "gui/main_window.h"
#include "start/session_lock.h"
#include "start/unix_signals.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

/// What the running copy does when its session is started once more.
class tst_SecondStart final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsTheRunningCopy();
    void callIsHarmlessWhenNobodyListens();
    void readsAnewInTheServiceInsteadOfEnding();
    void showsAMinimizedWindow();
    void showsAHiddenWindow();
};

void tst_SecondStart::callsTheRunningCopy()
{
    const QTemporaryDir folder;
    const UnixSignals unixSignals;
    QSignalSpy asked(&unixSignals, &UnixSignals::WindowRequested);
    QSignalSpy ended(&unixSignals, &UnixSignals::EndRequested);
    SessionLock running(folder.filePath("Program.lock"));
    QCOMPARE(running.Take(), SessionLock::Outcome::Taken);
    SessionLock second(folder.filePath("Program.lock"));
    QCOMPARE(second.Take(), SessionLock::Outcome::Held);

    second.CallHolder();
    QVERIFY(asked.wait());
    second.CallHolder(); // and again, for as long as it runs
    QVERIFY(asked.wait());

    QCOMPARE(ended.count(), 0);
}

void tst_SecondStart::callIsHarmlessWhenNobodyListens()
{
    const QTemporaryDir folder;
    UnixSignals::IgnoreCalls();
    SessionLock running(folder.filePath("Program.lock"));
    QCOMPARE(running.Take(), SessionLock::Outcome::Taken);

    SessionLock second(folder.filePath("Program.lock"));
    QCOMPARE(second.Take(), SessionLock::Outcome::Held);

    second.CallHolder(); // still here
    QVERIFY(QFile::exists(running.Path()));
}

void tst_SecondStart::readsAnewInTheServiceInsteadOfEnding()
{
    UnixSignals::IgnoreCalls(UnixSignals::Program::Service);
    std::raise(SIGHUP); // still here
    {
        const UnixSignals unixSignals(UnixSignals::Program::Service);
        QSignalSpy reload(&unixSignals, &UnixSignals::ReloadRequested);
        const QSignalSpy window(&unixSignals, &UnixSignals::WindowRequested);
        QSignalSpy ended(&unixSignals, &UnixSignals::EndRequested);
        std::raise(SIGUSR1);
        std::raise(SIGHUP);
        QVERIFY(reload.wait());
        std::raise(SIGHUP); // and again, for as long as it runs
        QVERIFY(reload.wait());
        QCOMPARE(ended.count(), 0);
        QCOMPARE(window.count(), 0);
        std::raise(SIGINT);
        QVERIFY(ended.wait());
        QCOMPARE(reload.count(), 2);
    }
    std::raise(SIGHUP); // while the program is ending
    std::raise(SIGUSR1);
    std::signal(SIGHUP, SIG_DFL);
}

void tst_SecondStart::showsAMinimizedWindow()
{
    MainWindow m;
    QVERIFY(!m.Start());
    m.window->showMinimized();
    QVERIFY(m.window->isMinimized());

    m.window->ShowWindow();

    QVERIFY(!m.window->isMinimized());
    QVERIFY(m.window->isVisible());
}

void tst_SecondStart::showsAHiddenWindow()
{
    MainWindow m;
    QVERIFY(!m.Start());
    m.window->hide();

    m.window->ShowWindow();

    QVERIFY(m.window->isVisible());
}

QTEST_MAIN(tst_SecondStart)
#include "tst_second_start.moc"
