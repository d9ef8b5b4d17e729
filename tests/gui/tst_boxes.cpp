#include "controls/control.h"
#include "controls/elided_label.h"
#include "controls/long_text_box.h"
#include "controls/message_boxes.h"
#include "controls/tool_tip.h"
#include "controls/value_box.h"
#include "start/unix_signals.h"
#include "weather/raw_data_text.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QTimer>

#include <csignal>

namespace {

const QString kHalf(QChar(0xD83D)); // of the pair
const QString kPair = kHalf + QChar(0xDE00);
const QString kReplaced = QStringLiteral("a\uFFFDb"); // what is shown for a half in between

/// Calls `act` with the message box that is open when the event loop runs next.
class WhileBoxIsOpen final
{
public:
    explicit WhileBoxIsOpen(std::function<void(QMessageBox &)> act) : m_act(std::move(act))
    {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_act(*qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
        });
        m_timer.start(0);
    }

private:
    std::function<void(QMessageBox &)> m_act;
    QTimer m_timer;
};

} // namespace

/// The program's own controls, apart from the main window.
class tst_Boxes final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueBoxKeepsTheWholeValue();
    void valueBoxShowsNoHalfCharacter();
    void valueBoxCannotBeTypedInto();
    void rawBoxLaysOutOnlyWhatIsShown();
    void longBoxMakesItsTextReadable();
    void rawBoxLaysOutALongTextInPieces();
    void rawBoxKeepsLineEndsAcrossPieces();
    void longBoxShowsNoHalfCharacter();
    void rawBoxKeepsPairsAcrossPieces();
    void shortLinesAreLeftAsTheyAre();
    void longLinesAreBroken();
    void elidedLabelKeepsItsSize();
    void toolTipShowsMarkupLiterally();
    void toolTipBreaksLongLines();
    void focusWatchReportsUntouchedText();
    void questionIsAnsweredByYesOnly_data();
    void questionIsAnsweredByYesOnly();
    void fatalProblemBoxClosesByItself();
    void signalsReachTheEventLoop_data();
    void signalsReachTheEventLoop();
};

void tst_Boxes::valueBoxKeepsTheWholeValue()
{
    ValueBox box(nullptr);
    const QString value(1'000'000, u'x');

    box.SetValue(value);
    QCOMPARE(box.Value(), value);
    QCOMPARE(box.text().size(), ValueBox::kShownLength);
    QCOMPARE(box.cursorPosition(), 0);

    box.SetValue("12 mph");
    QCOMPARE(box.Value(), "12 mph");
    QCOMPARE(box.text(), "12 mph");
}

void tst_Boxes::valueBoxShowsNoHalfCharacter()
{
    ValueBox box(nullptr);

    box.SetValue("a" + kHalf + "b");
    QCOMPARE(box.Value(), kReplaced);
    QCOMPARE(box.text(), kReplaced);

    const QString before(ValueBox::kShownLength - 1, 'x');
    box.SetValue(before + kPair);
    QCOMPARE(box.Value(), before + kPair);
    QCOMPARE(box.text(), before);
}

void tst_Boxes::valueBoxCannotBeTypedInto()
{
    ValueBox box(nullptr);
    box.SetValue("68.0 F");

    QTest::keyClicks(&box, "99");

    QCOMPARE(box.text(), "68.0 F");
}

void tst_Boxes::rawBoxLaysOutOnlyWhatIsShown()
{
    LongTextBox box(LongTextBox::LayOut::WhileShown, nullptr, nullptr);
    box.SetText("reply");
    QCOMPARE(box.Text(), "reply");
    QCOMPARE(box.toPlainText(), "");

    box.show();
    QCOMPARE(box.toPlainText(), "reply");
    box.SetText("another");
    QCOMPARE(box.toPlainText(), "another");

    box.hide();
    QCOMPARE(box.toPlainText(), "");
    QCOMPARE(box.Text(), "another");
}

void tst_Boxes::longBoxMakesItsTextReadable()
{
    LongTextBox box(LongTextBox::LayOut::Always, &RawDataText, nullptr);
    box.SetText("a\tb\nc");

    QCOMPARE(box.Text(), "a     b\r\nc");
    QCOMPARE(box.toPlainText(), "a     b\nc"); // also while it is hidden
}

void tst_Boxes::rawBoxLaysOutALongTextInPieces()
{
    const QString line(99, u'x');
    const int lines = int(LongTextBox::kPiece / 100) * 3;
    const QString text = (line + '\n').repeated(lines);
    LongTextBox box(LongTextBox::LayOut::WhileShown, nullptr, nullptr);
    box.SetText(text);

    box.show();
    QVERIFY(box.toPlainText().size() <= LongTextBox::kPiece);
    QTRY_COMPARE(box.toPlainText(), text);
    QCOMPARE(box.Text(), text);
}

void tst_Boxes::rawBoxKeepsLineEndsAcrossPieces()
{
    // The first piece would end between CR and LF.
    const QString text = QString(LongTextBox::kPiece - 1, u' ').replace(500, 1, "\n") + "\r\nend";
    LongTextBox box(LongTextBox::LayOut::WhileShown, nullptr, nullptr);
    box.SetText(text);

    box.show();
    QTRY_VERIFY(box.toPlainText().endsWith("end"));

    QVERIFY(box.toPlainText().endsWith(" \nend"));
}

void tst_Boxes::longBoxShowsNoHalfCharacter()
{
    LongTextBox box(LongTextBox::LayOut::Always, nullptr, nullptr);

    box.SetText("a" + kHalf + "b");

    QCOMPARE(box.Text(), kReplaced);
    QCOMPARE(box.toPlainText(), kReplaced);
}

void tst_Boxes::rawBoxKeepsPairsAcrossPieces()
{
    // The first piece, and each line as it is broken for display, would end within a pair.
    const QString text = "x" + kPair.repeated(int(LongTextBox::kPiece / 2)) + "end";
    LongTextBox box(LongTextBox::LayOut::WhileShown, nullptr, nullptr);
    box.SetText(text);

    box.show();
    QTRY_VERIFY(box.toPlainText().endsWith("end"));

    QCOMPARE(box.toPlainText().remove('\n'), text);
    QVERIFY(box.toPlainText().isValidUtf16());
}

void tst_Boxes::shortLinesAreLeftAsTheyAre()
{
    QCOMPARE(WithShortLines(u"", 5), "");
    QCOMPARE(WithShortLines(u"12345", 5), "12345");
    QCOMPARE(WithShortLines(u"12345\r\n12345\n1", 5), "12345\r\n12345\n1");
}

void tst_Boxes::longLinesAreBroken()
{
    QCOMPARE(WithShortLines(u"123456", 5), "12345\n6");
    QCOMPARE(WithShortLines(u"123\n123456789ab", 5), "123\n12345\n6789a\nb");
    QCOMPARE(WithShortLines("1234" + kPair + "6", 5), "1234\n" + kPair + "6");
}

void tst_Boxes::elidedLabelKeepsItsSize()
{
    ElidedLabel label(2, nullptr);
    const QSize hint = label.sizeHint();
    const QSize least = label.minimumSizeHint();

    label.setText(QString(4000, u'x'));

    QCOMPARE(label.sizeHint(), hint);
    QCOMPARE(label.minimumSizeHint(), least);
    QCOMPARE(least.width(), 0);
    QVERIFY(hint.height() >= 2 * label.fontMetrics().height());
}

void tst_Boxes::toolTipShowsMarkupLiterally()
{
    QTextDocument shown;
    shown.setHtml(PlainToolTip("<b>5 & 6\n&amp; 7"));

    QCOMPARE(shown.toPlainText(), "<b>5 & 6\n&amp; 7");
}

void tst_Boxes::toolTipBreaksLongLines()
{
    const auto shown = [](const QString &text) {
        QTextDocument document;
        document.setHtml(PlainToolTip(text));
        return document.toPlainText();
    };
    const QString sixty(60, 'x');

    QCOMPARE(shown(sixty), sixty);
    QCOMPARE(shown(sixty + " y"), sixty + "\ny");
    QCOMPARE(shown("a " + sixty + " b\nc"), "a\n" + sixty + "\nb\nc");
    QCOMPARE(shown(sixty + sixty + "y"), sixty + '\n' + sixty + "\ny");
    QCOMPARE(shown(QString(5000, 'x')).remove('\n').size(), 1000); // it has to fit on a screen
}

void tst_Boxes::focusWatchReportsUntouchedText()
{
    QWidget window;
    QLineEdit first(&window);
    QLineEdit second(&window);
    int left = 0;
    const auto watch = WhenFocusIsLost(&first, [&left] { ++left; });
    window.show();
    QApplication::setActiveWindow(&window);

    first.setFocus();
    QCOMPARE(left, 0);
    second.setFocus();

    QCOMPARE(left, 1);
}

void tst_Boxes::questionIsAnsweredByYesOnly_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("answer");
    QTest::newRow("yes") << int(QMessageBox::Yes) << true;
    QTest::newRow("no") << int(QMessageBox::No) << false;
    QTest::newRow("closed") << 0 << false;
}

void tst_Boxes::questionIsAnsweredByYesOnly()
{
    QFETCH(int, button);
    QFETCH(bool, answer);
    QString shown;
    const WhileBoxIsOpen user([button, &shown](QMessageBox &box) {
        shown = box.windowTitle() + ": " + box.text();
        if (button == 0)
            box.reject();
        else
            box.button(QMessageBox::StandardButton(button))->click();
    });

    QCOMPARE(AskYesNo(nullptr, "Confirm Exit", "Are you sure?"), answer);
    QCOMPARE(shown, "Confirm Exit: Are you sure?");
}

void tst_Boxes::fatalProblemBoxClosesByItself()
{
    QString shown;
    const WhileBoxIsOpen user([&shown](const QMessageBox &box) { shown = box.text(); });

    ShowFatalProblem("cannot start", std::chrono::milliseconds(20)); // returns without a click

    QCOMPARE(shown, "cannot start");
}

void tst_Boxes::signalsReachTheEventLoop_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void tst_Boxes::signalsReachTheEventLoop()
{
    QFETCH(int, number);
    std::signal(number, SIG_DFL); // whatever the test inherited
    const UnixSignals endSignals;
    const QSignalSpy requested(&endSignals, &UnixSignals::EndRequested);

    std::raise(number);
    QCOMPARE(requested.count(), 0); // nothing runs inside the signal handler
    QTRY_COMPARE(requested.count(), 1);
}

QTEST_MAIN(tst_Boxes)
#include "tst_boxes.moc"
