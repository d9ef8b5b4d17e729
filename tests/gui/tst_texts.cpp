#include "app/help_texts.h"
#include "controls/choice_list.h"
#include "controls/elided_label.h"
#include "controls/tool_tip.h"
#include "controls/value_box.h"
#include "gui/main_window.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

namespace {

const QString kMarkup = "<b>A & B</b>";

/// What the tool tip of `control` looks like, apart from where its lines break.
QString ToolTipOf(QWidget *control)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, {1, 1}, control->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(control, &event);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    return shown.toPlainText().simplified();
}

} // namespace

/// How texts are shown: the program's own and those from services and profiles.
class tst_Texts final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void explainsAValue_data();
    void explainsAValue();
    void explainsTheValuesOfTheProfile();
    void tellsWhyAValueIsNotThere();
    void tellsALongValueByItsToolTip();
    void explainsTheOtherControls();
    void readsItsHelpToAssistiveTools();
    void letsValuesBeCopied();
    void givesEachDigitTheSameRoom();
    void cutsAnAddressInItsMiddle();
    void tellsACutTextByItsToolTip();
    void showsTextsFromOutsideLiterally();
    void showsValuesLiterally();
    void keepsTheCountdownInItsPlace();

private:
    std::unique_ptr<MainWindow> m;
};

void tst_Texts::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini",
             "[Profile0]\r\ntitle=<b>A & B</b>\r\ndescription=<b>A & B</b>\r\n"
             "copyright=<b>A & B</b>\r\nlocation1Title=<b>A & B</b>\r\n"
             "location2Title=&Next\r\ntemperatureUnits=[SP]F\r\nsunriseUnits=?\r\n"
             "[Profile1]\r\ntitle=Celsius\r\ntemperatureUnits=[SP]C\r\n");
    m->Write("TavrinWeatherSettings.ini",
             "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n");
    QVERIFY(!m->Start());
}

void tst_Texts::explainsAValue_data()
{
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("hasUnit");
    QTest::addColumn<QString>("expected");
    QTest::newRow("unit") << " mph" << true << "Meaning.\nUnit: mph";
    QTest::newRow("percent") << "%" << true << "Meaning.\nUnit: %";
    QTest::newRow("computed") << "%WCF% F" << true << "Meaning.\nUnit: F";
    QTest::newRow("of the service") << "" << true << "Meaning.\nUnit: as the service writes it.";
    QTest::newRow("no unit at all") << "" << false << "Meaning.";
    QTest::newRow("not delivered")
        << "?" << false << "Meaning.\nThe service of this profile does not deliver it.";
}

void tst_Texts::explainsAValue()
{
    QFETCH(QString, units);
    QFETCH(bool, hasUnit);
    QFETCH(QString, expected);
    WeatherProfile profile;
    profile[Quantity::WindSpeed].Units = units;

    QCOMPARE(
        ValueHelp({.quantity = Quantity::WindSpeed, .hasUnit = hasUnit, .meaning = u"Meaning."},
                  profile),
        expected);
}

void tst_Texts::explainsTheValuesOfTheProfile()
{
    QCOMPARE(ToolTipOf(m->Find("txtCurrentTemp")), "Air temperature. Unit: F");
    QCOMPARE(ToolTipOf(m->Find("txtSunrise")),
             "Time of sunrise. The service of this profile does not deliver it.");

    m->Find<ChoiceList>("cboSelectedProfile")->setCurrentIndex(1);

    QCOMPARE(ToolTipOf(m->Find("txtCurrentTemp")), "Air temperature. Unit: C");
    QCOMPARE(ToolTipOf(m->Find("txtSunrise")), "Time of sunrise.");
}

void tst_Texts::tellsWhyAValueIsNotThere()
{
    m->Find<ValueBox>("txtCurrentTemp")->SetValue("N/A");

    QCOMPARE(ToolTipOf(m->Find("txtCurrentTemp")),
             "Air temperature. Unit: F N/A: no value could be obtained.");
}

void tst_Texts::tellsALongValueByItsToolTip()
{
    const QString value = "from the Southwest at 20.7 gusting to 31.1 MPH (18 gusting to 27 KT)";
    auto *box = m->Find<ValueBox>("txtWindSpeedDir");

    box->SetValue(value);

    QCOMPARE(ToolTipOf(box), value
                                 + " Wind speed and the direction it comes from. "
                                   "Unit: as the service writes it.");
    QCOMPARE(box->text(), value); // cut in painting only
}

void tst_Texts::explainsTheOtherControls()
{
    QCOMPARE(ToolTipOf(m->Find("txtStateCode")),
             "The state's postal code: two letters such as MD.");
    QCOMPARE(ToolTipOf(m->Find("lblStateCodeTitle")), ToolTipOf(m->Find("txtStateCode")));
    QVERIFY(ToolTipOf(m->Find("txtHTTPPort")).contains("1 to 65535"));
    QVERIFY(ToolTipOf(m->Find("lblNextWeatherCheck")).contains("hours, minutes and seconds"));
}

void tst_Texts::readsItsHelpToAssistiveTools()
{
    const auto *access = QAccessible::queryAccessibleInterface(m->Find("txtCurrentTemp"));

    QCOMPARE(access->text(QAccessible::Name), "Temperature:");
    QCOMPARE(access->text(QAccessible::Description), "Air temperature.\nUnit: F");
}

void tst_Texts::letsValuesBeCopied()
{
    auto *box = m->Find<ValueBox>("txtCurrentTemp");
    box->SetValue("68.0 F");
    box->setFocus();

    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);

    QCOMPARE(QApplication::clipboard()->text(), "68.0 F");
    QCOMPARE(box->text(), "68.0 F");
}

void tst_Texts::givesEachDigitTheSameRoom()
{
    // A font with a narrow 1: five pixels for a character, three for a 1, six for an 8.
    const TextWidth widthOf = [](const QString &text) {
        return int(5 * text.size() - 2 * text.count('1') + text.count('8'));
    };

    QCOMPARE(WithWidestDigits("in 1:05", widthOf), "in 8:88");
    QCOMPARE(PlaceTabular("in 1:05", widthOf),
             (QList<PlacedText>{
                 {"in ", 0, 15}, {"1", 15, 6}, {":", 21, 5}, {"0", 26, 6}, {"5", 32, 6}}));
    QCOMPARE(PlaceTabular("", widthOf), QList<PlacedText>());
}

void tst_Texts::cutsAnAddressInItsMiddle()
{
    ElidedLabel label(1, nullptr);
    label.SetElideMode(Qt::ElideMiddle);
    label.setText("Requesting https://weather.test/data/forecasts/zone/md/mdz011.txt");
    label.resize(label.fontMetrics().horizontalAdvance(label.text()) * 2 / 3, 20);

    const QString shown = label.Lines().join(' ');

    QVERIFY(shown.startsWith("Requesting "));
    QVERIFY(shown.endsWith("mdz011.txt"));
    QVERIFY(shown.size() < label.text().size());
}

void tst_Texts::tellsACutTextByItsToolTip()
{
    ElidedLabel label(1, nullptr);
    SetHelp(&label, "What it means.");
    label.setText("short");
    label.resize(300, 20);
    QCOMPARE(ToolTipOf(&label), "What it means.");

    label.setText(QString("long ").repeated(100).trimmed());
    QCOMPARE(ToolTipOf(&label), label.text() + " What it means.");

    label.resize(0, 20); // no room for anything
    QVERIFY(label.Lines().join(QString()).size() <= 1);
}

void tst_Texts::showsTextsFromOutsideLiterally()
{
    m->window->tmrDisclamer_Timer(); // the credit line's turn
    m->window->btnWeatherSettings_Click();
    QCoreApplication::processEvents();

    QCOMPARE(m->Find<ChoiceList>("cboSelectedProfile")->currentText(), kMarkup);
    QCOMPARE(m->Find<QPlainTextEdit>("txtProfileDescription")->toPlainText(), kMarkup);
    for (const QString name : {"lblWeatherCopyright", "lblLocation1Title"}) {
        const auto *label = m->Find<ElidedLabel>(name);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(label->Lines(), QStringList{kMarkup});
    }
    QCOMPARE(m->Find("txtLocation1")->accessibleName(), kMarkup);
    QCOMPARE(m->Find<ElidedLabel>("lblLocation2Title")->Lines(), QStringList{"&Next"});

    // An "&" in a profile is no mnemonic.
    QApplication::setActiveWindow(m->window.get());
    m->Find("txtLocation1")->setFocus();
    QTest::keyClick(m->window.get(), Qt::Key_N, Qt::AltModifier);
    QVERIFY(m->Find("txtLocation1")->hasFocus());
}

void tst_Texts::showsValuesLiterally()
{
    auto *box = m->Find<ValueBox>("txtCurrentConditions");
    const QString value = kMarkup + QString(" x").repeated(50);
    box->SetValue(value);

    QVERIFY(ToolTipOf(box).startsWith(value + ' '));
}

void tst_Texts::keepsTheCountdownInItsPlace()
{
    const auto *label = m->Find<ElidedLabel>("lblNextWeatherCheck");
    const QRect place = label->geometry();
    for (const QString text :
         {"Next Update in 2:59:59", "Next Update in 0:05", "Invalid Location"}) {
        m->Find<QLabel>("lblNextWeatherCheck")->setText(text);
        QCoreApplication::processEvents();
        QCOMPARE(label->geometry(), place);
        QCOMPARE(label->Lines(), QStringList{text});
    }
}

QTEST_MAIN(tst_Texts)
#include "tst_texts.moc"
