#include "gui/main_window.h"
#include "support/one_place.h"
#include "zones/frm_find_noaa_zones.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

/// The zone finder as the main window opens it, and what a choice does to the forecast.
class tst_ZoneChoice final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void opensOneFinder();
    void takesTheChosenZone();
    void leavesTheCountdownAloneForTheSameZone();
    void opensAnewAfterClosing();
    void opensAnewBeforeTheClosedOneIsGone();
    void closesTheFinderWithTheProgram();
    void endsARetrievalWithTheProgram();
    void givesTheFinderReceivedCodes();

private:
    [[nodiscard]] frmFindNOAAZones *Finder() const
    {
        return m->window->findChild<frmFindNOAAZones *>();
    }

    /// Opens the finder and chooses `zone` of Maryland in it.
    void Choose(const QString &zone)
    {
        m->window->btnSelectNOAAZone_Click();
        auto *finder = Finder();
        finder->findChild<QComboBox *>("cboState")->setCurrentIndex(19);
        auto *entries = finder->findChild<QListWidget *>("lstZoneCodes");
        entries->addItem(zone + ":  Southern Baltimore");
        entries->setCurrentRow(0);
        finder->findChild<QPushButton *>("btnSelect")->setEnabled(true);
        finder->btnSelect_Click();
    }

    std::unique_ptr<MainWindow> m;
};

void tst_ZoneChoice::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini",
             kOnePlaceProfile + "[ForecastProfile0]\r\nhost=http://forecast.test\r\n");
    QVERIFY(!m->Start());
    m->station->SetForecastRequestCountdown(0);
}

void tst_ZoneChoice::opensOneFinder()
{
    m->window->cmdPage_Click(1);
    QTest::mouseClick(m->Find<QPushButton>("btnSelectNOAAZone"), Qt::LeftButton);

    QVERIFY(Finder() != nullptr);
    auto *finder = Finder();
    QVERIFY(finder->isVisible());
    QVERIFY(!finder->isModal());
    QVERIFY(m->state.ZoneFinderOpen);
    QCOMPARE(finder->findChild<QComboBox *>("cboState")->currentText(), "ALABAMA");

    m->window->btnSelectNOAAZone_Click();
    QCOMPARE(m->window->findChildren<frmFindNOAAZones *>().size(), 1);
}

void tst_ZoneChoice::takesTheChosenZone()
{
    Choose("MDZ011");

    QCOMPARE(m->Text("txtZoneCode"), "MDZ011");
    QCOMPARE(m->Text("txtStateCode"), "MD");
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(5000));
    QVERIFY(!m->state.ZoneFinderOpen);
    for (int tick = 0; tick < 20; ++tick)
        m->window->tmrMain_Timer();
    QCOMPARE(m->http.calls.last(), "get http://forecast.test/data/forecasts/zone/md/mdz011.txt");
}

void tst_ZoneChoice::leavesTheCountdownAloneForTheSameZone()
{
    m->Type("txtZoneCode", "MDZ011");
    m->Type("txtStateCode", "XX");

    Choose("MDZ011");

    QCOMPARE(m->Text("txtStateCode"), "MD");
    QCOMPARE(m->station->ForecastRequestCountdown(), qint16(0));
}

void tst_ZoneChoice::opensAnewAfterClosing()
{
    m->window->btnSelectNOAAZone_Click();
    const QSignalSpy destroyed(Finder(), &QObject::destroyed);
    Finder()->btnCancel_Click();
    QVERIFY(!m->state.ZoneFinderOpen);
    QTRY_COMPARE(destroyed.size(), 1);

    m->window->btnSelectNOAAZone_Click();

    QVERIFY(Finder() != nullptr);
    QVERIFY(m->state.ZoneFinderOpen);
}

void tst_ZoneChoice::opensAnewBeforeTheClosedOneIsGone()
{
    m->window->btnSelectNOAAZone_Click();
    auto *closed = Finder();
    const QSignalSpy destroyed(closed, &QObject::destroyed);
    closed->btnCancel_Click();

    m->window->btnSelectNOAAZone_Click();

    QTRY_COMPARE(destroyed.size(), 1);
    QVERIFY(Finder() != nullptr);
    QVERIFY(Finder()->isVisible());
    QVERIFY(m->state.ZoneFinderOpen);
}

void tst_ZoneChoice::closesTheFinderWithTheProgram()
{
    m->window->btnSelectNOAAZone_Click();

    QVERIFY(m->window->Unload(UnloadMode::Code));

    QVERIFY(Finder() == nullptr);
    QVERIFY(!m->state.ZoneFinderOpen);
}

void tst_ZoneChoice::endsARetrievalWithTheProgram()
{
    m->window->btnSelectNOAAZone_Click();
    Finder()->btnNOAAZonesGetList_Click();
    Finder()->tmrRetrieval_Timer();
    QVERIFY(Finder()->Retrieving());
    QVERIFY(!m->http.open.empty());

    QVERIFY(m->window->Unload(UnloadMode::Signal));

    QVERIFY(Finder() == nullptr);
    QVERIFY(m->http.open.empty());
}

void tst_ZoneChoice::givesTheFinderReceivedCodes()
{
    m->window->btnSelectNOAAZone_Click();
    m->station->AwaitZoneCodes(m->http.Net_HTTPThreadOpen("80"));
    m->http.Finish(m->station->ZoneCodeThreadHandle(), "codes");

    m->window->tmrMain_Timer();

    QCOMPARE(m->Find("txtZonesTest")->property("text").toString()
                 + m->Find("txtZonesTest")->property("plainText").toString(),
             "codes");
}

QTEST_MAIN(tst_ZoneChoice)
#include "tst_zone_choice.moc"
