#include "graph/frm_graphics.h"
#include "gui/main_window_test.h"
#include "tray/system_panel_icon.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

namespace {

/// The form with the images; null while it is not loaded.
frmGraphics *Graphics()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *graphics = qobject_cast<frmGraphics *>(widget))
            return graphics;
    }
    return nullptr;
}

} // namespace

/// The icon in the panel: when it is there and which picture it shows.
class tst_TrayIcon final : public PanelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { m.reset(); }

    void isAddedWhenTheWindowIsLoaded();
    void namesTheSessionInItsTip();
    void loadsItsImagesOnce();
    void stepsEveryTenthOfASecond();
    void playsTheIdleSetAndRests();
    void sleepsWhileItRests();
    void wakesForTheActivitySet();
    void tellsThePanelOfAnotherPictureOnly();
    void playsTheActivitySetOnce();
    void playsTheActivitySetWhenARequestStarts();
    void playsTheActivitySetWithoutAnAddressToo();
    void doesNotRestartAnActivitySetAtItsFirstPicture();
    void resetsAFrameOutsideTheCycle();
    void isRemovedAndAddedAgainWhenItCannotBeChanged();
    void keepsTheActivitySetForAPanelThatComesBack();
    void noticesAMissingPanelThoughThePictureIsTheSame();
    void isAddedToAPanelThatComesLater();
    void isAddedSoonToAPanelThatComesBackWhileItRests();
    void isRemovedBehindTheSettings();
    void isNotLoadedByAStartThatFails();
    void unloadsItsImagesAtTheEnd();
    void isInNoPanelWithoutAWindowSystem();

private:
    void Tick(int count = 1) const
    {
        for (int i = 0; i < count; ++i)
            m->window->tmrIconUpdate_Timer();
    }

    [[nodiscard]] QTimer *Timer() const { return m->window->findChild<QTimer *>("tmrIconUpdate"); }

    /// As if the timer's interval had passed, this many times.
    void LetTimePass(int times = 1) const
    {
        for (int i = 0; i < times; ++i)
            QVERIFY(QMetaObject::invokeMethod(Timer(), "timeout"));
    }

    /// Which image the panel shows: "idle 3", "active 10", or nothing known.
    [[nodiscard]] QString Shown() const
    {
        for (size_t i = 0; i < 11; ++i) {
            if (m->panelIcon.picture.cacheKey() == Graphics()->taskBarIcon[i].cacheKey())
                return "idle " + QString::number(i);
            if (m->panelIcon.picture.cacheKey() == Graphics()->taskBarActiveIcon[i].cacheKey())
                return "active " + QString::number(i);
        }
        return "unknown";
    }

    /// What each of the next ticks leaves in the panel.
    [[nodiscard]] QStringList ShownByTicks(int count) const
    {
        QStringList shown;
        for (int i = 0; i < count; ++i) {
            Tick();
            shown.append(Shown());
        }
        return shown;
    }

    /// "set 0" to "set 10", then "set 10" again for the rest of the cycle.
    [[nodiscard]] static QStringList CycleOf(const QString &set)
    {
        QStringList cycle;
        for (int i = 0; i < 56; ++i)
            cycle.append(set + ' ' + QString::number(qMin(i, 10)));
        return cycle;
    }
};

void tst_TrayIcon::isAddedWhenTheWindowIsLoaded()
{
    QVERIFY(!m->state.GraphicsFormLoaded);

    QVERIFY(!m->Start());

    QCOMPARE(m->panelIcon.calls, QStringList{"add Restore Tavrin Weather Utility"});
    QCOMPARE(Shown(), "idle 0");
    QVERIFY(m->state.GraphicsFormLoaded);
    QVERIFY(Graphics()->isHidden());
}

void tst_TrayIcon::namesTheSessionInItsTip()
{
    QVERIFY(!m->Start("/SESSION=2"));

    QCOMPARE(m->panelIcon.calls, QStringList{"add Restore Tavrin Weather Utility [2]"});
    QCOMPARE(m->state.tray.TrayIconData.tip, "Restore Tavrin Weather Utility [2]");
}

void tst_TrayIcon::loadsItsImagesOnce()
{
    QVERIFY(!m->Start());
    const frmGraphics *graphics = Graphics();

    m->panelIcon.TakePanelAway();
    Tick(3);

    QCOMPARE(Graphics(), graphics);
}

void tst_TrayIcon::stepsEveryTenthOfASecond()
{
    QVERIFY(!m->Start());

    QCOMPARE(Timer()->interval(), 100);
    QTRY_VERIFY_WITH_TIMEOUT(m->state.tray.TrayFrame >= 3, 5000);
}

void tst_TrayIcon::playsTheIdleSetAndRests()
{
    QVERIFY(!m->Start());

    QCOMPARE(ShownByTicks(56), CycleOf("idle"));
    QCOMPARE(ShownByTicks(56), CycleOf("idle"));
}

void tst_TrayIcon::sleepsWhileItRests()
{
    QVERIFY(!m->Start());

    LetTimePass(11); // the pictures
    QCOMPARE(Shown(), "idle 10");
    QCOMPARE(Timer()->interval(), 4600); // 45 ticks that change nothing, and the next picture's

    LetTimePass();
    QCOMPARE(Shown(), "idle 0");
    QCOMPARE(Timer()->interval(), 100);
    LetTimePass();
    QCOMPARE(Shown(), "idle 1");
}

void tst_TrayIcon::wakesForTheActivitySet()
{
    QVERIFY(!m->Start());
    LetTimePass(11);
    QCOMPARE(Timer()->interval(), 4600);

    m->window->StartWeatherRequest();

    QCOMPARE(Timer()->interval(), 100);
    LetTimePass();
    QCOMPARE(Shown(), "active 0");
    LetTimePass();
    QCOMPARE(Shown(), "active 1");
}

void tst_TrayIcon::tellsThePanelOfAnotherPictureOnly()
{
    QVERIFY(!m->Start());
    m->panelIcon.calls.clear();

    Tick(56); // the first picture is there from the start
    QCOMPARE(m->panelIcon.calls, QStringList(10, "modify"));

    m->panelIcon.calls.clear();
    Tick(56);
    QCOMPARE(m->panelIcon.calls, QStringList(11, "modify"));
}

void tst_TrayIcon::playsTheActivitySetOnce()
{
    QVERIFY(!m->Start());
    Tick(20);

    StartIconAnimation(m->state.tray);

    QCOMPARE(ShownByTicks(56), CycleOf("active"));
    QVERIFY(!m->state.tray.TrayAnimating);
    QCOMPARE(ShownByTicks(56), CycleOf("idle"));
}

void tst_TrayIcon::playsTheActivitySetWhenARequestStarts()
{
    m->Write("TavrinWeatherProfiles.ini", "[Profile0]\r\ntitle=First\r\nbaseURL=http://host/\r\n");
    QVERIFY(!m->Start());
    Tick(20);

    m->window->btnGetWeather_Click();

    QVERIFY(m->station->WeatherThreadHandle() != 0);
    QCOMPARE(ShownByTicks(3), QStringList({"active 0", "active 1", "active 2"}));
}

void tst_TrayIcon::playsTheActivitySetWithoutAnAddressToo()
{
    QVERIFY(!m->Start()); // without profiles there is nothing to ask
    Tick(20);

    m->window->btnGetWeather_Click();

    QCOMPARE(m->http.calls, QStringList());
    QCOMPARE(ShownByTicks(1), QStringList{"active 0"});
}

void tst_TrayIcon::doesNotRestartAnActivitySetAtItsFirstPicture()
{
    QVERIFY(!m->Start());

    m->window->StartWeatherRequest();
    m->window->StartWeatherRequest();

    QCOMPARE(ShownByTicks(2), QStringList({"active 0", "active 1"}));
}

void tst_TrayIcon::resetsAFrameOutsideTheCycle()
{
    QVERIFY(!m->Start());

    m->state.tray.TrayFrame = 57;
    QCOMPARE(ShownByTicks(2), QStringList({"idle 0", "idle 1"}));
    m->state.tray.TrayFrame = -4;
    QCOMPARE(ShownByTicks(2), QStringList({"idle 0", "idle 1"}));
}

void tst_TrayIcon::isRemovedAndAddedAgainWhenItCannotBeChanged()
{
    QVERIFY(!m->Start());
    Tick(4);
    m->panelIcon.isAdded = false; // the panel has forgotten it
    m->panelIcon.calls.clear();

    Tick();

    const QStringList expected{"modify", "remove", "add Restore Tavrin Weather Utility"};
    QCOMPARE(m->panelIcon.calls, expected);
    QCOMPARE(m->state.tray.TrayFrame, qint16(0)); // added at its beginning, and not advanced
    QCOMPARE(Shown(), "idle 0");
    QCOMPARE(ShownByTicks(2), QStringList({"idle 0", "idle 1"}));
}

void tst_TrayIcon::keepsTheActivitySetForAPanelThatComesBack()
{
    QVERIFY(!m->Start());
    m->window->StartWeatherRequest();
    Tick(3);
    m->panelIcon.TakePanelAway();
    Tick(30);
    QVERIFY(m->state.tray.TrayAnimating);
    QCOMPARE(m->state.tray.TrayFrame, qint16(0));

    m->panelIcon.BringPanel();

    Tick(); // finds it missing and adds it
    QCOMPARE(ShownByTicks(2), QStringList({"active 0", "active 1"}));
}

void tst_TrayIcon::noticesAMissingPanelThoughThePictureIsTheSame()
{
    QVERIFY(!m->Start());
    m->panelIcon.isAdded = false;
    m->panelIcon.calls.clear();

    Tick(); // "idle 0", as it was added

    const QStringList expected{"remove", "add Restore Tavrin Weather Utility"};
    QCOMPARE(m->panelIcon.calls, expected);
    QCOMPARE(m->state.tray.TrayFrame, qint16(0));
}

void tst_TrayIcon::isAddedToAPanelThatComesLater()
{
    m->panelIcon.isPanelThere = false;
    QVERIFY(!m->Start());
    Tick(100);
    QVERIFY(!m->panelIcon.IsShown());

    m->panelIcon.BringPanel();
    Tick();

    QVERIFY(m->panelIcon.IsShown());
    QCOMPARE(ShownByTicks(56), CycleOf("idle"));
}

void tst_TrayIcon::isAddedSoonToAPanelThatComesBackWhileItRests()
{
    QVERIFY(!m->Start());
    LetTimePass(11);
    QCOMPARE(Timer()->interval(), 4600);

    m->panelIcon.TakePanelAway();
    m->panelIcon.BringPanel();

    QCOMPARE(Timer()->interval(), 100);
    LetTimePass();
    QVERIFY(m->panelIcon.IsShown());
    QCOMPARE(ShownByTicks(56), CycleOf("idle"));
}

void tst_TrayIcon::isRemovedBehindTheSettings()
{
    QVERIFY(!m->Start());
    m->Type("txtZoneCode", "MDZ011");
    QString saved;
    bool imagesLoaded = false;
    m->panelIcon.whenRemoved = [&] {
        saved = m->Value("TavrinWeatherSettings.ini", u"Settings", u"ForecastZone");
        imagesLoaded = m->state.GraphicsFormLoaded;
    };
    m->panelIcon.calls.clear();

    m->window->Unload(UnloadMode::Signal);

    QCOMPARE(m->panelIcon.calls, QStringList{"remove"});
    QCOMPARE(saved, "MDZ011");
    QVERIFY(imagesLoaded);
}

void tst_TrayIcon::isNotLoadedByAStartThatFails()
{
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nCurrentProfile=first\r\n");

    QVERIFY(m->Start());

    QCOMPARE(m->panelIcon.calls, QStringList());
    QVERIFY(!m->state.GraphicsFormLoaded);
}

void tst_TrayIcon::unloadsItsImagesAtTheEnd()
{
    QVERIFY(!m->Start());

    m->window->Unload(UnloadMode::Code);

    QVERIFY(!m->state.GraphicsFormLoaded);
    QCOMPARE(Graphics(), nullptr);
}

// Even on a desktop with a bus whose panel would take icons: there is no window system to bring the
// window back on.
void tst_TrayIcon::isInNoPanelWithoutAWindowSystem()
{
    SystemPanelIcon icon;

    icon.Add(QIcon(QPixmap(16, 16)), "tip");

    QVERIFY(!icon.IsShown());
    QVERIFY(!icon.Modify(QIcon(QPixmap(16, 16))));
    icon.Remove();
    QVERIFY(!icon.IsShown());
}

QTEST_MAIN(tst_TrayIcon)
#include "tst_tray_icon.moc"
