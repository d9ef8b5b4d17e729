#include "app/session_lock.h"
#include "app/unix_signals.h"

#include <QSignalSpy>
#include <QTest>

#include "gui/main_window.h"

/// What the running copy does when its session is started once more.
class tst_SecondStart final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsTheRunningCopy();
    void callIsHarmlessWhenNobodyListens();
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

    running.CallHolder(); // still here
    QVERIFY(QFile::exists(running.Path()));
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
