#include "controls/control.h"
#include "gui/main_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTest>

#include <algorithm>

namespace {

const QStringList kControls{"btnGetForecast",
                            "btnGetWeather",
                            "btnSelectNOAAZone",
                            "btnShowRaw",
                            "btnWeatherDone",
                            "btnWeatherSettings",
                            "cboSelectedProfile",
                            "chkForecastTime0",
                            "chkForecastTime1",
                            "chkForecastTime2",
                            "chkForecastTime3",
                            "chkMinimizeOnStartup",
                            "cmdPage0",
                            "cmdPage1",
                            "cmdPage2",
                            "frmLoc1",
                            "frmLoc2",
                            "frmLoc3",
                            "frmLoc4",
                            "frmPage0",
                            "frmPage1",
                            "frmPage2",
                            "frmWeatherRaw",
                            "frmWeatherSettings",
                            "Label1",
                            "lblAppVersion",
                            "lblDisclaimer1",
                            "lblDisclaimer2",
                            "lblForecastCopyright",
                            "lblLocation1Title",
                            "lblLocation2Title",
                            "lblLocation3Title",
                            "lblLocation4Title",
                            "lblNextForecastCheck",
                            "lblNextWeatherCheck",
                            "lblProfileDescription",
                            "lblStatus",
                            "lblWeatherCopyright",
                            "optCheckInterval0",
                            "optCheckInterval1",
                            "optCheckInterval2",
                            "optCheckInterval3",
                            "txtAtmosPress",
                            "txtCurrentConditions",
                            "txtCurrentTemp",
                            "txtDewPoint",
                            "txtFocus",
                            "txtForecast",
                            "txtHTTPPort",
                            "txtHeatIndex",
                            "txtHumidity",
                            "txtLocation",
                            "txtLocation1",
                            "txtLocation2",
                            "txtLocation3",
                            "txtLocation4",
                            "txtPrevMaxTemp",
                            "txtPrevMinTemp",
                            "txtPrevPrecip",
                            "txtProfileDescription",
                            "txtStateCode",
                            "txtSunrise",
                            "txtSunset",
                            "txtTime",
                            "txtVisibility",
                            "txtWeatherInfo",
                            "txtWindChill",
                            "txtWindSpeedDir",
                            "txtZoneCode"};

/// Whether a timer runs for the box or one of its parts.
bool HasTimers(QWidget *box)
{
    QObjectList objects = box->findChildren<QObject *>();
    objects.append(box);
    return std::any_of(objects.begin(), objects.end(), [](QObject *object) {
        return !QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty();
    });
}

} // namespace

/// The pages and their controls.
class tst_Pages final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void hasAllControls();
    void hasTheirTexts();
    void beginsWithTheFirstPage();
    void showsOnePageAtATime_data();
    void showsOnePageAtATime();
    void raisesThePressedTab();
    void movesTheFocusOutOfTheWay();
    void keepsItsFocusBoxEmpty();
    void hasNoCursorBlinkOutOfSight();
    void emptiesItsFocusBoxWhenItIsLeft();
    void pressesButtonsByEnterAndSpace_data();
    void pressesButtonsByEnterAndSpace();
    void coversEverythingWithTheRawFrame();
    void correctsThePortWhenItIsLeft();
    void endsWithTheFocusInThePortBox();
    void takesTheStartUpOptionAtOnce();
    void describesControlsByNameOnRequest();
    void reachesEveryControlByTheTabKey();

private:
    [[nodiscard]] QPushButton *Tab(int index) const
    {
        return m->Find<QPushButton>("cmdPage" + QString::number(index));
    }

    std::unique_ptr<MainWindow> m;
};

void tst_Pages::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini",
             "[Profile0]\r\ntitle=A\r\nlocation1Title=City\r\n"
             "[Profile1]\r\ntitle=B\r\nlocation1Title=City\r\nlocation2Title=State\r\n"
             "location3Title=Country\r\nlocation4Title=Station\r\n");
    QVERIFY(!m->Start());
}

void tst_Pages::hasAllControls()
{
    QStringList missing;
    for (const QString &name : kControls) {
        if (m->window->findChild<QWidget *>(name) == nullptr)
            missing.append(name);
    }
    QCOMPARE(missing, QStringList());
    QCOMPARE(m->window->findChildren<QPushButton *>("btnWeatherDone").size(), 2);
}

void tst_Pages::hasTheirTexts()
{
    const auto caption = [this](const QString &name) {
        return m->Find<QAbstractButton>(name)->text().remove('&');
    };
    QCOMPARE(caption("cmdPage0"), "Current Weather");
    QCOMPARE(caption("cmdPage1"), "Forecast");
    QCOMPARE(caption("cmdPage2"), "Program Settings");
    QCOMPARE(m->Find<QGroupBox>("frmPage0")->title(), "Current Weather Conditions");
    QCOMPARE(m->Find<QGroupBox>("frmPage1")->title(), "Forecast");
    QCOMPARE(m->Find<QGroupBox>("frmPage2")->title(), "Program Settings");
    QCOMPARE(m->Find<QGroupBox>("frmWeatherSettings")->title(), "Settings");
    QCOMPARE(caption("btnGetWeather"), "Get Weather Now");
    QCOMPARE(caption("btnWeatherSettings"), "Weather Settings");
    QCOMPARE(caption("btnShowRaw"), "Show Raw Received Data");
    QCOMPARE(caption("btnWeatherDone"), "Done");
    QCOMPARE(caption("btnSelectNOAAZone"), "Select Zone Code");
    QCOMPARE(caption("btnGetForecast"), "Get Forecast Now");
    QCOMPARE(caption("chkForecastTime0"), "12:00 AM");
    QCOMPARE(caption("chkForecastTime1"), "6:00 AM");
    QCOMPARE(caption("chkForecastTime2"), "12:00 PM");
    QCOMPARE(caption("chkForecastTime3"), "6:00 PM");
    QCOMPARE(caption("optCheckInterval0"), "15 Minutes");
    QCOMPARE(caption("optCheckInterval3"), "3 Hours");
    QVERIFY(m->Find<QRadioButton>("optCheckInterval0")->isChecked());
    QCOMPARE(caption("chkMinimizeOnStartup"), "Minimize Tavrin Weather Utility On Startup");
    QCOMPARE(m->Text("lblDisclaimer1"), "This weather display is intended for configuration "
                                        "verification and is not ideal for on-air reading.");
    QCOMPARE(m->Text("lblDisclaimer2"), "This forecast display is intended for configuration "
                                        "verification and is not ideal for on-air reading");
    QCOMPARE(m->Text("lblStatus"), "Loading...");
}

void tst_Pages::beginsWithTheFirstPage()
{
    QVERIFY(m->IsShown("frmPage0"));
    QVERIFY(!Tab(0)->isEnabled());
    QVERIFY(Tab(0)->font().bold());
    QCOMPARE(Tab(0)->y(), 1);
}

void tst_Pages::showsOnePageAtATime_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("forecast") << 1;
    QTest::newRow("settings") << 2;
}

void tst_Pages::showsOnePageAtATime()
{
    QFETCH(int, page);
    for (const int pressed : {page, 0}) {
        QTest::mouseClick(Tab(pressed), Qt::LeftButton);

        for (int i = 0; i < 3; ++i) {
            QCOMPARE(m->IsShown("frmPage" + QString::number(i)), i == pressed);
            QCOMPARE(Tab(i)->isEnabled(), i != pressed);
            QCOMPARE(Tab(i)->font().bold(), i == pressed);
        }
    }
}

void tst_Pages::raisesThePressedTab()
{
    m->window->cmdPage_Click(1);

    for (int i = 0; i < 3; ++i) {
        QCOMPARE(Tab(i)->y(), i == 1 ? 15 / 15 : 45 / 15);
        QCOMPARE(Tab(i)->height(), i == 1 ? 450 / 15 : 390 / 15);
    }
    // From back to front; the frame with the reply, closed here, covers everything when it opens.
    QStringList front;
    for (QObject *child : m->window->children()) {
        if (child->isWidgetType())
            front.append(child->objectName());
    }
    QCOMPARE(front.mid(front.size() - 8),
             (QStringList{"cmdPage0", "cmdPage2", "frmPage0", "frmPage1", "frmPage2", "cmdPage1",
                          "linPages", "frmWeatherRaw"}));
}

void tst_Pages::movesTheFocusOutOfTheWay()
{
    m->window->cmdPage_Click(2);
    m->Find("txtHTTPPort")->setFocus();

    m->window->cmdPage_Click(0);

    QCOMPARE(m->window->focusWidget(), m->Find("txtFocus"));
}

void tst_Pages::keepsItsFocusBoxEmpty()
{
    auto *box = m->Find<QLineEdit>("txtFocus");
    box->setFocus();

    QTest::keyClicks(box, "typed");

    QCOMPARE(box->text(), "");
}

void tst_Pages::hasNoCursorBlinkOutOfSight()
{
    QApplication::setActiveWindow(m->window.get());
    m->window->cmdPage_Click(2);

    m->Find("txtHTTPPort")->setFocus();
    QVERIFY(HasTimers(m->Find("txtHTTPPort"))); // here it can be seen

    m->Find("txtFocus")->setFocus();
    QVERIFY(!HasTimers(m->Find("txtHTTPPort")));
    QVERIFY(!HasTimers(m->Find("txtFocus")));
}

void tst_Pages::emptiesItsFocusBoxWhenItIsLeft()
{
    QApplication::setActiveWindow(m->window.get());
    auto *box = m->Find<QLineEdit>("txtFocus");
    box->setFocus();
    {
        const QSignalBlocker silent(box);
        box->setText("kept");
    }

    m->Find("btnGetWeather")->setFocus();

    QCOMPARE(box->text(), "");
}

void tst_Pages::pressesButtonsByEnterAndSpace_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void tst_Pages::pressesButtonsByEnterAndSpace()
{
    QFETCH(int, key);

    QTest::keyClick(m->Find("btnWeatherSettings"), Qt::Key(key));
    QVERIFY(m->IsShown("frmWeatherSettings"));
    QTest::keyClick(Tab(2), Qt::Key(key));
    QVERIFY(m->IsShown("frmPage2"));
}

void tst_Pages::coversEverythingWithTheRawFrame()
{
    m->window->cmdPage_Click(1);
    m->window->cmdPage_Click(0);
    m->window->btnShowRaw_Click();

    const QWidget *raw = m->Find("frmWeatherRaw");
    for (const QPoint place : {QPoint(1, 1), QPoint(363, 1), QPoint(1, 458), QPoint(363, 458),
                               QPoint(60, 15), QPoint(180, 230)}) {
        const QWidget *there = m->window->childAt(place);
        QVERIFY(there == raw || raw->isAncestorOf(there));
    }
}

void tst_Pages::correctsThePortWhenItIsLeft()
{
    m->window->cmdPage_Click(2);
    QApplication::setActiveWindow(m->window.get());
    auto *port = m->Find<QLineEdit>("txtHTTPPort");
    const auto left = [this, port](const QString &text) {
        port->setText(text);
        port->setFocus();
        m->Find("txtFocus")->setFocus();
        return port->text();
    };

    QCOMPARE(left("443"), "443");
    QCOMPARE(left(""), "80");
    QCOMPARE(left("8080abc"), "8080");
    QCOMPARE(left("70000"), "80");
}

void tst_Pages::endsWithTheFocusInThePortBox()
{
    m->window->cmdPage_Click(2);
    QApplication::setActiveWindow(m->window.get());
    m->Find("txtHTTPPort")->setFocus();
    QCOMPARE(QApplication::focusWidget(), m->Find("txtHTTPPort"));

    m->window.reset(); // the box loses the focus to nobody; a sanitizer would see a call into the
                       // deleted window

    QVERIFY(QApplication::focusWidget() == nullptr);
}

void tst_Pages::takesTheStartUpOptionAtOnce()
{
    QVERIFY(m->station->CurrentSettings().MinimizeOnStartupEnabled);
    m->window->cmdPage_Click(2);

    m->Find<QCheckBox>("chkMinimizeOnStartup")->click();
    QVERIFY(!m->station->CurrentSettings().MinimizeOnStartupEnabled);

    QVERIFY(!m->Restart());
    QVERIFY(!m->station->CurrentSettings().MinimizeOnStartupEnabled);
    QVERIFY(!m->window->isMinimized());
}

void tst_Pages::describesControlsByNameOnRequest()
{
    QCOMPARE(m->Find("lblStatus")->accessibleDescription(), "");

    DescribeControlsByName(*m->window);

    QCOMPARE(m->window->accessibleDescription(), "frmMain");
    for (const QString &name : kControls)
        QCOMPARE(m->Find(name)->accessibleDescription(), name);
}

void tst_Pages::reachesEveryControlByTheTabKey()
{
    QStringList stops;
    m->Find("txtFocus")->setFocus();
    for (int i = 0; i < 22; ++i) {
        QTest::keyClick(m->window->focusWidget(), Qt::Key_Tab);
        stops.append(m->window->focusWidget()->objectName());
    }

    QCOMPARE(stops.first(4), (QStringList{"cmdPage1", "cmdPage2", "txtLocation", "txtTime"}));
    QCOMPARE(stops.at(17), "txtPrevMaxTemp");
    QCOMPARE(stops.sliced(18, 3),
             (QStringList{"btnGetWeather", "btnWeatherSettings", "btnShowRaw"}));
    QCOMPARE(stops.at(21), "cmdPage1"); // once round, and never to the empty box
}

QTEST_MAIN(tst_Pages)
#include "tst_pages.moc"
