#include "gui/zone_finder_test.h"

#include <QApplication>
#include <QTest>

/// The ways to cancel the zone finder's retrieval.
class tst_ZoneFinderCancel final : public ZoneRetrievalTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { Finish(); }

    void isCancelledAtItsCheckPoints_data();
    void isCancelledAtItsCheckPoints();
    void isCancelledByItsCloseButton();
    void isCancelledByEscape();
    void canBeCancelledTwice();
    void canBeOpenedAgainOnceCancelled();
    void endsWithItsOwner();
    void endsWithItsOwnerOnceCancelled();
};

void tst_ZoneFinderCancel::isCancelledAtItsCheckPoints_data()
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

void tst_ZoneFinderCancel::isCancelledAtItsCheckPoints()
{
    QFETCH(int, polls);
    QFETCH(int, arrived);
    QFETCH(QString, progress);
    m->Click("btnNOAAZonesGetList");
    for (int poll = 0; poll < polls; ++poll) {
        if (poll == 0)
            m->FinishList(ZoneListing({11, 12}));
        if (poll == 2)
            m->FinishFile("mdz011.txt", "Towson");
        m->Poll();
    }
    if (arrived == 2) {
        m->FinishFile("mdz011.txt", "Towson");
        m->FinishFile("mdz012.txt", "Bowie");
    }

    m->Click("btnCancel");
    QVERIFY(m_http.open.empty()); // at once
    QVERIFY(m->dialog->Retrieving());
    QVERIFY(m->isOpen);

    m->Poll();
    QVERIFY(!m->isOpen);
    QCOMPARE(m->Label("lblProgress"), progress);
    QCOMPARE(m->Enabled(), ZoneRetrieval::kAllButSelect);
    QVERIFY(!m->dialog->isVisible());
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_ZoneFinderCancel::isCancelledByItsCloseButton()
{
    m->StartWith({11, 12});

    QVERIFY(!m->dialog->close());
    QVERIFY(m->dialog->isVisible());
    QVERIFY(m->isOpen);
    QVERIFY(m_http.open.empty());

    m->Poll();
    QVERIFY(!m->isOpen);
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_ZoneFinderCancel::isCancelledByEscape()
{
    m->StartWith({11, 12});
    QApplication::setActiveWindow(m->dialog);

    QTest::keyClick(m->dialog, Qt::Key_Escape);

    QVERIFY(m->isOpen);
    QTRY_VERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderCancel::canBeCancelledTwice()
{
    m->StartWith({11, 12});
    m->Click("btnCancel");
    m->Click("btnCancel");
    m->Poll();
    QVERIFY(!m->isOpen);

    m->Click("btnCancel"); // closed and not deleted yet
    m->Poll();
    ZoneFinder::DeleteClosed();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderCancel::canBeOpenedAgainOnceCancelled()
{
    m->StartWith({11, 12});
    m->Click("btnCancel");
    QTRY_VERIFY(m->dialog.isNull());

    m->Open();
    m->StartWith({12});
    m->FinishFile("mdz012.txt", "Bowie");
    m->Poll();

    QCOMPARE(m->Entries(), QStringList{"MDZ012:  Bowie"});
    QVERIFY(m->isOpen);
}

void tst_ZoneFinderCancel::endsWithItsOwner()
{
    m->StartWith({11, 12});

    m->owner.reset();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
    QVERIFY(m_http.open.empty());
    QCoreApplication::processEvents();
}

void tst_ZoneFinderCancel::endsWithItsOwnerOnceCancelled()
{
    m->StartWith({11, 12});
    m->Click("btnCancel");
    m->Poll(); // closed; to be deleted by the event loop

    m->owner.reset();
    ZoneFinder::DeleteClosed();

    QVERIFY(m->dialog.isNull());
}

QTEST_MAIN(tst_ZoneFinderCancel)
#include "tst_zone_finder_cancel.moc"
