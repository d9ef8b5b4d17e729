#include "app/frm_main.h"
#include "controls/muted_color.h"
#include "controls/value_box.h"
#include "gui/layout_faults.h"
#include "gui/window_states.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>

/// How the windows look and work in every state that people see.
class tst_Looks final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void hasNoLayoutFault_data();
    void hasNoLayoutFault();
    void hasNoLayoutFaultWhenTheFontGrows();
    void keepsTheSizeOfTheWindow();
    void followsThePalette_data();
    void followsThePalette();
    void showsWhereTheFocusIs();
    void mutesWhatIsNotThere_data();
    void mutesWhatIsNotThere();

private:
    /// The usual font, `scale` times as large.
    [[nodiscard]] QFont Font(double scale) const
    {
        QFont font = m_font;
        font.setPointSizeF(m_font.pointSizeF() * scale);
        return font;
    }

    QFont m_font;
};

void tst_Looks::initTestCase()
{
    QApplication::setStyle("Fusion"); // the same on every desktop
    QApplication::setCursorFlashTime(0);
    m_font = QApplication::font();
}

void tst_Looks::cleanup()
{
    QApplication::setFont(m_font);
    QApplication::setPalette(LightPalette());
}

void tst_Looks::hasNoLayoutFault_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("usual font") << 1.0;
    QTest::newRow("larger font") << 1.2;
}

void tst_Looks::hasNoLayoutFault()
{
    QFETCH(double, scale);
    QApplication::setFont(Font(scale));
    QStringList faults;

    VisitWindowStates([&faults](const ShownState &state, QWidget &window) {
        for (const QString &fault : LayoutFaults(window))
            faults.append(QString(state.name) + ": " + fault);
    });

    QCOMPARE(faults.join('\n'), QString());
}

void tst_Looks::hasNoLayoutFaultWhenTheFontGrows()
{
    QStringList faults;

    VisitWindowStates([&](const ShownState &state, QWidget &window) {
        QApplication::setFont(Font(1.2));
        Settle();
        for (const QString &fault : LayoutFaults(window))
            faults.append(QString(state.name) + ": " + fault);
        QApplication::setFont(m_font);
    });

    QCOMPARE(faults.join('\n'), QString());
}

void tst_Looks::keepsTheSizeOfTheWindow()
{
    int seen = 0;
    QApplication::setFont(Font(1.2));

    VisitWindowStates([&seen](const ShownState & /*state*/, const QWidget &window) {
        if (window.objectName() != "frmMain")
            return;
        QCOMPARE(window.size(), QSize(365, 460)); // 5475 x 6900 twips
        ++seen;
    });

    QVERIFY(seen > 0);
}

void tst_Looks::followsThePalette_data()
{
    QTest::addColumn<QPalette>("before");
    QTest::addColumn<QPalette>("after");
    QTest::newRow("light to dark") << LightPalette() << DarkPalette();
    QTest::newRow("dark to light") << DarkPalette() << LightPalette();
}

// A window that has seen another palette looks like one that has not.
void tst_Looks::followsThePalette()
{
    QFETCH(QPalette, before);
    QFETCH(QPalette, after);
    QMap<QString, QImage> expected;
    QApplication::setPalette(after);
    VisitWindowStates([&expected](const ShownState &state, QWidget &window) {
        expected[state.name] = window.grab().toImage();
    });
    QStringList stale;

    QApplication::setPalette(before);
    VisitWindowStates([&](const ShownState &state, QWidget &window) {
        const QImage first = window.grab().toImage();
        QApplication::setPalette(after);
        Settle();
        const QImage second = window.grab().toImage();
        if (second != expected[state.name] || second == first)
            stale.append(state.name);
        QApplication::setPalette(before);
    });

    QCOMPARE(stale.join('\n'), QString());
}

void tst_Looks::showsWhereTheFocusIs()
{
    QStringList unseen;
    int stopsSeen = 0;
    VisitWindowStates([&](const ShownState &state, QWidget &window) {
        QApplication::setActiveWindow(&window);
        window.setAttribute(Qt::WA_KeyboardFocusChange); // as after a Tab key
        const QList<QWidget *> stops = TabStops(window);
        for (QWidget *stop : stops) {
            QWidget *other = stop == stops.front() ? stops.back() : stops.front();
            if (other == stop)
                stop->clearFocus();
            else
                other->setFocus(Qt::TabFocusReason);
            const QImage without = stop->grab().toImage();
            stop->setFocus(Qt::TabFocusReason);
            if (!stop->hasFocus() || stop->grab().toImage() == without)
                unseen.append(QString(state.name) + ": " + stop->objectName());
            ++stopsSeen;
        }
    });

    QCOMPARE(unseen.join('\n'), QString());
    QVERIFY(stopsSeen > 100);
}

void tst_Looks::mutesWhatIsNotThere_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << LightPalette();
    QTest::newRow("dark") << DarkPalette();
    QPalette faint = LightPalette();
    faint.setColor(QPalette::PlaceholderText, faint.color(QPalette::Base));
    QTest::newRow("unreadable placeholder colour") << faint;
}

void tst_Looks::mutesWhatIsNotThere()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    ValueBox box(nullptr);
    const auto color = [&box](const QString &value) {
        box.SetValue(value);
        return box.palette().color(QPalette::Text);
    };
    const QColor usual = palette.color(QPalette::Text);

    QCOMPARE(color("68.0 F"), usual);
    for (const QString value : {"N/A", "Not Available From Service"}) {
        const QColor muted = color(value);
        const QColor background = box.palette().color(QPalette::Base);
        QVERIFY(Contrast(muted, background) >= 4.5);
        QVERIFY(Contrast(muted, background) < Contrast(usual, background));
        QCOMPARE(box.text(), value);
        QCOMPARE(box.Value(), value);
    }
    QCOMPARE(color("N/A today"), usual);
}

QTEST_MAIN(tst_Looks)
#include "tst_looks.moc"
