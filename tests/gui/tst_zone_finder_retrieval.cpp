#include "gui/zone_finder_test.h"

#include <QTest>

/// The zone finder while it retrieves, with transfers that the test ends.
class tst_ZoneFinderRetrieval final : public ZoneRetrievalTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { Finish(); }

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
};

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

    m->FinishList(ZoneListing({11, 12, 13}));
    m->Poll();
    QCOMPARE(m->Label("lblZoneFiles"),
             "Received Zone List:   https://host/data/forecasts/zone/md/");

    m->Poll();
    QCOMPARE(m->Entries("lstZoneFiles"), (QStringList{"mdz011.txt", "mdz012.txt", "mdz013.txt"}));
    QCOMPARE(m->Label("lblProgress"), "33.3%  (1 of 3)");
    QCOMPARE(m->Label("lblZoneFiles"),
             "Requesting Zone Data: https://host/data/forecasts/zone/md/mdz011.txt...");

    m_http.Finish(m->HandleOfFile("mdz011.txt"),
                  "FPUS51 KLWX\nMDZ011-170915-\nNorthern Baltimore-Southern Baltimore-\n"
                  "Including the cities of Towson...Dundalk\n1015 AM EST SUN NOV 16 2026\n");
    m->Poll();
    QCOMPARE(m->Label("lblProgress"), "66.7%  (2 of 3)");
    m->FinishFile("mdz012.txt", "Bowie");
    m->Poll();
    QCOMPARE(m->Label("lblProgress"), "100.0%  (3 of 3)");
    m->FinishFile("mdz013.txt", "Waldorf");
    m->Poll();

    QCOMPARE(m->Entries(), (QStringList{"MDZ011:  Northern Baltimore-Southern Baltimore, Including "
                                        "the cities of Towson, Dundalk",
                                        "MDZ012:  Bowie", "MDZ013:  Waldorf"}));
    QCOMPARE(m->Label("lblZoneFiles"), "");
    QVERIFY(!m->IsShown("lblProgress"));
    QVERIFY(!m->dialog->Retrieving());
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
}

void tst_ZoneFinderRetrieval::roundsPercentages()
{
    QList<int> numbers;
    for (int number = 1; number <= 16; ++number)
        numbers.append(number);

    m->StartWith(numbers);

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
    m->FinishList(listing);
    m->Poll();
    m->Poll();

    QCOMPARE(m->Entries("lstZoneFiles"), QStringList{"mdz002.txt"});
}

void tst_ZoneFinderRetrieval::takesTheControlsAwayMeanwhile()
{
    m->Fill({"MDZ099:  of an earlier list"});
    m->Find<QListWidget>("lstZoneCodes")->setCurrentRow(0);
    QVERIFY(m->IsEnabled("btnSelect"));

    m->Click("btnNOAAZonesGetList");
    QCOMPARE(m->Enabled(), ZoneRetrieval::kCancelAlone);

    m->FinishList(ZoneListing({11}));
    m->Poll();
    m->Poll();
    QCOMPARE(m->Enabled(), ZoneRetrieval::kCancelAlone);
}

void tst_ZoneFinderRetrieval::movesByItsTimer()
{
    m->Click("btnNOAAZonesGetList");
    m->FinishList(ZoneListing({11}));
    QTRY_COMPARE(m->Label("lblProgress"), "100.0%  (1 of 1)");
    m->FinishFile("mdz011.txt", "Towson");
    QTRY_COMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
}

void tst_ZoneFinderRetrieval::givesTheFocusBack()
{
    // Otherwise it stays on Cancel, and the next Enter closes the dialog.
    m->Find("btnNOAAZonesGetList")->setFocus();
    m->StartWith({11});
    m->FinishFile("mdz011.txt", "Towson");
    m->Poll();
    QCOMPARE(m->dialog->focusWidget(), m->Find("txtSearch"));

    m->Find("btnNOAAZonesGetList")->setFocus();
    m->StartWith({});
    QCOMPARE(m->dialog->focusWidget(), m->Find("cboState"));
}

void tst_ZoneFinderRetrieval::beginsAnew()
{
    m->StartWith({11});
    m->FinishFile("mdz011.txt", "Towson");
    m->Poll();

    m->StartWith({12});
    QCOMPARE(m->Entries(), QStringList());
    QCOMPARE(m->Entries("lstZoneFiles"), QStringList{"mdz012.txt"});
    m->FinishFile("mdz012.txt", "Bowie");
    m->Poll();
    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
}

void tst_ZoneFinderRetrieval::ignoresASecondStart()
{
    m->StartWith({11});

    m->dialog->btnNOAAZonesGetList_Click();

    QCOMPARE(m->Label("lblProgress"), "100.0%  (1 of 1)");
    QCOMPARE(m->Enabled(), ZoneRetrieval::kCancelAlone);
    m->FinishFile("mdz011.txt", "Towson");
    m->Poll();
    QCOMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
}

// --- failures

void tst_ZoneFinderRetrieval::tellsWhyThereIsNoList()
{
    m->Click("btnNOAAZonesGetList");
    m_http.Fail(m->HandleOf(ZoneRetrieval::kList), "HTTP 404", 404);
    m->Poll();

    QCOMPARE(m->Entries(), QStringList{"Error retrieving https://host/data/forecasts/zone/md/"});
    QCOMPARE(m->Label("lblZoneFiles"),
             "Error retrieving https://host/data/forecasts/zone/md/ -> 404");
    QVERIFY(!m->IsShown("lblProgress"));
    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(m->isOpen);
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
}

void tst_ZoneFinderRetrieval::letsNobodySelectTheMessage()
{
    m->Click("btnNOAAZonesGetList");
    m_http.Fail(m->HandleOf(ZoneRetrieval::kList));
    m->Poll();
    auto *list = m->Find<QListWidget>("lstZoneCodes");
    const QPoint message = list->visualItemRect(list->item(0)).center();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, message);
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, message);
    QTest::keyClick(list, Qt::Key_Return);
    m->Type("retrieving");
    m->Click("btnSearch");
    QCOMPARE(m->Selected(), -1);
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
    QCOMPARE(m->selected, QStringList());
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderRetrieval::leavesOutAFileThatFailed()
{
    m->StartWith({11, 12});
    m_http.Fail(m->HandleOfFile("mdz011.txt"));
    m->Poll();
    QCOMPARE(m->Label("lblProgress"), "100.0%  (2 of 2)");
    m->FinishFile("mdz012.txt", "Bowie");
    m->Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
    QCOMPARE(m->Label("lblZoneFiles"), "");
}

void tst_ZoneFinderRetrieval::tellsThatNothingWasFound()
{
    m->StartWith({11});
    m_http.Fail(m->HandleOfFile("mdz011.txt"));
    m->Poll();

    QCOMPARE(m->Label("lblZoneFiles"), "No Valid Forecast Data Found");
    QCOMPARE(m->Entries(), QStringList());
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
}

void tst_ZoneFinderRetrieval::endsSilentlyAtAForeignFile()
{
    m->StartWith({11, 12, 13});
    m->FinishFile("mdz011.txt", "Towson");
    m_http.Finish(m->HandleOfFile("mdz012.txt"), ZoneFile("PAZ012", "York"));
    m->Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ011:  Towson"});
    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(!m->IsShown("lblProgress"));
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderRetrieval::endsSilentlyWithoutAState()
{
    m->Find<QComboBox>("cboState")->setCurrentIndex(-1);

    m->Click("btnNOAAZonesGetList");

    QVERIFY(!m->dialog->Retrieving());
    QVERIFY(!m->IsShown("lblProgress"));
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
    QCOMPARE(m_http.calls, QStringList());
}

QTEST_MAIN(tst_ZoneFinderRetrieval)
#include "tst_zone_finder_retrieval.moc"
