#include "gui/zone_finder_test.h"

#include <QTest>

/// The search in the zone finder's list, and the choice of a zone.
class tst_ZoneFinderSearch final : public ZoneFinderTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void findsPlacesWhateverTheCase();
    void findsNothingInZoneCodes();
    void searchesFromTheEighthCharacterOn();
    void stepsThroughAllMatchesAndWraps();
    void findsTheOnlyMatchAgain();
    void keepsTheSelectionWithoutASearchText();
    void leavesNothingSelectedWithoutAMatch();
    void deselectsWhenTheSearchTextChanges();

    void enablesSelectAtAnyChoiceOfAnEntry();
    void handsBackZoneAndState();
    void handsBackTheStateOfTheMoment();
    void handsBackNothingWithoutASelection();
    void handsBackNothingWithoutAState();
};

// --- search

void tst_ZoneFinderSearch::findsPlacesWhateverTheCase()
{
    for (const QString text : {"towson", "TOWSON", "TowSon"}) {
        m->Type(text);
        m->Click("btnSearch");
        QCOMPARE(m->Selected(), 2);
        QVERIFY(m->IsEnabled("btnSelect"));
    }
}

void tst_ZoneFinderSearch::findsNothingInZoneCodes()
{
    m->Type("MDZ");
    m->Click("btnSearch");

    QCOMPARE(m->Selected(), -1);
    QVERIFY(!m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::searchesFromTheEighthCharacterOn()
{
    m->Type("  Southern");
    m->Click("btnSearch");
    QCOMPARE(m->Selected(), 2);

    m->Type(":  Southern");
    m->Click("btnSearch");
    QCOMPARE(m->Selected(), -1);
}

void tst_ZoneFinderSearch::stepsThroughAllMatchesAndWraps()
{
    m->Type("including");
    QList<int> selected;
    for (int i = 0; i < 4; ++i) {
        m->Click("btnSearch");
        selected.append(m->Selected());
    }

    QCOMPARE(selected, (QList<int>{2, 3, 4, 2}));
    QVERIFY(m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::findsTheOnlyMatchAgain()
{
    m->Type("bowie");
    m->Click("btnSearch");
    m->Click("btnSearch");

    QCOMPARE(m->Selected(), 3);
    QVERIFY(m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::keepsTheSelectionWithoutASearchText()
{
    ClickEntry(1);

    m->Click("btnSearch");

    QCOMPARE(m->Selected(), 1);
    QVERIFY(m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::leavesNothingSelectedWithoutAMatch()
{
    m->Type("nowhere");
    ClickEntry(1);
    QVERIFY(m->IsEnabled("btnSelect"));

    m->Click("btnSearch");

    QCOMPARE(m->Selected(), -1);
    QVERIFY(!m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::deselectsWhenTheSearchTextChanges()
{
    ClickEntry(1);
    QCOMPARE(m->Selected(), 1);

    QTest::keyClicks(m->Find("txtSearch"), "t");
    QCOMPARE(m->Selected(), -1);

    // So the search begins at the first entry again.
    m->Type("baltimore");
    m->Click("btnSearch");
    QCOMPARE(m->Selected(), 1);
}

// --- selection

void tst_ZoneFinderSearch::enablesSelectAtAnyChoiceOfAnEntry()
{
    QVERIFY(!m->IsEnabled("btnSelect"));
    ClickEntry(3);
    QVERIFY(m->IsEnabled("btnSelect"));

    m->Type("nowhere");
    m->Click("btnSearch");
    QVERIFY(!m->IsEnabled("btnSelect"));
    QTest::keyClick(List(), Qt::Key_Down);
    QVERIFY(m->Selected() >= 0);
    QVERIFY(m->IsEnabled("btnSelect"));
}

void tst_ZoneFinderSearch::handsBackZoneAndState()
{
    ClickEntry(2);
    m->Click("btnSelect");

    QCOMPARE(m->selected, QStringList{"MDZ011 MD"});
    QVERIFY(!m->isOpen);
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_ZoneFinderSearch::handsBackTheStateOfTheMoment()
{
    m->Find<QComboBox>("cboState")->setCurrentIndex(49);
    ClickEntry(2);
    m->Click("btnSelect");

    QCOMPARE(m->selected, QStringList{"MDZ011 WY"});
}

void tst_ZoneFinderSearch::handsBackNothingWithoutASelection()
{
    ClickEntry(2);
    m->Type("t"); // clears the selection and leaves the button as it is
    QVERIFY(m->IsEnabled("btnSelect"));

    m->Click("btnSelect");

    QCOMPARE(m->selected, QStringList());
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderSearch::handsBackNothingWithoutAState()
{
    m->Find<QComboBox>("cboState")->setCurrentIndex(-1);
    ClickEntry(2);
    m->Click("btnSelect");

    QCOMPARE(m->selected, QStringList());
    QVERIFY(m->isOpen);
}

QTEST_MAIN(tst_ZoneFinderSearch)
#include "tst_zone_finder_search.moc"
