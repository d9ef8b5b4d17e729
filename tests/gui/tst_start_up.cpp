#include "gui/main_window.h"
#include "support/recorded_trace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTest>

namespace {

const QByteArray kTwoProfiles = "[Profile0]\r\ntitle=First\r\nlocation1Title=City\r\n"
                                "[Profile1]\r\ntitle=Second\r\nlocation1Title=Station\r\n"
                                "[ForecastProfile0]\r\ncopyright=Forecast (c) %YEAR%\r\n";

} // namespace

/// How the main window comes up.
class tst_StartUp final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m = std::make_unique<MainWindow>(); }
    void cleanup() { m.reset(); }

    void tracesItsSteps();
    void tracesTheProfileListWithoutProfiles();
    void showsVersionAndClearsTitles();
    void hasItsClientAreaInPixels();
    void namesTheSessionInItsCaption();
    void takesTheDefaultSessionForAnUnknownOne();
    void takesTheCodePageFromTheCommand();
    void writesOnlyFirstRunWhenItStarts();
    void showsItselfFirstAndMinimisesLater();
    void staysShownWhenNotAskedToMinimise();
    void loadsSettingsIntoItsControls();
    void stopsAtABadCurrentProfile();
    void takesTheFirstProfileForANumberBeyondTheList();
    void creditsTheForecastService();
    void showsAProblemWithItsFolder();
    void startsWithTheStoredMinimumAndMaximum();
    void alternatesTheNotices();

private:
    std::unique_ptr<MainWindow> m;
};

void tst_StartUp::tracesItsSteps()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nFirstRun=False\r\nCurrentProfile=1\r\n");
    const RecordedTrace trace;

    QVERIFY(!m->Start("/X"));

    const QString unselected = "Me.cboSelectedProfile.ListIndex = -1   currentWeatherProfile = 1  "
                               "me.cboSelectedProfile.ListCount = 2";
    const QString selected = "Me.cboSelectedProfile.ListIndex = 1   currentWeatherProfile = 1  "
                             "me.cboSelectedProfile.ListCount = 2";
    const QStringList expected{
        "Form_Load Point 1",
        "Command:/X",
        "0position of \"/SESSION=\"",
        "len(command) = 2",
        "Form_Load Point 2",
        "Form_Load Point 3",
        "Form_Load Point 4",
        "Form_Load Point 4.5",
        "Form_Load Point 5",
        "Form_Load Point 6",
        "Form_Load Point 7",
        unselected,
        selected,
        "Form_Load Point 8",
        "Form_Load Point 9",
        "Form_Load Point 10",
        "Form_Resize WindowState = 1IsMinimizedToTray = False", // minimised, and there is no tray
        "Form_Resize WindowState = 1IsMinimizedToTray = False",
        "Form_Resize WindowState = 1IsMinimizedToTray = False", // shown for the first time
        "Form_Resize WindowState = 1IsMinimizedToTray = False",
    };
    QCOMPARE(trace.lines, expected);
}

void tst_StartUp::tracesTheProfileListWithoutProfiles()
{
    const RecordedTrace trace;

    QVERIFY(!m->Start());

    const QString line = "Me.cboSelectedProfile.ListIndex = -1   currentWeatherProfile = -1  "
                         "me.cboSelectedProfile.ListCount = 0";
    QCOMPARE(trace.lines.count(line), 2);
}

void tst_StartUp::showsVersionAndClearsTitles()
{
    QVERIFY(!m->Start());

    QCOMPARE(m->Text("lblAppVersion"), "Version 1.0.1 - (c) 2026 Tavrin Weather Utility");
    for (const QString number : {"1", "2", "3", "4"})
        QCOMPARE(m->Text("lblLocation" + number + "Title"), "");
}

void tst_StartUp::hasItsClientAreaInPixels()
{
    QVERIFY(!m->Start());

    QCOMPARE(m->window->size(), QSize(5475 / 15, 6900 / 15));
    QCOMPARE(m->window->minimumSize(), m->window->maximumSize());
}

void tst_StartUp::namesTheSessionInItsCaption()
{
    QVERIFY(!m->Start("/session=4"));

    QCOMPARE(m->station->files.SessionId, "4");
    QCOMPARE(m->window->windowTitle(), "Tavrin Weather Utility - Session 4");
}

void tst_StartUp::takesTheDefaultSessionForAnUnknownOne()
{
    QVERIFY(!m->Start("/SESSION=1"));

    QCOMPARE(m->station->files.SessionId, "");
    QCOMPARE(m->window->windowTitle(), "Tavrin Weather Utility");
}

void tst_StartUp::takesTheCodePageFromTheCommand()
{
    m->Write("TavrinWeatherProfiles.ini", "[Profile0]\r\ntitle=\xC3\xA9\r\n");

    QVERIFY(!m->Start("/CODEPAGE=1252 /SESSION=2"));
    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->itemText(0),
             QString(QChar(0xC3)) + QChar(0xA9));

    QVERIFY(!m->Restart());
    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->itemText(0), QString(QChar(0xE9)));
}

void tst_StartUp::writesOnlyFirstRunWhenItStarts()
{
    QVERIFY(!m->Start());

    QCOMPARE(m->Read("TavrinWeatherSettings.ini"), "[Settings]\r\nFirstRun=False\r\n");
}

void tst_StartUp::showsItselfFirstAndMinimisesLater()
{
    QVERIFY(!m->Start());
    QVERIFY(m->Find<QCheckBox>("chkMinimizeOnStartup")->isChecked());
    QVERIFY(m->window->isVisible());
    QVERIFY(!m->window->isMinimized());

    QVERIFY(!m->Restart());

    QVERIFY(m->window->isMinimized());
}

void tst_StartUp::staysShownWhenNotAskedToMinimise()
{
    m->Write("TavrinWeatherSettings.ini",
             "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=TRUE\r\n"); // only "True" counts
    QVERIFY(!m->Start());

    QVERIFY(!m->Find<QCheckBox>("chkMinimizeOnStartup")->isChecked());
    QVERIFY(m->window->isVisible());
    QVERIFY(!m->window->isMinimized());
}

void tst_StartUp::loadsSettingsIntoItsControls()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    m->Write("TavrinWeatherSettings.ini",
             "[Settings]\r\nFirstRun=False\r\nForecastZone=ORZ006\r\nForecastState=OR\r\n"
             "ForecastSched1=False\r\nForecastSched2=no\r\nHTTPPort=8080\r\nCurrentProfile=1\r\n"
             "[Profile1]\r\nlocation1=Salem,[SP]OR\r\n");
    QVERIFY(!m->Start());

    QCOMPARE(m->Text("txtZoneCode"), "ORZ006");
    QCOMPARE(m->Text("txtStateCode"), "OR");
    QVERIFY(m->Find<QCheckBox>("chkForecastTime0")->isChecked());
    QVERIFY(!m->Find<QCheckBox>("chkForecastTime1")->isChecked());
    QVERIFY(m->Find<QCheckBox>("chkForecastTime2")->isChecked());
    QCOMPARE(m->Text("txtHTTPPort"), "8080");
    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->currentText(), "Second");
    QCOMPARE(m->Text("txtLocation1"), "Salem, OR");
}

void tst_StartUp::stopsAtABadCurrentProfile()
{
    const QByteArray settings = "[Settings]\r\nCurrentProfile=first\r\n";
    m->Write("TavrinWeatherSettings.ini", settings);
    const RecordedTrace trace;

    const auto problem = m->Start();

    QVERIFY(problem);
    QVERIFY(problem->contains(m->Path("TavrinWeatherSettings.ini")));
    QVERIFY(problem->contains("CurrentProfile"));
    QVERIFY(problem->contains("\"first\""));
    QCOMPARE(trace.lines.last(), "Form_Load Point 4.5");
    QVERIFY(!m->window->isVisible());
    m->window->Unload(UnloadMode::Signal); // what has not been loaded is not saved
    QCOMPARE(m->Read("TavrinWeatherSettings.ini"), settings + "FirstRun=False\r\n");
    QVERIFY(!m->Exists("TavrinWeatherMinMax.ini"));
}

void tst_StartUp::takesTheFirstProfileForANumberBeyondTheList()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nCurrentProfile=2\r\n");
    QVERIFY(!m->Start());
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(0));
    QCOMPARE(m->Find<QComboBox>("cboSelectedProfile")->currentIndex(), 0);

    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nCurrentProfile=-1\r\n");
    QVERIFY(!m->Start());
    QCOMPARE(m->station->profiles.currentWeatherProfile, qint16(0));
}

void tst_StartUp::creditsTheForecastService()
{
    m->Write("TavrinWeatherProfiles.ini", kTwoProfiles);
    QVERIFY(!m->Start());

    QCOMPARE(m->Text("lblForecastCopyright"), "Forecast (c) 2026");
}

void tst_StartUp::showsAProblemWithItsFolder()
{
    QVERIFY(!m->Start());
    QVERIFY(!m->IsShown("lblFolderProblem"));

    m->state.folderProblem = "The folder cannot be written.";
    QVERIFY(!m->Start());
    QVERIFY(m->IsShown("lblFolderProblem"));
    QCOMPARE(m->Text("lblFolderProblem"), "The folder cannot be written.");
}

void tst_StartUp::startsWithTheStoredMinimumAndMaximum()
{
    m->Write("TavrinWeatherMinMax.ini", "[GENERAL]\r\nCURRDAY=4\r\nPREVDAY=3\r\n"
                                        "[DAY4]\r\nMIN=61.5\r\nMAX=70\r\n"
                                        "[DAY3]\r\nMIN=58\r\nMAX=79.9\r\n");
    QVERIFY(!m->Start());

    QCOMPARE(m->station->minMax.TodayMinTemp, 61.5);
    QCOMPARE(m->station->minMax.TodayMaxTemp, 70.0);
    QCOMPARE(m->station->minMax.PrevMinTemp, 58.0);
    QCOMPARE(m->station->minMax.PrevMaxTemp, 79.9);
    QCOMPARE(m->station->minMax.MinMaxDay, qint16(4));
}

void tst_StartUp::alternatesTheNotices()
{
    QVERIFY(!m->Start());
    const auto shown = [this] {
        QStringList names;
        for (const QString name :
             {"lblDisclaimer1", "lblDisclaimer2", "lblWeatherCopyright", "lblForecastCopyright"}) {
            if (m->IsShown(name))
                names.append(name);
        }
        return names;
    };
    const QStringList disclaimers{"lblDisclaimer1", "lblDisclaimer2"};
    const QStringList credits{"lblWeatherCopyright", "lblForecastCopyright"};
    QCOMPARE(shown(), disclaimers);

    m->window->tmrDisclamer_Timer();
    QCOMPARE(shown(), credits);
    m->window->cmdPage_Click(1); // the page makes no difference: the label's own state counts
    m->window->tmrDisclamer_Timer();
    QCOMPARE(shown(), disclaimers);
}

QTEST_MAIN(tst_StartUp)
#include "tst_start_up.moc"
