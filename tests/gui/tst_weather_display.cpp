#include "controls/long_text_box.h"
#include "gui/main_window_test.h"
#include "support/one_place.h"
#include "support/recorded_trace.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

/// The way from the reply to the boxes and the output file.
class tst_WeatherDisplay final : public OnePlaceTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void goesFromTickToOutputFile();
    void keepsForeignKeysOfTheOutputFile();
    void keepsValuesAfterAReplyThatIsNone();
    void survivesAFailedTransfer();
    void hidesExtremesBeyondTheBounds_data();
    void hidesExtremesBeyondTheBounds();
    void savesWhatIsShown();
    void escapesLineBreaksInTheFile();
    void showsThePreviousDaysExtremes();
    void writesTheWholeOfALongValue();
    void keepsTheReplyForTheRawBox();
    void opensAndScrollsAReplyOfAMegabyte();

private:
    void Receive(const QString &reply);
    void RequestAndReceive(const QString &reply);
};

/// Ends the running transfer with `reply` and lets the window poll it.
void tst_WeatherDisplay::Receive(const QString &reply)
{
    m->http.Finish(m->station->WeatherThreadHandle(), reply);
    m->window->tmrMain_Timer();
}

void tst_WeatherDisplay::RequestAndReceive(const QString &reply)
{
    m->window->btnGetWeather_Click();
    Receive(reply);
}

void tst_WeatherDisplay::goesFromTickToOutputFile()
{
    m->window->tmrWeatherCheck_Timer();
    const TransferHandle handle = m->station->WeatherThreadHandle();
    Receive(kOnePlaceReply);

    QCOMPARE(m->http.calls.last(), "close " + QString::number(handle));
    QCOMPARE(m->station->WeatherThreadHandle(), 0);
    QCOMPARE(m->Text("lblStatus"), "Retrieved current weather data");
    QCOMPARE(m->Text("txtTime"), "9:53 AM");
    QCOMPARE(m->Text("txtLocation"), "Salem, OR");
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QCOMPARE(m->Text("txtCurrentConditions"), "Sunny");
    QCOMPARE(m->Text("txtWindSpeedDir"), "N/A");
    QCOMPARE(m->Text("txtHumidity"), "40 %");
    QCOMPARE(m->Text("txtVisibility"), "Not Available From Service");
    QCOMPARE(m->Text("txtPrevPrecip"), "0.1");
    QCOMPARE(m->Text("txtPrevMinTemp"), "N/A");
    QCOMPARE(m->Text("txtPrevMaxTemp"), "N/A");
    QCOMPARE(m->station->minMax.TodayMinTemp, 71.0);
    QCOMPARE(m->Read("Weather.ini"), "[Weather]\r\n"
                                     "TIME=9:53[SP]AM\r\n"
                                     "COPYRIGHT=Data[SP](c)[SP]2026[SP]by[SP]2026[SP]people\r\n"
                                     "COPYRIGHTURL=http://weather.test/\r\n"
                                     "CITY=Salem,[SP]OR\r\n"
                                     "TEMP=71.0[SP]F\r\n"
                                     "CONDITIONS=Sunny\r\n"
                                     "WINDS=N/A\r\n"
                                     "PRESSURE=N/A\r\n"
                                     "HUMIDITY=40[SP]%\r\n"
                                     "DEWPOINT=N/A\r\n"
                                     "WINDCHILL=N/A\r\n"
                                     "HEATINDEX=N/A\r\n"
                                     "VISIBILITY=Not[SP]Available[SP]From[SP]Service\r\n"
                                     "SUNRISE=N/A\r\n"
                                     "SUNSET=N/A\r\n"
                                     "PREVMIN=N/A\r\n"
                                     "PREVMAX=N/A\r\n");
}

void tst_WeatherDisplay::keepsForeignKeysOfTheOutputFile()
{
    m->Write("Weather.ini", "; by hand\r\n[Weather]\r\nSTATION=KTVR\r\nTEMP=old\r\n");

    RequestAndReceive(kOnePlaceReply);

    const QByteArray bytes = m->Read("Weather.ini");
    QVERIFY(bytes.startsWith("; by hand\r\n[Weather]\r\nSTATION=KTVR\r\nTEMP=71.0[SP]F\r\n"));
}

void tst_WeatherDisplay::keepsValuesAfterAReplyThatIsNone()
{
    RequestAndReceive(kOnePlaceReply);
    QVERIFY(QFile::remove(m->Path("Weather.ini")));

    RequestAndReceive("<html>Sorry</html>");

    QCOMPARE(m->Text("lblStatus"), "Could not find opening node tag in received data");
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QVERIFY(!m->Exists("Weather.ini"));
}

void tst_WeatherDisplay::survivesAFailedTransfer()
{
    RequestAndReceive(kOnePlaceReply);
    const QByteArray before = m->Read("Weather.ini");
    const RecordedTrace trace;
    m->window->btnGetWeather_Click();

    m->http.Fail(m->station->WeatherThreadHandle(), "HTTP 404");
    m->window->tmrMain_Timer();

    QCOMPARE(m->station->WeatherThreadHandle(), 0);
    QVERIFY(trace.lines.contains("Weather transfer failed: HTTP 404"));
    QCOMPARE(m->Text("txtCurrentTemp"), "71.0 F");
    QCOMPARE(m->Read("Weather.ini"), before);
}

void tst_WeatherDisplay::hidesExtremesBeyondTheBounds_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing recorded, minimum") << "1000 F"
                                               << "N/A";
    QTest::newRow("nothing recorded, maximum") << "-1000 F"
                                               << "N/A";
    QTest::newRow("below the upper bound") << "199.9 F"
                                           << "199.9 F";
    QTest::newRow("upper bound") << "200 F"
                                 << "N/A";
    QTest::newRow("lower bound") << "-200"
                                 << "N/A";
    QTest::newRow("above the lower bound") << "-199"
                                           << "-199";
    QTest::newRow("no number") << "unknown"
                               << "unknown";
}

void tst_WeatherDisplay::hidesExtremesBeyondTheBounds()
{
    QFETCH(QString, value);
    QFETCH(QString, shown);
    m->station->profiles.weather[0].values[Quantity::MinTemp] = value;
    m->station->profiles.weather[0].values[Quantity::MaxTemp] = value;

    m->window->DisplayWeatherData();
    m->window->SaveWeatherData();

    QCOMPARE(m->Text("txtPrevMinTemp"), shown);
    QCOMPARE(m->Text("txtPrevMaxTemp"), shown);
    QCOMPARE(m->Value("Weather.ini", u"Weather", u"PREVMIN"), shown);
    QCOMPARE(m->Value("Weather.ini", u"Weather", u"PREVMAX"), shown);
}

void tst_WeatherDisplay::savesWhatIsShown()
{
    RequestAndReceive(kOnePlaceReply);

    m->window->ClearWeatherFields();
    m->window->SaveWeatherData();

    QCOMPARE(m->Read("Weather.ini"), "[Weather]\r\n"
                                     "TIME=\r\n"
                                     "COPYRIGHT=Data[SP](c)[SP]2026[SP]by[SP]2026[SP]people\r\n"
                                     "COPYRIGHTURL=http://weather.test/\r\n"
                                     "CITY=\r\nTEMP=\r\nCONDITIONS=\r\nWINDS=\r\nPRESSURE=\r\n"
                                     "HUMIDITY=\r\nDEWPOINT=\r\nWINDCHILL=\r\nHEATINDEX=\r\n"
                                     "VISIBILITY=\r\nSUNRISE=\r\nSUNSET=\r\nPREVMIN=\r\n"
                                     "PREVMAX=\r\n");
}

void tst_WeatherDisplay::escapesLineBreaksInTheFile()
{
    m->station->profiles.weather[0].values[Quantity::Conditions] = "Rain\r\nand wind\t";

    m->window->DisplayWeatherData();
    m->window->SaveWeatherData();

    QVERIFY(m->Read("Weather.ini").contains("\r\nCONDITIONS=Rain[CR][LF]and[SP]wind[TAB]\r\n"));
}

void tst_WeatherDisplay::showsThePreviousDaysExtremes()
{
    RequestAndReceive(kOnePlaceReply);
    m->clock.AdvanceSeconds(86400);

    RequestAndReceive(QString(kOnePlaceReply).replace("71", "65"));

    QCOMPARE(m->Text("txtPrevMinTemp"), "71 F");
    QCOMPARE(m->Text("txtPrevMaxTemp"), "71 F");
    QCOMPARE(m->Value("TavrinWeatherMinMax.ini", u"GENERAL", u"CURRDAY"), "5");
}

void tst_WeatherDisplay::writesTheWholeOfALongValue()
{
    const QString longText = QString(40000, u'x') + "end"; // beyond what a line edit holds

    RequestAndReceive(QString(kOnePlaceReply).replace("Sunny", longText));

    QVERIFY(m->Read("Weather.ini").contains("CONDITIONS=" + longText.toLatin1() + "\r\n"));
}

void tst_WeatherDisplay::keepsTheReplyForTheRawBox()
{
    auto *raw = m->Find<QWidget>("frmWeatherRaw");
    QVERIFY(raw->isHidden());
    RequestAndReceive("<now>\n\t1</now>");

    QTest::mouseClick(m->Find("btnShowRaw"), Qt::LeftButton);

    QVERIFY(raw->isVisible());
    QCOMPARE(raw->pos(), QPoint(0, 0));
    QCOMPARE(raw->size(), m->window->size());
    const QString shown = m->Find("txtWeatherInfo")->property("plainText").toString();
    QCOMPARE(shown, "<now>\n     1</now>");
    QTest::mouseClick(raw->findChild<QPushButton *>("btnWeatherDone"), Qt::LeftButton);
    QVERIFY(raw->isHidden());
}

void tst_WeatherDisplay::opensAndScrollsAReplyOfAMegabyte()
{
    const QString line = "<station>Salem</station>";
    QString reply;
    while (reply.size() < qsizetype{1024} * 1024)
        reply += line + '\n';
    RequestAndReceive(reply);
    auto *box = m->Find<QPlainTextEdit>("txtWeatherInfo");

    QTest::mouseClick(m->Find("btnShowRaw"), Qt::LeftButton);

    // Its beginning is there at once, and no more of it than can be laid out in no time.
    const qsizetype first = box->toPlainText().size();
    QVERIFY(first > 0);
    QVERIFY(first <= LongTextBox::kPiece);
    QVERIFY(box->verticalScrollBar()->maximum() > 0);
    QTRY_COMPARE(box->toPlainText().size(), reply.size());
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End);
    QCOMPARE(box->verticalScrollBar()->value(), box->verticalScrollBar()->maximum());
    QTest::keyClick(box, Qt::Key_PageUp);
    QVERIFY(box->verticalScrollBar()->value() < box->verticalScrollBar()->maximum());
}

QTEST_MAIN(tst_WeatherDisplay)
#include "tst_weather_display.moc"
