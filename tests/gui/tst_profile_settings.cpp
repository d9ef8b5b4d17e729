#include "controls/choice_list.h"
#include "gui/main_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

const QByteArray kProfiles = "[Profile0]\r\n"
                             "title=One place\r\n"
                             "description=First line[CRLF]Second line\r\n"
                             "copyright=(c) %YEAR% A\r\n"
                             "location1Title=City\r\n"
                             "[Profile1]\r\n"
                             "title=Four places\r\n"
                             "copyright=(c) %YEAR% B, %YEAR%\r\n"
                             "location1Title=City\r\n"
                             "location2Title=State\r\n"
                             "location3Title=Country\r\n"
                             "location4Title=Station\r\n"
                             "[Profile2]\r\n"
                             "title=Two places\r\n"
                             "location1Title=City\r\n"
                             "location2Title=[SP][SP]\r\n"
                             "location3Title=Country\r\n";

const QByteArray kSettings = "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n"
                             "[Profile0]\r\nlocation1=Salem\r\n"
                             "[Profile2]\r\nlocation1=Rome\r\nlocation2=Lazio\r\n";

} // namespace

/// The choice of the profile and its locations.
class tst_ProfileSettings final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void showsTheProfile();
    void hidesLocationsWithoutATitle();
    void placesTheDescriptionBelowTheLastLocation();
    void takesTheListIndexAsTheProfile();
    void fillsItsListSilently();
    void choosesAnotherProfile();
    void emptiesBoxesForAProfileWithoutValues();
    void storesLocationsWhenTheCurrentProfileIsChosen();
    void runsTheClickOnceForAKey();
    void runsTheClickOnceForAChoiceFromTheList();
    void runsTheClickForAChangeByCode();
    void showsTheProfileAgainWhenTheListIsScrolled();
    void reloadsAnEmptiedProfile();
    void opensAndClosesItsFrame();
    void keepsTheTabKeyInTheFrameInFront();
    void ignoresTheWheelWhileItIsClosed();
    void scrollsByTheWheelWhileItIsOpen();
    void opensByKeys();
    void cutsALongTitleInPaintingOnly();
    void closesItsFrameByEscape();
    void keepsMnemonicsOfCoveredControlsStill();

private:
    [[nodiscard]] ChoiceList *List() const { return m->Find<ChoiceList>("cboSelectedProfile"); }
    [[nodiscard]] QStringList ShownLocations() const;

    std::unique_ptr<MainWindow> m;
};

void tst_ProfileSettings::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini", kProfiles);
    m->Write("TavrinWeatherSettings.ini", kSettings);
    QVERIFY(!m->Start());
}

QStringList tst_ProfileSettings::ShownLocations() const
{
    QStringList shown;
    for (const QString number : {"1", "2", "3", "4"}) {
        if (m->IsShown("frmLoc" + number))
            shown.append(number);
    }
    return shown;
}

void tst_ProfileSettings::showsTheProfile()
{
    QCOMPARE(List()->count(), 3);
    QCOMPARE(List()->currentText(), "One place");
    QCOMPARE(m->Find<QPlainTextEdit>("txtProfileDescription")->toPlainText(),
             "First line\nSecond line");
    QCOMPARE(m->Text("lblWeatherCopyright"), "(c) 2026 A");
    QCOMPARE(m->Text("lblLocation1Title"), "City");
    QCOMPARE(m->Text("lblLocation2Title"), "");
    QCOMPARE(m->Text("txtLocation1"), "Salem");
    QCOMPARE(m->Text("Label1").remove('&'), "Weather Information Service Profile");
    QCOMPARE(m->Text("lblProfileDescription").remove('&'), "Weather Profile Description");

    List()->setCurrentIndex(1);
    QCOMPARE(m->Text("lblWeatherCopyright"), "(c) 2026 B, 2026");
}

void tst_ProfileSettings::hidesLocationsWithoutATitle()
{
    QCOMPARE(ShownLocations(), QStringList{"1"});
    List()->setCurrentIndex(1);
    QCOMPARE(ShownLocations(), (QStringList{"1", "2", "3", "4"}));
    List()->setCurrentIndex(2);
    QCOMPARE(m->Text("txtLocation2"), "Lazio"); // a value alone does not show its box
    QCOMPARE(ShownLocations(), (QStringList{"1", "3"}));
}

void tst_ProfileSettings::placesTheDescriptionBelowTheLastLocation()
{
    const auto isBelow = [this](const QString &frame) {
        const QRect last = m->Find(frame)->geometry();
        const QRect label = m->Find("lblProfileDescription")->geometry();
        const QRect box = m->Find("txtProfileDescription")->geometry();
        return label.top() == last.top() + last.height() + 5 && box.top() == label.bottom() + 1
            && box.bottom() < m->Find("btnWeatherDone")->geometry().top();
    };
    QVERIFY(isBelow("frmLoc1"));
    List()->setCurrentIndex(1);
    QVERIFY(isBelow("frmLoc4"));
    List()->setCurrentIndex(2);
    QVERIFY(isBelow("frmLoc3"));
}

void tst_ProfileSettings::takesTheListIndexAsTheProfile()
{
    m->Write("TavrinWeatherProfiles.ini",
             "[Profile0]\r\ntitle=Zero\r\n[Profile2]\r\ntitle=Two\r\n");
    QVERIFY(!m->Restart());
    QCOMPARE(List()->count(), 2);

    List()->setCurrentIndex(1); // reads "Two", but is the unused record 1

    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(1));
    QCOMPARE(m->station->profiles.Selected(), &m->station->profiles.weather[1]);
}

void tst_ProfileSettings::fillsItsListSilently()
{
    const QSignalSpy clicks(List(), &ChoiceList::Click);

    m->window->FillProfileList();

    QCOMPARE(List()->currentIndex(), -1);
    QCOMPARE(clicks.count(), 0);
}

void tst_ProfileSettings::choosesAnotherProfile()
{
    m->window->tmrWeatherCheck_Timer();
    m->station->minMax = {60, 70, 50, 80, 4};
    m->Type("txtLocation1", "Eugene");

    List()->setCurrentIndex(2);

    QCOMPARE(m->station->profiles.weather[0].location[0], "Eugene");
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(2));
    QCOMPARE(m->Text("txtLocation1"), "Rome");
    QCOMPARE(m->station->minMax.TodayMinTemp, 1000.0);
    QCOMPARE(m->station->minMax.TodayMaxTemp, -1000.0);
    QCOMPARE(m->station->minMax.PrevMinTemp, 50.0);
    QCOMPARE(m->station->minMax.PrevMaxTemp, 80.0);
    QCOMPARE(m->Value("TavrinWeatherMinMax.ini", u"DAY4", u"MIN"), "1000");
    m->Type("txtLocation3", "Italy");
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 0:05");
}

void tst_ProfileSettings::emptiesBoxesForAProfileWithoutValues()
{
    m->station->profiles.weather[0].values[Quantity::Humidity] = "40 %";
    m->station->profiles.weather[0].values[Quantity::Time] = "9:53";
    m->window->DisplayWeatherData();
    QCOMPARE(m->Text("txtHumidity"), "40 %");

    List()->setCurrentIndex(1);
    QCOMPARE(m->Text("txtHumidity"), "");
    QCOMPARE(m->Text("txtTime"), "");

    List()->setCurrentIndex(0);
    QCOMPARE(m->Text("txtHumidity"), "40 %"); // its last values are kept
    QCOMPARE(m->Text("txtTime"), "9:53");
}

void tst_ProfileSettings::storesLocationsWhenTheCurrentProfileIsChosen()
{
    m->window->tmrWeatherCheck_Timer();
    m->station->minMax = {60, 70, 50, 80, 4};
    m->Type("txtLocation1", "Eugene");

    m->window->cboSelectedProfile_Click();

    QCOMPARE(m->station->profiles.weather[0].location[0], "Eugene");
    QCOMPARE(m->station->minMax.TodayMinTemp, 60.0);
    m->window->tmrWeatherCheck_Timer();
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 14:59");
}

void tst_ProfileSettings::runsTheClickOnceForAKey()
{
    m->window->btnWeatherSettings_Click();
    const QSignalSpy clicks(List(), &ChoiceList::Click);

    QTest::keyClick(List(), Qt::Key_Down);
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(1));
    QCOMPARE(clicks.count(), 1);

    QTest::keyClick(List(), Qt::Key_T); // by its first letter: "Two places"
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(2));
    QCOMPARE(clicks.count(), 2);

    QTest::keyClick(List(), Qt::Key_Down); // it is the last one
    QCOMPARE(clicks.count(), 2);
}

void tst_ProfileSettings::runsTheClickOnceForAChoiceFromTheList()
{
    m->window->btnWeatherSettings_Click();
    const QSignalSpy clicks(List(), &ChoiceList::Click);

    List()->showPopup();
    QTest::keyClick(List()->view(), Qt::Key_Down);
    QTest::keyClick(List()->view(), Qt::Key_Enter);
    QCOMPARE(List()->currentIndex(), 1);
    QCOMPARE(clicks.count(), 1);

    m->Type("txtLocation1", "Paris");
    List()->showPopup();
    QTest::keyClick(List()->view(), Qt::Key_Enter); // the current one again
    QCOMPARE(List()->currentIndex(), 1);
    QCOMPARE(clicks.count(), 2);
    QCOMPARE(m->station->profiles.weather[1].location[0], "Paris");
}

void tst_ProfileSettings::runsTheClickForAChangeByCode()
{
    const QSignalSpy clicks(List(), &ChoiceList::Click);

    List()->setCurrentIndex(2);
    QCOMPARE(clicks.count(), 1);
    List()->setCurrentIndex(2);
    QCOMPARE(clicks.count(), 1);

    // A change by code does not swallow the choice that follows.
    m->window->btnWeatherSettings_Click();
    List()->showPopup();
    QTest::keyClick(List()->view(), Qt::Key_Enter);
    QCOMPARE(clicks.count(), 2);
}

void tst_ProfileSettings::showsTheProfileAgainWhenTheListIsScrolled()
{
    m->window->tmrWeatherCheck_Timer();
    m->window->btnWeatherSettings_Click();
    m->station->minMax = {60, 70, 50, 80, 4};
    List()->setMaxVisibleItems(1);
    List()->showPopup();
    m->Type("txtLocation1", "typed");
    const QSignalSpy clicks(List(), &ChoiceList::Click);
    QScrollBar *bar = List()->view()->verticalScrollBar();

    bar->setRange(0, 10);
    bar->setValue(bar->value() + 1);

    QCOMPARE(m->Text("txtLocation1"), "Salem"); // shown afresh, what was typed is not stored
    QCOMPARE(m->station->profiles.weather[0].location[0], "Salem");
    QCOMPARE(m->station->minMax.TodayMinTemp, 60.0);
    QCOMPARE(clicks.count(), 0);
    List()->hidePopup();
}

void tst_ProfileSettings::reloadsAnEmptiedProfile()
{
    List()->setCurrentIndex(1);

    m->window->ReloadWeatherProfile();

    QCOMPARE(m->station->profiles.weather[1].title, "");
    QCOMPARE(ShownLocations(), QStringList{"1"});
    QCOMPARE(m->Text("lblLocation1Title"), "");
    QCOMPARE(m->Text("lblWeatherCopyright"), "");
    QCOMPARE(m->station->profiles.weather[0].title, "One place");
}

void tst_ProfileSettings::opensAndClosesItsFrame()
{
    auto *frame = m->Find("frmWeatherSettings");
    QVERIFY(frame->isHidden());

    QTest::mouseClick(m->Find("btnWeatherSettings"), Qt::LeftButton);
    QVERIFY(frame->isVisible());
    QVERIFY(m->Find("frmPage0")->rect().contains(frame->geometry()));

    QTest::mouseClick(frame->findChild<QPushButton *>("btnWeatherDone"), Qt::LeftButton);
    QVERIFY(frame->isHidden());

    m->window->btnWeatherSettings_Click();
    m->window->btnShowRaw_Click();
    m->window->btnWeatherDone_Click(); // closes both, whichever was pressed
    QVERIFY(frame->isHidden());
    QVERIFY(m->Find("frmWeatherRaw")->isHidden());
}

void tst_ProfileSettings::keepsTheTabKeyInTheFrameInFront()
{
    m->window->btnWeatherSettings_Click();
    QStringList stops;
    for (int i = 0; i < 5; ++i) {
        stops.append(m->window->focusWidget()->objectName());
        QTest::keyClick(m->window->focusWidget(), Qt::Key_Tab);
    }

    QCOMPARE(stops, (QStringList{"cboSelectedProfile", "txtLocation1", "txtProfileDescription",
                                 "btnWeatherDone", "cboSelectedProfile"}));
}

namespace {

void TurnWheel(QWidget *control)
{
    const QPointF place(5, 5);
    QWheelEvent event(place, control->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(control, &event);
}

} // namespace

void tst_ProfileSettings::ignoresTheWheelWhileItIsClosed()
{
    m->window->btnWeatherSettings_Click();
    m->station->minMax = {60, 70, 50, 80, 4};
    List()->setFocus();
    const QSignalSpy clicks(List(), &ChoiceList::Click);

    for (int notch = 0; notch < 5; ++notch)
        TurnWheel(List());

    QCOMPARE(List()->currentIndex(), 0);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(m->station->minMax.TodayMinTemp, 60.0);
    QCOMPARE(m->station->minMax.TodayMaxTemp, 70.0);
}

void tst_ProfileSettings::scrollsByTheWheelWhileItIsOpen()
{
    m->window->btnWeatherSettings_Click();
    List()->showPopup();
    List()->view()->verticalScrollBar()->setRange(0, 1000); // as on a low screen
    m->Type("txtLocation1", "typed");

    TurnWheel(List()->view()->viewport());

    QVERIFY(List()->view()->verticalScrollBar()->value() > 0);
    QCOMPARE(m->Text("txtLocation1"), "Salem"); // shown afresh
    QCOMPARE(List()->currentIndex(), 0);
    List()->hidePopup();
}

void tst_ProfileSettings::opensByKeys()
{
    m->window->btnWeatherSettings_Click();

    QApplication::setActiveWindow(m->window.get());
    List()->setFocus();

    QTest::keyClick(List(), Qt::Key_Down, Qt::AltModifier);
    QVERIFY(List()->view()->isVisible());
    List()->view()->setFocus();
    QTest::keyClick(List()->view(), Qt::Key_Escape);

    QVERIFY(!List()->view()->isVisible());
    QVERIFY(m->IsShown("frmWeatherSettings")); // the key closed only the list
}

void tst_ProfileSettings::cutsALongTitleInPaintingOnly()
{
    const QString title(200, 'w');
    m->Write("TavrinWeatherProfiles.ini", "[Profile0]\r\ntitle=" + title.toLatin1() + "\r\n");
    QVERIFY(!m->Restart());
    m->window->btnWeatherSettings_Click();

    QCOMPARE(List()->currentText(), title);
    QVERIFY(!List()->IsShownWhole());
    QCOMPARE(List()->ToolTipText(), title + '\n' + List()->toolTip());
    QVERIFY(List()->width() < m->window->width());
}

void tst_ProfileSettings::closesItsFrameByEscape()
{
    QApplication::setActiveWindow(m->window.get());
    m->window->btnWeatherSettings_Click();
    QTest::keyClick(m->window->focusWidget(), Qt::Key_Escape);
    QVERIFY(!m->IsShown("frmWeatherSettings"));

    m->window->btnShowRaw_Click();
    QTest::keyClick(m->window->focusWidget(), Qt::Key_Escape);
    QVERIFY(!m->IsShown("frmWeatherRaw"));

    QTest::keyClick(m->window->focusWidget(), Qt::Key_Escape); // closes nothing else
    QVERIFY(m->window->isVisible());
}

void tst_ProfileSettings::keepsMnemonicsOfCoveredControlsStill()
{
    QApplication::setActiveWindow(m->window.get());
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(m->window.get(), key, Qt::AltModifier);
    };
    press(Qt::Key_W); // "Weather Settings"; the toolkit shows a pressed button for a moment
    QTRY_VERIFY(m->IsShown("frmWeatherSettings"));
    press(Qt::Key_R); // "Show Raw Received Data" is covered
    press(Qt::Key_F); // "Forecast" is not
    QTRY_VERIFY(m->IsShown("frmPage1"));
    QVERIFY(!m->IsShown("frmWeatherRaw"));
    press(Qt::Key_C);
    QTRY_VERIFY(m->IsShown("frmPage0"));
    press(Qt::Key_D); // "Done"
    QTRY_VERIFY(!m->IsShown("frmWeatherSettings"));

    press(Qt::Key_R);
    QTRY_VERIFY(m->IsShown("frmWeatherRaw"));
    press(Qt::Key_F); // is covered now
    press(Qt::Key_D);
    QTRY_VERIFY(!m->IsShown("frmWeatherRaw"));
    QVERIFY(m->IsShown("frmPage0"));
    press(Qt::Key_F);
    QTRY_VERIFY(m->IsShown("frmPage1"));
}

QTEST_MAIN(tst_ProfileSettings)
#include "tst_profile_settings.moc"
