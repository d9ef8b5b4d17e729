#include "gui/main_window.h"
#include "support/recorded_trace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QTest>

namespace {

const QByteArray kTwoProfiles = "[Profile0]\r\ntitle=First\r\nlocation1Title=City\r\n"
                                "[Profile1]\r\ntitle=Second\r\nlocation1Title=Station\r\n";
const QString kRecovery = "TavrinWeatherRecovery.ini";

} // namespace

/// What becomes of changed settings when the program does not end properly.
class tst_SettingsRecovery final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m.reset(); }

    void writesNothingWithoutAChange();
    void keepsEveryChangeWithinTwoSeconds_data();
    void keepsEveryChangeWithinTwoSeconds();
    void bringsTheSettingsBack();
    void isGoneAfterAnOrderlyEnd();
    void staysWhenTheSettingsCannotBeSaved();
    void belongsToItsSession();

private:
    /// Ends the program without telling it: the next start finds what is on the disk.
    void CrashAndStart(const QString &command = {})
    {
        auto crashed = std::make_unique<MainWindow>();
        for (const QString &name : QDir(m->Path({})).entryList(QDir::Files))
            crashed->Write(name, m->Read(name));
        m = std::move(crashed);
        QVERIFY(!m->Start(command));
    }

    std::unique_ptr<MainWindow> m;
};

void tst_SettingsRecovery::init()
{
    m = std::make_unique<MainWindow>();
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nFirstRun=False\r\n");
}

void tst_SettingsRecovery::writesNothingWithoutAChange()
{
    QVERIFY(!m->Start());
    m->PassSeconds(3);
    QVERIFY(!m->Exists(kRecovery));
}

void tst_SettingsRecovery::keepsEveryChangeWithinTwoSeconds_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("zone") << "txtZoneCode"
                          << "MDZ011" << QByteArray("ForecastZone=MDZ011\r\n");
    QTest::newRow("state") << "txtStateCode"
                           << "MD" << QByteArray("ForecastState=MD\r\n");
    QTest::newRow("port") << "txtHTTPPort"
                          << "8080" << QByteArray("HTTPPort=8080\r\n");
    // Becomes the profile's with the request that the first tick starts.
    QTest::newRow("location") << "txtLocation1"
                              << "KBWI" << QByteArray("location1=KBWI\r\n");
    for (int i = 0; i < 4; ++i) {
        const QByteArray number = QByteArray::number(i);
        QTest::newRow("time " + number) << "chkForecastTime" + QString::number(i) << QString()
                                        << "ForecastSched" + number + "=False\r\n";
    }
    QTest::newRow("minimise") << "chkMinimizeOnStartup" << QString()
                              << QByteArray("MinimizeOnStartup=False\r\n");
    QTest::newRow("profile") << "cboSelectedProfile" << QString()
                             << QByteArray("CurrentProfile=1\r\n");
}

void tst_SettingsRecovery::keepsEveryChangeWithinTwoSeconds()
{
    QFETCH(const QString, control);
    QFETCH(const QString, text);
    QFETCH(const QByteArray, line);
    QVERIFY(!m->Start());

    if (auto *box = m->window->findChild<QCheckBox *>(control))
        box->click();
    else if (auto *list = m->window->findChild<QComboBox *>(control))
        list->setCurrentIndex(1);
    else
        m->Type(control, text);
    m->PassSeconds(2);

    QVERIFY2(m->Read(kRecovery).contains(line), m->Read(kRecovery));
}

void tst_SettingsRecovery::bringsTheSettingsBack()
{
    QVERIFY(!m->Start());
    m->Type("txtZoneCode", "MDZ011");
    m->Type("txtLocation1", "KBWI");
    m->Find<QCheckBox>("chkForecastTime2")->click();
    m->PassSeconds(2);

    const RecordedTrace trace;
    CrashAndStart();

    QVERIFY(trace.lines.contains("Settings recovered from " + m->Path(kRecovery)));
    QCOMPARE(m->Text("txtZoneCode"), "MDZ011");
    QCOMPARE(m->Text("txtLocation1"), "KBWI");
    QVERIFY(!m->Find<QCheckBox>("chkForecastTime2")->isChecked());
    QVERIFY(m->Exists(kRecovery)); // until they are saved
}

void tst_SettingsRecovery::isGoneAfterAnOrderlyEnd()
{
    QVERIFY(!m->Start());
    m->Type("txtZoneCode", "MDZ011");
    m->PassSeconds(2);
    CrashAndStart();

    QVERIFY(m->window->Unload(UnloadMode::Signal));

    QVERIFY(!m->Exists(kRecovery));
    QCOMPARE(m->Value("TavrinWeatherSettings.ini", u"Settings", u"ForecastZone"), "MDZ011");
}

void tst_SettingsRecovery::staysWhenTheSettingsCannotBeSaved()
{
    QVERIFY(!m->Start());
    m->Type("txtZoneCode", "MDZ011");
    m->PassSeconds(2);
    QVERIFY(QFile::remove(m->Path("TavrinWeatherSettings.ini")));
    QVERIFY(QDir().mkdir(m->Path("TavrinWeatherSettings.ini")));

    QVERIFY(m->window->Unload(UnloadMode::Signal));

    QVERIFY(m->Read(kRecovery).contains("ForecastZone=MDZ011\r\n"));
}

void tst_SettingsRecovery::belongsToItsSession()
{
    m->Write(kRecovery, "[Settings]\r\nForecastZone=MDZ011\r\n");
    m->Write("TavrinWeatherRecovery5.ini", "[Settings]\r\nForecastZone=WAZ001\r\n");
    QVERIFY(!m->Start("/SESSION=5"));

    QCOMPARE(m->Text("txtZoneCode"), "WAZ001");
    QVERIFY(m->window->Unload(UnloadMode::Signal));

    QVERIFY(m->Exists(kRecovery));
    QVERIFY(!m->Exists("TavrinWeatherRecovery5.ini"));
}

QTEST_MAIN(tst_SettingsRecovery)
#include "tst_settings_recovery.moc"
