#include "gui/zone_finder_test.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace {

const QStringList kButtons{"btnNOAAZonesGetList", "btnSearch", "btnSelect", "btnCancel"};

} // namespace

/// The zone finder's controls: states, keys and layout.
class tst_frmFindNOAAZones final : public ZoneFinderTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void hasItsControlsAndTexts();
    void listsTheStates();
    void beginsWithTheGivenState();
    void tellsThatItIsOpen();
    void tellsOnceThatItIsClosed();
    void isDeletedWithItsOwner();

    void findsByEnterInTheSearchBox();
    void selectsByEnterAndDoubleClick_data();
    void selectsByEnterAndDoubleClick();
    void doesNotSelectByASingleClick();
    void pressesTheFocusedButtonByEnter();
    void closesByEscape_data();
    void closesByEscape();
    void closesItsListOfStatesByEscape();
    void hasAMnemonicForEveryButton();
    void isWalkedThroughByTheTabKey();
    void namesItsControlsForAccessibility();
    void describesControlsByNameOnRequest();

    void keepsItsHeightAndSmallestWidth();
    void spansTheWidthWithItsList_data();
    void spansTheWidthWithItsList();
    void showsEnoughEntriesInALargerFont();
    void showsLongEntriesWhole();
    void laysOutOnlyWhatCanBeRead();
    void takesTheTextOfAZoneCodeTransfer();
};

void tst_frmFindNOAAZones::hasItsControlsAndTexts()
{
    const auto text = [this](const QString &name) { return m->Label(name).remove('&'); };
    const auto caption = [this](const QString &name) {
        return m->Find<QPushButton>(name)->text().remove('&');
    };
    QCOMPARE(m->dialog->windowTitle(), "Select NOAA Zone Code");
    QCOMPARE(text("Label1"), "Select State to Search");
    QCOMPARE(text("Label2"), "Available Forecast Station Zone Codes");
    QCOMPARE(text("Label3"), "Search Zone Code List for City/Location");
    QCOMPARE(text("Label4"), "NOTE: Search results may include neighboring state locations to the "
                             "selected state.");
    QCOMPARE(caption("btnNOAAZonesGetList"), "Get Zone Code List");
    QCOMPARE(caption("btnSearch"), "Find");
    QCOMPARE(caption("btnSelect"), "Select");
    QCOMPARE(caption("btnCancel"), "Cancel");
    for (const QString shown : {"cboState", "lstZoneCodes", "txtSearch", "lblZoneFiles"})
        QVERIFY2(m->IsShown(shown), qPrintable(shown));
    for (const QString hidden : {"lblProgress", "lstZoneFiles", "txtZonesTest"})
        QVERIFY2(!m->IsShown(hidden), qPrintable(hidden));
    QCOMPARE(m->Label("lblZoneFiles"), "");
    QVERIFY(!m->IsEnabled("btnSelect"));
    QVERIFY(!m->dialog->isModal());
    QVERIFY(m->dialog->isWindow());
    QCOMPARE(m->dialog->parentWidget(), m->owner.get());
}

void tst_frmFindNOAAZones::listsTheStates()
{
    const auto *states = m->Find<QComboBox>("cboState");
    QCOMPARE(states->count(), 50);
    QCOMPARE(states->itemText(0), "ALABAMA");
    QCOMPARE(states->itemText(ZoneFinder::kMaryland), "MARYLAND");
    QCOMPARE(states->itemText(49), "WYOMING");
    QVERIFY(!states->isEditable());
}

void tst_frmFindNOAAZones::beginsWithTheGivenState()
{
    QCOMPARE(m->Find<QComboBox>("cboState")->currentText(), "MARYLAND");

    m->Open(0);

    QCOMPARE(m->Find<QComboBox>("cboState")->currentText(), "ALABAMA");
}

void tst_frmFindNOAAZones::tellsThatItIsOpen()
{
    QVERIFY(m->isOpen);

    m->Click("btnCancel");

    QVERIFY(!m->isOpen);
    QVERIFY(!m->dialog->isVisible());
    ZoneFinder::DeleteClosed();
    QVERIFY(m->dialog.isNull());
}

void tst_frmFindNOAAZones::tellsOnceThatItIsClosed()
{
    m->dialog->close();
    m->Open(); // before the event loop has deleted the first one

    ZoneFinder::DeleteClosed();

    QVERIFY(m->isOpen);
    QVERIFY(!m->dialog.isNull());
}

void tst_frmFindNOAAZones::isDeletedWithItsOwner()
{
    m->owner.reset();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

// --- keys

void tst_frmFindNOAAZones::findsByEnterInTheSearchBox()
{
    m->Type("towson");
    QTest::keyClick(m->Find("txtSearch"), Qt::Key_Return);
    QCOMPARE(m->Selected(), 2);
    QTest::keyClick(m->Find("txtSearch"), Qt::Key_Enter);
    QCOMPARE(m->Selected(), 4);
    QCOMPARE(m->selected, QStringList());
}

void tst_frmFindNOAAZones::selectsByEnterAndDoubleClick_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("double click") << 0;
}

void tst_frmFindNOAAZones::selectsByEnterAndDoubleClick()
{
    QFETCH(int, key);
    QApplication::setActiveWindow(m->dialog);
    List()->setFocus();
    ClickEntry(3);

    if (key != 0)
        QTest::keyClick(List(), Qt::Key(key));
    else
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {},
                           List()->visualItemRect(List()->item(3)).center());

    QCOMPARE(m->selected, QStringList{"MDZ013 MD"});
    QVERIFY(!m->isOpen);
}

void tst_frmFindNOAAZones::doesNotSelectByASingleClick()
{
    ClickEntry(3);

    QCOMPARE(m->selected, QStringList());
    QVERIFY(m->isOpen);
}

void tst_frmFindNOAAZones::pressesTheFocusedButtonByEnter()
{
    m->Type("bowie");
    QTest::keyClick(m->Find("btnSearch"), Qt::Key_Return);
    QCOMPARE(m->Selected(), 3);

    QTest::keyClick(m->Find("btnSelect"), Qt::Key_Return);
    QCOMPARE(m->selected, QStringList{"MDZ013 MD"});
}

void tst_frmFindNOAAZones::closesByEscape_data()
{
    QTest::addColumn<QString>("focus");
    for (const char *name : {"cboState", "lstZoneCodes", "txtSearch", "btnCancel"})
        QTest::newRow(name) << name;
}

void tst_frmFindNOAAZones::closesByEscape()
{
    QFETCH(QString, focus);
    QApplication::setActiveWindow(m->dialog);
    m->Find(focus)->setFocus();

    QTest::keyClick(m->Find(focus), Qt::Key_Escape);

    QVERIFY(!m->isOpen);
    QVERIFY(!m->dialog->isVisible());
}

void tst_frmFindNOAAZones::closesItsListOfStatesByEscape()
{
    QApplication::setActiveWindow(m->dialog);
    auto *states = m->Find<QComboBox>("cboState");
    states->setFocus();
    states->showPopup();
    states->view()->setFocus();

    QTest::keyClick(states->view(), Qt::Key_Escape);

    QVERIFY(!states->view()->isVisible());
    QVERIFY(m->isOpen); // the key closed only the list
}

void tst_frmFindNOAAZones::hasAMnemonicForEveryButton()
{
    QStringList texts;
    for (const QString &name : kButtons)
        texts.append(m->Find<QPushButton>(name)->text());
    for (const QString label : {"Label1", "Label2", "Label3"}) {
        texts.append(m->Label(label));
        QVERIFY(m->Find<QLabel>(label)->buddy() != nullptr);
    }
    QStringList keys;
    for (const QString &text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        QVERIFY2(!key.isEmpty(), qPrintable(text));
        QVERIFY2(!keys.contains(key), qPrintable(text));
        keys.append(key);
    }
}

void tst_frmFindNOAAZones::isWalkedThroughByTheTabKey()
{
    ClickEntry(2); // so that every button can have the focus
    m->Find("cboState")->setFocus();
    QStringList stops;
    for (int i = 0; i < 7; ++i) {
        stops.append(m->dialog->focusWidget()->objectName());
        QTest::keyClick(m->dialog->focusWidget(), Qt::Key_Tab);
    }

    QCOMPARE(stops, (QStringList{"cboState", "btnNOAAZonesGetList", "lstZoneCodes", "txtSearch",
                                 "btnSearch", "btnCancel", "btnSelect"}));
    QCOMPARE(m->dialog->focusWidget()->objectName(), "cboState");
}

void tst_frmFindNOAAZones::namesItsControlsForAccessibility()
{
    QCOMPARE(m->Find("cboState")->accessibleName(), "Select State to Search");
    QCOMPARE(m->Find("lstZoneCodes")->accessibleName(), "Available Forecast Station Zone Codes");
    QCOMPARE(m->Find("txtSearch")->accessibleName(), "Search Zone Code List for City/Location");
}

void tst_frmFindNOAAZones::describesControlsByNameOnRequest()
{
    QCOMPARE(m->Find("cboState")->accessibleDescription(), "");

    qputenv("TAVRIN_WEATHER_NAMES", "1");
    m->Open();
    qunsetenv("TAVRIN_WEATHER_NAMES");

    QCOMPARE(m->dialog->accessibleDescription(), "frmFindNOAAZones");
    for (const QString name : {"cboState", "lstZoneCodes", "lblProgress", "lblZoneFiles"})
        QCOMPARE(m->Find(name)->accessibleDescription(), name);
}

// --- layout

void tst_frmFindNOAAZones::keepsItsHeightAndSmallestWidth()
{
    QCOMPARE(m->dialog->size(), QSize(691, 375)); // 10365 x 5625 twips

    m->dialog->resize(400, 900);
    QCOMPARE(m->dialog->size(), QSize(691, 375));

    m->dialog->resize(1000, 100);
    QCOMPARE(m->dialog->size(), QSize(1000, 375));
}

void tst_frmFindNOAAZones::spansTheWidthWithItsList_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("smallest") << 691;
    QTest::newRow("wider") << 1200;
}

void tst_frmFindNOAAZones::spansTheWidthWithItsList()
{
    QFETCH(int, width);
    m->dialog->resize(width, 375);
    QCoreApplication::processEvents();

    QCOMPARE(List()->x(), 8);
    QCOMPARE(List()->width(), width - 16);
    const QRect select = m->Find("btnSelect")->geometry();
    const QRect cancel = m->Find("btnCancel")->geometry();
    QCOMPARE(select.x() + select.width(), width - 8);
    QVERIFY(cancel.right() < select.left());
    QCOMPARE(cancel.y(), select.y());
}

void tst_frmFindNOAAZones::showsEnoughEntriesInALargerFont()
{
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * 1.2);
    QApplication::setFont(font);
    m->Open();
    m->Fill(kZones);
    const int rows = List()->viewport()->height() / List()->sizeHintForRow(0);
    QApplication::setFont(usual);

    QVERIFY2(rows >= 6, qPrintable(QString::number(rows)));
}

void tst_frmFindNOAAZones::showsLongEntriesWhole()
{
    const QString entry = "MDZ020:  " + QString("Somewhere, ").repeated(40) + "<b>End</b>";
    m->dialog->close();
    m_http.refuseOpen = false;
    m->Open();
    m->dialog->btnNOAAZonesGetList_Click();
    m_http.Finish(m_http.open.begin()->first, ZoneListing({20}));
    m->dialog->tmrRetrieval_Timer();
    m->dialog->tmrRetrieval_Timer();
    m_http.Finish(m_http.open.begin()->first, ZoneFile("MDZ020", entry.sliced(9)));
    m->dialog->tmrRetrieval_Timer();
    QCoreApplication::processEvents();

    QCOMPARE(m->Entries(), QStringList{entry});
    QVERIFY(List()->horizontalScrollBar()->maximum() > 0);
    QVERIFY(List()->item(0)->toolTip().contains("&lt;b&gt;End&lt;/b&gt;"));
}

void tst_frmFindNOAAZones::laysOutOnlyWhatCanBeRead()
{
    List()->clear();
    m->Fill({QString(1'000'000, 'x'), QString(1'000, 'x'), "two\rwords", "twowords"});
    const auto width = [this](int row) {
        return List()->itemDelegate()->sizeHint({}, List()->model()->index(row, 0)).width();
    };

    QCOMPARE(width(0), width(1));
    QCOMPARE(width(2), width(3));
    QCOMPARE(m->Entries().at(0).size(), 1'000'000);
}

void tst_frmFindNOAAZones::takesTheTextOfAZoneCodeTransfer()
{
    m->dialog->SetZonesTest("<b>MDZ011</b>\nMDZ012");

    QCOMPARE(m->Find<QPlainTextEdit>("txtZonesTest")->toPlainText(), "<b>MDZ011</b>\nMDZ012");
    QVERIFY(!m->IsShown("txtZonesTest"));
}

QTEST_MAIN(tst_frmFindNOAAZones)
#include "tst_frm_find_noaa_zones.moc"
