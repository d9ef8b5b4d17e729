#include "gui/main_window_test.h"
#include "support/recorded_trace.h"

#include <QMouseEvent>
#include <QResizeEvent>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace {

const QByteArray kMinimiseOnStartup = "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=True\r\n";

const QString kNormalShown = "Form_Resize WindowState = 0IsMinimizedToTray = False";
const QString kMinimisedShown = "Form_Resize WindowState = 1IsMinimizedToTray = False";
const QString kMinimisedHidden = "Form_Resize WindowState = 1IsMinimizedToTray = True";

} // namespace

/// What is left of the window when it is minimised, and how it comes back.
class tst_TrayWindow final : public PanelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void hidesWhenItIsMinimised();
    void staysInTheTaskBarWithoutATray();
    void comesBackAtAClick_data();
    void comesBackAtAClick();
    void comesToTheFrontAtAClickWhileShown();
    void bringsItsDialogsBack();
    void comesBackAtAnyResize();
    void comesBackAtAChangeOfItsState();
    void staysHiddenWhenTheWindowManagerReportsItsState();
    void tracesAMaximisedWindow();
    void tracesAResize();
    void forgetsThatItIsHiddenAtAnyMouseMove();
    void comesBackAtAMouseMoveOfTheSamePixel_data();
    void comesBackAtAMouseMoveOfTheSamePixel();
    void takesRealMouseMoves();
    void startsInTheTray();
    void startsInTheTaskBarWithoutATray();
    void staysInTheTaskBarWhenATrayComes();
    void hidesInATrayThatCameLater();
    void isShownOnTheFirstRun();
    void waitsTenSecondsForAnotherPanel();
    void goesToTheTaskBarWhenNoPanelComesBack();
    void comesBackFromTheTaskBar();
    void staysHiddenWhenThePanelComesBack();
    void isNotMinimisedWhenThePanelGoesWhileItIsShown();

private:
    [[nodiscard]] frmMain &Window() const { return *m->window; }

    /// As the window's minimise button does.
    void Minimise() const
    {
        Window().windowHandle()->showMinimized();
        QTRY_VERIFY(Window().isMinimized());
    }

    [[nodiscard]] bool IsPanelAwaited() const { return PanelGone()->isActive(); }

    /// The timer that waits for another panel.
    [[nodiscard]] const QTimer *PanelGone() const
    {
        return Window().findChild<QTimer *>("tmrPanelGone");
    }
};

void tst_TrayWindow::hidesWhenItIsMinimised()
{
    QVERIFY(!m->Start());
    const RecordedTrace trace;

    Minimise();

    QVERIFY(Window().isHidden());
    QVERIFY(m->state.tray.IsMinimizedToTray);
    QCOMPARE(trace.lines, QStringList({kMinimisedShown, kMinimisedHidden}));
}

void tst_TrayWindow::staysInTheTaskBarWithoutATray()
{
    m->panelIcon.isPanelThere = false;
    QVERIFY(!m->Start());
    const RecordedTrace trace;

    Minimise();

    QVERIFY(Window().isVisible());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
    QCOMPARE(trace.lines, QStringList({kMinimisedShown, kMinimisedShown}));
}

void tst_TrayWindow::comesBackAtAClick_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
}

void tst_TrayWindow::comesBackAtAClick()
{
    QFETCH(Qt::MouseButton, button);
    QVERIFY(!m->Start());
    Minimise();

    m->panelIcon.Click(button);

    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
}

void tst_TrayWindow::comesToTheFrontAtAClickWhileShown()
{
    QVERIFY(!m->Start());
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_VERIFY(!Window().isActiveWindow());

    m->panelIcon.Click(Qt::LeftButton);

    QTRY_VERIFY(Window().isActiveWindow());
}

void tst_TrayWindow::bringsItsDialogsBack()
{
    QVERIFY(!m->Start());
    m->window->btnSelectNOAAZone_Click();
    auto *dialog = m->Find("frmFindNOAAZones");
    Minimise();
    dialog->setWindowState(Qt::WindowMinimized); // as window managers do

    m->panelIcon.Click(Qt::LeftButton);

    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isMinimized());
}

void tst_TrayWindow::comesBackAtAnyResize()
{
    QVERIFY(!m->Start());
    Minimise();
    const RecordedTrace trace;

    QResizeEvent event(Window().size(), Window().size());
    QCoreApplication::sendEvent(&Window(), &event);

    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
    QCOMPARE(trace.lines.first(), kMinimisedHidden);
    QCOMPARE(trace.lines.last(), kNormalShown);
}

void tst_TrayWindow::comesBackAtAChangeOfItsState()
{
    QVERIFY(!m->Start());
    Minimise();

    Window().setWindowState(Qt::WindowNoState);

    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
}

// Some window managers give a window that has just been hidden the normal state.
void tst_TrayWindow::staysHiddenWhenTheWindowManagerReportsItsState()
{
    QVERIFY(!m->Start());
    Minimise();

    QWindowStateChangeEvent event(Qt::WindowMinimized);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(&Window(), &event);

    QVERIFY(Window().isHidden());
    QVERIFY(m->state.tray.IsMinimizedToTray);
}

void tst_TrayWindow::tracesAMaximisedWindow()
{
    QVERIFY(!m->Start());
    const RecordedTrace trace;

    Window().setWindowState(Qt::WindowMaximized);

    QVERIFY(trace.lines.contains("Form_Resize WindowState = 2IsMinimizedToTray = False"));
    QVERIFY(Window().isVisible());
}

void tst_TrayWindow::tracesAResize()
{
    QVERIFY(!m->Start());
    const RecordedTrace trace;

    QResizeEvent event(Window().size(), Window().size());
    QCoreApplication::sendEvent(&Window(), &event);

    QCOMPARE(trace.lines, QStringList({kNormalShown, kNormalShown}));
}

void tst_TrayWindow::forgetsThatItIsHiddenAtAnyMouseMove()
{
    QVERIFY(!m->Start());
    Minimise();

    Window().Form_MouseMove(0, 0, 512 * 15, 0);

    QVERIFY(!m->state.tray.IsMinimizedToTray);
    QVERIFY(Window().isHidden());

    m->panelIcon.Click(Qt::LeftButton); // the way back is still there
    QVERIFY(Window().isVisible());
}

void tst_TrayWindow::comesBackAtAMouseMoveOfTheSamePixel_data()
{
    QTest::addColumn<double>("twips");
    QTest::addColumn<bool>("comesBack");
    QTest::newRow("513") << 7695.0 << true;
    QTest::newRow("517") << 7755.0 << true;
    QTest::newRow("514") << 7710.0 << false;
    QTest::newRow("a little less than 513") << 7688.0 << true;
    QTest::newRow("half way to 514") << 7702.5 << false;
}

void tst_TrayWindow::comesBackAtAMouseMoveOfTheSamePixel()
{
    QFETCH(double, twips);
    QFETCH(bool, comesBack);
    QVERIFY(!m->Start());
    Minimise();

    Window().Form_MouseMove(0, 0, twips, 0);

    QCOMPARE(Window().isVisible(), comesBack);
}

void tst_TrayWindow::takesRealMouseMoves()
{
    QVERIFY(!m->Start());
    QVERIFY(Window().hasMouseTracking());
    Window().setWindowState(Qt::WindowMaximized); // which a restored window is not
    QVERIFY(Window().isMaximized());

    const auto moveTo = [this](double x) {
        QMouseEvent event(QEvent::MouseMove, {x, 5}, {x, 5}, Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&Window(), &event);
    };
    moveTo(516);
    QVERIFY(Window().isMaximized());
    moveTo(517); // with the button held down, beyond the window's edge
    QVERIFY(!Window().isMaximized());
}

void tst_TrayWindow::startsInTheTray()
{
    m->Write("TavrinWeatherSettings.ini", kMinimiseOnStartup);
    const RecordedTrace trace;

    QVERIFY(!m->Start());

    QVERIFY(!Window().isVisible());
    QVERIFY(m->state.tray.IsMinimizedToTray);
    QCOMPARE(trace.lines.last(), kMinimisedHidden);
    m->panelIcon.Click(Qt::LeftButton);
    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());
}

void tst_TrayWindow::startsInTheTaskBarWithoutATray()
{
    m->panelIcon.isPanelThere = false;
    m->Write("TavrinWeatherSettings.ini", kMinimiseOnStartup);

    QVERIFY(!m->Start());

    QVERIFY(Window().isVisible());
    QVERIFY(Window().isMinimized());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
}

void tst_TrayWindow::staysInTheTaskBarWhenATrayComes()
{
    m->panelIcon.isPanelThere = false;
    m->Write("TavrinWeatherSettings.ini", kMinimiseOnStartup);
    QVERIFY(!m->Start());

    m->panelIcon.BringPanel();
    Window().tmrIconUpdate_Timer();

    QVERIFY(m->panelIcon.IsShown());
    QVERIFY(Window().isVisible());
    QVERIFY(Window().isMinimized());
    m->panelIcon.Click(Qt::RightButton);
    QVERIFY(!Window().isMinimized());
}

void tst_TrayWindow::hidesInATrayThatCameLater()
{
    m->panelIcon.isPanelThere = false;
    QVERIFY(!m->Start());
    m->panelIcon.BringPanel();
    Window().tmrIconUpdate_Timer();

    Minimise();

    QVERIFY(Window().isHidden());
}

void tst_TrayWindow::isShownOnTheFirstRun()
{
    QVERIFY(!m->Start());
    QVERIFY(m->station->CurrentSettings().IsFirstRun);
    QVERIFY(m->station->CurrentSettings().MinimizeOnStartupEnabled);
    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());

    QVERIFY(!m->Restart());

    QVERIFY(Window().isHidden());
    QVERIFY(m->state.tray.IsMinimizedToTray);
}

void tst_TrayWindow::waitsTenSecondsForAnotherPanel()
{
    QVERIFY(!m->Start());
    Minimise();
    QVERIFY(!IsPanelAwaited());

    m->panelIcon.TakePanelAway();

    QVERIFY(IsPanelAwaited());
    QCOMPARE(PanelGone()->interval(), 10000);
    QVERIFY(PanelGone()->isSingleShot());
    QVERIFY(Window().isHidden());
}

void tst_TrayWindow::goesToTheTaskBarWhenNoPanelComesBack()
{
    QVERIFY(!m->Start());
    Minimise();
    m->panelIcon.TakePanelAway();
    Window().tmrIconUpdate_Timer();

    Window().tmrPanelGone_Timer();

    QVERIFY(Window().isVisible());
    QVERIFY(Window().isMinimized());
    QVERIFY(!m->state.tray.IsMinimizedToTray);
}

void tst_TrayWindow::comesBackFromTheTaskBar()
{
    QVERIFY(!m->Start());
    Minimise();
    m->panelIcon.TakePanelAway();
    Window().tmrPanelGone_Timer();

    Window().windowHandle()->showNormal();

    QTRY_VERIFY(!Window().isMinimized());
    QVERIFY(Window().isVisible());
}

void tst_TrayWindow::staysHiddenWhenThePanelComesBack()
{
    QVERIFY(!m->Start());
    Minimise();
    m->panelIcon.TakePanelAway();
    Window().tmrIconUpdate_Timer();

    m->panelIcon.BringPanel();
    QVERIFY(!IsPanelAwaited());
    Window().tmrIconUpdate_Timer();
    Window().tmrPanelGone_Timer(); // as if it had been too late to stop it

    QVERIFY(Window().isHidden());
    QVERIFY(m->state.tray.IsMinimizedToTray);
    m->panelIcon.Click(Qt::LeftButton);
    QVERIFY(Window().isVisible());
}

void tst_TrayWindow::isNotMinimisedWhenThePanelGoesWhileItIsShown()
{
    QVERIFY(!m->Start());
    m->panelIcon.TakePanelAway();

    Window().tmrPanelGone_Timer();

    QVERIFY(Window().isVisible());
    QVERIFY(!Window().isMinimized());
}

QTEST_MAIN(tst_TrayWindow)
#include "tst_tray_window.moc"
