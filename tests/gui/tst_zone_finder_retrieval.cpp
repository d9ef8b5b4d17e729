#include <QApplication>
#include <QTest>

#include <algorithm>

#include "gui/zone_finder.h"

namespace {

const QString kList = "https://host/data/forecasts/zone/md/";
const QStringList kCancelAlone{"btnCancel"};
const QStringList kAllButSelect{"lstZoneCodes", "cboState",  "btnNOAAZonesGetList",
                                "txtSearch",    "btnSearch", "btnCancel"};

} // namespace

/// The zone finder while it retrieves, with transfers that the test ends.
class tst_ZoneFinderRetrieval final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsEachStep();
    void roundsPercentages();
    void asksForTheChosenState();
    void takesTheRowsOfTheDay();
    void takesTheControlsAwayMeanwhile();
    void movesByItsTimer();
    void givesTheFocusBack();
    void beginsAnew();
    void ignoresASecondStart();

    void tellsWhyThereIsNoList();
    void letsNobodySelectTheMessage();
    void leavesOutAFileThatFailed();
    void tellsThatNothingWasFound();
    void endsSilentlyAtAForeignFile();
    void endsSilentlyWithoutAState();

    void isCancelledAtItsCheckPoints_data();
    void isCancelledAtItsCheckPoints();
    void isCancelledByItsCloseButton();
    void isCancelledByEscape();
    void canBeCancelledTwice();
    void canBeOpenedAgainOnceCancelled();
    void endsWithItsOwner();
    void endsWithItsOwnerOnceCancelled();

private:
    [[nodiscard]] TransferHandle HandleOf(const QString &url) const
    {
        const auto found = std::find_if(m_http.open.begin(), m_http.open.end(),
                                        [&](const auto &open) { return open.second.url == url; });
        if (found == m_http.open.end())
            qFatal("nobody asked for %s", qUtf8Printable(url));
        return found->first;
    }
    void Poll() const { m->dialog->tmrRetrieval_Timer(); }

    /// Starts and lets the list of these files arrive, so that the first is asked for.
    void StartWith(const QList<int> &numbers)
    {
        m->Click("btnNOAAZonesGetList");
        m_http.Finish(HandleOf(kList), ZoneListing(numbers));
        Poll();
        Poll();
    }
    void FinishFile(const QString &name, const QString &place)
    {
        m_http.Finish(HandleOf(kList + name), ZoneFile(name.first(6).toUpper(), place));
    }

    FakeTransfers m_http;
    std::unique_ptr<ZoneFinder> m;
};

void tst_ZoneFinderRetrieval::init()
{
    m_http.refuseOpen = false;
    m_http.calls.clear();
    m = std::make_unique<ZoneFinder>(m_http);
    m->Open();
}

void tst_ZoneFinderRetrieval::cleanup()
{
    m.reset();
    QVERIFY(m_http.open.empty()); // nothing is left on its way, however it ended
}

void tst_ZoneFinderRetrieval::showsEachStep()
{
    m->Fill({"MDZ099:  of an earlier list"});
    m->Click("btnNOAAZonesGetList");
    QVERIFY(m->dialog->Retrieving());
    QCOMPARE(m->Label("lblProgress"), "0%");
    QVERIFY(m->IsShown("lblProgress"));
    QCOMPARE(m->Entries(), QStringList());
    QCOMPARE(m->Label("lblZoneFiles"),
             "Requesting Zone List: https://host/data/forecasts/zone/md/");

    m_http.Finish(HandleOf(kList), ZoneListing({11, 12, 13}));
    Poll();
    QCOMPARE(m->Label("lblZoneFiles"),
             "Received Zone List:   https://host/data/forecasts/zone/md/");

    Poll();
    QCOMPARE(m->Entries("lstZoneFiles"), (QStringList{"mdz011.txt", "mdz012.txt", "mdz013.txt"}));
    QCOMPARE(m->Label("lblProgress"), "33.3%  (1 of 3)");
    QCOMPARE(m->Label("lblZoneFiles"),
             "Requesting Zone Data: https://host/data/forecasts/zone/md/mdz011.txt...");

    m_http.Finish(HandleOf(kList + "mdz011.txt"),
                  "FPUS51 KLWX\nMDZ011-170915-\nNorthern Baltimore-Southern Baltimore-\n"
                  "Including the cities of Towson...Dundalk\n1015 AM EST SUN NOV 16 2026\n");
    Poll();
    QCOMPARE(m->Label("lblProgress"), "66.7%  (2 of 3)");
    FinishFile("mdz012.txt", "Bowie");
    Poll();
    QCOMPARE(m->Label("lblProgress"), "100.0%  (3 of 3)");
    FinishFile("mdz013.txt", "Waldorf");
    Poll();

    QCOMPARE(m->Entries(), (QStringList{"MDZ011:  Northern Baltimore-Southern Baltimore, Including "
                                        "the cities of Towson, Dundalk",
                                        "MDZ012:  Bowie", "MDZ013:  Waldorf"}));
    QCOMPARE(m->Label("lblZoneFiles"), "");
    QVERIFY(!m->IsShown("lblProgress"));
    QVERIFY(!m->dialog->Retrieving());
    QCOMPARE(m->Enabled(), kAllButSelect);
}

void tst_ZoneFinderRetrieval::roundsPercentages()
{
    QList<int> numbers;
    for (int number = 1; number <= 16; ++number)
        numbers.append(number);

    StartWith(numbers);

    QCOMPARE(m->Label("lblProgress"), "6.3%  (1 of 16)");
}

void tst_ZoneFinderRetrieval::asksForTheChosenState()
{
    m->Find<QComboBox>("cboState")->setCurrentIndex(49);

    m->Click("btnNOAAZonesGetList");

    QCOMPARE(m_http.calls, (QStringList{"open 80", "get https://host/data/forecasts/zone/wy/"}));
}

void tst_ZoneFinderRetrieval::takesTheRowsOfTheDay()
{
    const QString listing =
        ZoneListing({1}).replace("16-Nov", "13-Nov") + ZoneListing({2}).replace("16-Nov", "17-Nov")
        + ZoneListing({3}).replace("mdz", "vaz") + ZoneListing({4}).replace("mdz", "MDZ");
    m->Click("btnNOAAZonesGetList");
    m_http.Finish(HandleOf(kList), listing);
    Poll();
    Poll();

    QCOMPARE(m->Entries("lstZoneFiles"), QStringList{"mdz002.txt"});
}

void tst_ZoneFinderRetrieval::takesTheControlsAwayMeanwhile()
{
    m->Fill({"MDZ099:  of an earlier list"});
    m->Find<QListWidget>("lstZoneCodes")->setCurrentRow(0);
    QVERIFY(m->IsEnabled("btnSelect"));

    m->Click("btnNOAAZonesGetList");
    QCOMPARE(m->Enabled(), kCancelAlone);

    m_http.Finish(HandleOf(kList), ZoneListing({11}));
    Poll();
    Poll();
    QCOMPARE(m->Enabled(), kCancelAlone);
}

void tst_ZoneFinderRetrieval::movesByItsTimer()
{
    m->Click("btnNOAAZonesGetList");
    m_http.Finish(HandleOf(kList), ZoneListing({11}));
    QTRY_COMPARE(m->Label("lblProgress"), "100.0%  (1 of 1)");
    FinishFile("mdz011.txt", "Towson");
    QTRY_COMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
}

void tst_ZoneFinderRetrieval::givesTheFocusBack()
{
    // Otherwise it stays on Cancel, and the next Enter closes the dialog.
    m->Find("btnNOAAZonesGetList")->setFocus();
    StartWith({11});
    FinishFile("mdz011.txt", "Towson");
    Poll();
    QCOMPARE(m->dialog->focusWidget(), m->Find("txtSearch"));

    m->Find("btnNOAAZonesGetList")->setFocus();
    StartWith({});
    QCOMPARE(m->dialog->focusWidget(), m->Find("cboState"));
}

void tst_ZoneFinderRetrieval::beginsAnew()
{
    StartWith({11});
    FinishFile("mdz011.txt", "Towson");
    Poll();

    StartWith({12});
    QCOMPARE(m->Entries(), QStringList());
    QCOMPARE(m->Entries("lstZoneFiles"), QStringList{"mdz012.txt"});
    FinishFile("mdz012.txt", "Bowie");
    Poll();
    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
}

void tst_ZoneFinderRetrieval::ignoresASecondStart()
{
    StartWith({11});

    m->dialog->btnNOAAZonesGetList_Click();

    QCOMPARE(m->Label("lblProgress"), "100.0%  (1 of 1)");
    QCOMPARE(m->Enabled(), kCancelAlone);
    FinishFile("mdz011.txt", "Towson");
    Poll();
    QCOMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
    QCOMPARE(m->Enabled(), kAllButSelect);
}

// --- failures

void tst_ZoneFinderRetrieval::tellsWhyThereIsNoList()
{
    m->Click("btnNOAAZonesGetList");
    m_http.Fail(HandleOf(kList), "HTTP 404", 404);
    Poll();

    QCOMPARE(m->Entries(), QStringList{"Error retrieving https://host/data/forecasts/zone/md/"});
    QCOMPARE(m->Label("lblZoneFiles"),
             "Error retrieving https://host/data/forecasts/zone/md/ -> 404");
    QVERIFY(!m->IsShown("lblProgress"));
    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(m->isOpen);
    QCOMPARE(m->Enabled(), kAllButSelect);
}

void tst_ZoneFinderRetrieval::letsNobodySelectTheMessage()
{
    m->Click("btnNOAAZonesGetList");
    m_http.Fail(HandleOf(kList));
    Poll();
    auto *list = m->Find<QListWidget>("lstZoneCodes");
    const QPoint message = list->visualItemRect(list->item(0)).center();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, message);
    QCOMPARE(m->Enabled(), kAllButSelect);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, message);
    QTest::keyClick(list, Qt::Key_Return);
    m->Type("retrieving");
    m->Click("btnSearch");
    QCOMPARE(m->Selected(), -1);
    QCOMPARE(m->Enabled(), kAllButSelect);
    QCOMPARE(m->selected, QStringList());
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderRetrieval::leavesOutAFileThatFailed()
{
    StartWith({11, 12});
    m_http.Fail(HandleOf(kList + "mdz011.txt"));
    Poll();
    QCOMPARE(m->Label("lblProgress"), "100.0%  (2 of 2)");
    FinishFile("mdz012.txt", "Bowie");
    Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
    QCOMPARE(m->Label("lblZoneFiles"), "");
}

void tst_ZoneFinderRetrieval::tellsThatNothingWasFound()
{
    StartWith({11});
    m_http.Fail(HandleOf(kList + "mdz011.txt"));
    Poll();

    QCOMPARE(m->Label("lblZoneFiles"), "No Valid Forecast Data Found");
    QCOMPARE(m->Entries(), QStringList());
    QCOMPARE(m->Enabled(), kAllButSelect);
}

void tst_ZoneFinderRetrieval::endsSilentlyAtAForeignFile()
{
    StartWith({11, 12, 13});
    FinishFile("mdz011.txt", "Towson");
    m_http.Finish(HandleOf(kList + "mdz012.txt"), ZoneFile("PAZ012", "York"));
    Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(!m->IsShown("lblProgress"));
    QCOMPARE(m->Enabled(), kAllButSelect);
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderRetrieval::endsSilentlyWithoutAState()
{
    m->Find<QComboBox>("cboState")->setCurrentIndex(-1);

    m->Click("btnNOAAZonesGetList");

    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(!m->IsShown("lblProgress"));
    QCOMPARE(m->Enabled(), kAllButSelect);
    QCOMPARE(m_http.calls, QStringList());
}

// --- cancelling

void tst_ZoneFinderRetrieval::isCancelledAtItsCheckPoints_data()
{
    QTest::addColumn<int>("polls");   // done before the button is pressed
    QTest::addColumn<int>("arrived"); // files that are there by then
    QTest::addColumn<QString>("progress");
    QTest::newRow("list on its way") << 0 << 0 << "0%";
    QTest::newRow("list received") << 1 << 0 << "50.0%  (1 of 2)";
    QTest::newRow("first file on its way") << 2 << 0 << "100.0%  (2 of 2)";
    QTest::newRow("last file on its way") << 3 << 1 << "100.0%  (2 of 2)";
    QTest::newRow("last file received") << 2 << 2 << "100.0%  (2 of 2)";
}

void tst_ZoneFinderRetrieval::isCancelledAtItsCheckPoints()
{
    QFETCH(int, polls);
    QFETCH(int, arrived);
    QFETCH(QString, progress);
    m->Click("btnNOAAZonesGetList");
    for (int poll = 0; poll < polls; ++poll) {
        if (poll == 0)
            m_http.Finish(HandleOf(kList), ZoneListing({11, 12}));
        if (poll == 2)
            FinishFile("mdz011.txt", "Towson");
        Poll();
    }
    if (arrived == 2) {
        FinishFile("mdz011.txt", "Towson");
        FinishFile("mdz012.txt", "Bowie");
    }

    m->Click("btnCancel");
    QVERIFY(m_http.open.empty()); // at once
    QVERIFY(m->dialog->Retrieving());
    QVERIFY(m->isOpen);

    Poll();
    QVERIFY(!m->isOpen);
    QCOMPARE(m->Label("lblProgress"), progress);
    QCOMPARE(m->Enabled(), kAllButSelect);
    QVERIFY(!m->dialog->isVisible());
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_ZoneFinderRetrieval::isCancelledByItsCloseButton()
{
    StartWith({11, 12});

    QVERIFY(!m->dialog->close());
    QVERIFY(m->dialog->isVisible());
    QVERIFY(m->isOpen);
    QVERIFY(m_http.open.empty());

    Poll();
    QVERIFY(!m->isOpen);
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_ZoneFinderRetrieval::isCancelledByEscape()
{
    StartWith({11, 12});
    QApplication::setActiveWindow(m->dialog);

    QTest::keyClick(m->dialog, Qt::Key_Escape);

    QVERIFY(m->isOpen);
    QTRY_VERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderRetrieval::canBeCancelledTwice()
{
    StartWith({11, 12});
    m->Click("btnCancel");
    m->Click("btnCancel");
    Poll();
    QVERIFY(!m->isOpen);

    m->Click("btnCancel"); // closed and not deleted yet
    Poll();
    ZoneFinder::DeleteClosed();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderRetrieval::canBeOpenedAgainOnceCancelled()
{
    StartWith({11, 12});
    m->Click("btnCancel");
    QTRY_VERIFY(m->dialog.isNull());

    m->Open();
    StartWith({12});
    FinishFile("mdz012.txt", "Bowie");
    Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderRetrieval::endsWithItsOwner()
{
    StartWith({11, 12});

    m->owner.reset();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
    QVERIFY(m_http.open.empty());
    QCoreApplication::processEvents();
}

void tst_ZoneFinderRetrieval::endsWithItsOwnerOnceCancelled()
{
    StartWith({11, 12});
    m->Click("btnCancel");
    Poll(); // closed; to be deleted by the event loop

    m->owner.reset();
    ZoneFinder::DeleteClosed();

    QVERIFY(m->dialog.isNull());
}

QTEST_MAIN(tst_ZoneFinderRetrieval)
#include "tst_zone_finder_retrieval.moc"
