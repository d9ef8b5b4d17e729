#include "gui/main_window.h"
#include "support/one_place.h"

#include <QPushButton>
#include <QTest>

/// A location as a person enters it in the settings frame: key by key, then Done or Enter.
class tst_LocationTyping final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void asksForNoHalfLocation();
    void doneBringsTheNewPlaceSoon();
    void enterDoesToo();
    void doneOfTheRawFrameStoresNothing();
    void endStoresWhatIsInTheBox();

private:
    void TypeKeys(const QString &keys) { QTest::keyClicks(m->Find("txtLocation1"), keys); }
    void PressDone() const { m->window->btnWeatherDone_Click(); }

    [[nodiscard]] QString LastRequest() const
    {
        return m->http.calls.filter("get http://weather.test").last();
    }

    std::unique_ptr<MainWindow> m;
};

void tst_LocationTyping::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini", kOnePlaceProfile);
    m->Write("TavrinWeatherSettings.ini",
             "[Profile0]\r\nlocation1=Salem\r\n[Settings]\r\nFirstRun=False\r\n"
             "MinimizeOnStartup=False\r\n");
    QVERIFY(!m->Start());
    m->PassSeconds(1); // asks for Salem
    QCOMPARE(LastRequest(), "get http://weather.test/now?q=Salem");
    m->window->btnWeatherSettings_Click();
    m->Find<QLineEdit>("txtLocation1")->selectAll();
}

void tst_LocationTyping::asksForNoHalfLocation()
{
    m->PassSeconds(898);
    TypeKeys("KD");
    m->PassSeconds(2); // the second one would ask

    QCOMPARE(LastRequest(), "get http://weather.test/now?q=Salem");
    QCOMPARE(m->Text("lblNextWeatherCheck"), "Next Update in 0:00");
    TypeKeys("TO");
    m->PassSeconds(3);
    QCOMPARE(LastRequest(), "get http://weather.test/now?q=KDTO");
}

void tst_LocationTyping::doneBringsTheNewPlaceSoon()
{
    TypeKeys("KDTO");
    PressDone();

    m->PassSeconds(5);
    QCOMPARE(LastRequest(), "get http://weather.test/now?q=Salem");
    m->PassSeconds(1);
    QCOMPARE(LastRequest(), "get http://weather.test/now?q=KDTO");
}

void tst_LocationTyping::enterDoesToo()
{
    TypeKeys("KDTO");
    QTest::keyClick(m->Find("txtLocation1"), Qt::Key_Return);

    QVERIFY(m->IsShown("frmWeatherSettings"));
    QCOMPARE(m->station->CurrentSettings().location[0][0], "KDTO");
    m->PassSeconds(6);
    QCOMPARE(LastRequest(), "get http://weather.test/now?q=KDTO");
}

void tst_LocationTyping::doneOfTheRawFrameStoresNothing()
{
    TypeKeys("KD");
    m->Find("frmWeatherSettings")->hide();
    m->window->btnShowRaw_Click();
    PressDone();

    QCOMPARE(m->station->CurrentSettings().location[0][0], "Salem");
}

void tst_LocationTyping::endStoresWhatIsInTheBox()
{
    TypeKeys("KDTO");

    m->window->Unload(UnloadMode::Signal);

    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Profile0", u"location1"), "KDTO");
}

QTEST_MAIN(tst_LocationTyping)
#include "tst_location_typing.moc"
