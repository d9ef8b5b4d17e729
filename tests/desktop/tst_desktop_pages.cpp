#include "desktop/running_program.h"

#include <QTest>

#include <memory>

namespace {

/// Four locations; no address, so that nothing is requested.
const QByteArray kProfile = "[Profile0]\r\ntitle=Four places\r\nlocation1Title=City\r\n"
                            "location2Title=County\r\nlocation3Title=State\r\n"
                            "location4Title=Country\r\n"
                            "[ForecastProfile0]\r\nhost=http://127.0.0.1:9\r\n";

} // namespace

/// Pages and boxes under a user's hands.
class tst_desktop_pages final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theWindowHasAnIcon();
    void tabsChangeThePageByMouse();
    void typedTextsReachTheSettingsFile();
    void portBoxIsRoundedWhenItIsLeft();

private:
    using State = RunningProgram::State;

    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<RunningProgram> m_program;
};

void tst_desktop_pages::init()
{
    m_desktop = std::make_unique<Desktop>();
    QVERIFY(m_desktop->IsUp());
    m_desktop->Write("TavrinWeatherProfiles.ini", kProfile);
    m_program = std::make_unique<RunningProgram>(*m_desktop);
}

void tst_desktop_pages::cleanup()
{
    m_program.reset();
    m_desktop.reset();
}

void tst_desktop_pages::tabsChangeThePageByMouse()
{
    QVERIFY(m_program->IsShown());
    for (const int chosen : {2, 1, 0}) {
        QVERIFY(m_program->Click("cmdPage" + QString::number(chosen)));

        for (int page = 0; page < 3; ++page) {
            const QString number = QString::number(page);
            QTRY_COMPARE_WITH_TIMEOUT(m_program->Is("frmPage" + number, State::Showing),
                                      page == chosen, kPatience);
            QTRY_COMPARE_WITH_TIMEOUT(m_program->Is("cmdPage" + number, State::Enabled),
                                      page != chosen, kPatience);
        }
    }
}

void tst_desktop_pages::theWindowHasAnIcon()
{
    QVERIFY(m_program->IsShown());

    // Width, height and pixels of each size, one number each.
    const QByteArray sizes = m_desktop->screen.Ask(
        "xprop", {"-id", m_program->Window().id, "-notype", "32c", "_NET_WM_ICON"});
    QVERIFY2(sizes.contains("= 16, 16, "), sizes.left(200));
    QVERIFY2(sizes.contains(", 48, 48, "), sizes.left(200));
}

void tst_desktop_pages::typedTextsReachTheSettingsFile()
{
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->Click("btnWeatherSettings"));
    QVERIFY(m_program->TypeInto("txtLocation1", "New York"));
    QVERIFY(m_program->TypeInto("txtLocation2", "Kings"));
    QVERIFY(m_program->TypeInto("txtLocation3", "NY"));
    QVERIFY(m_program->TypeInto("txtLocation4", "U.S.A."));
    QVERIFY(m_program->ClickTitled("Done"));
    QVERIFY(m_program->Click("btnGetWeather")); // takes the locations
    QVERIFY(m_program->Click("cmdPage1"));
    QVERIFY(m_program->TypeInto("txtZoneCode", "NYZ075"));
    QVERIFY(m_program->TypeInto("txtStateCode", "NY"));
    QVERIFY(m_program->Click("cmdPage2"));
    QVERIFY(m_program->TypeInto("txtHTTPPort", "8080abc"));
    QVERIFY(m_program->Click("cmdPage0"));
    QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtHTTPPort"), "8080", kPatience);

    m_program->Process().Terminate();

    QCOMPARE(m_program->Process().ExitCode(), 0);
    const QByteArray settings = m_desktop->Read("TavrinWeatherSettings.ini");
    QVERIFY2(settings.contains("[Profile0]\r\nlocation1=New[SP]York\r\nlocation2=Kings\r\n"
                               "location3=NY\r\nlocation4=U.S.A.\r\n"),
             settings);
    QVERIFY2(settings.contains("ForecastZone=NYZ075\r\nForecastState=NY\r\n"), settings);
    QVERIFY2(settings.contains("HTTPPort=8080\r\n"), settings);
}

void tst_desktop_pages::portBoxIsRoundedWhenItIsLeft()
{
    QVERIFY(m_program->IsShown());
    QVERIFY(m_program->Click("cmdPage2"));
    const std::array<std::pair<QString, QString>, 6> cases{{{"443", "443"},
                                                            {"", "80"},
                                                            {"80.6", "81"},
                                                            {"-5", "80"},
                                                            {"abc", "80"},
                                                            {"65535", "65535"}}};
    for (const auto &[typed, kept] : cases) {
        QVERIFY2(m_program->TypeInto("txtHTTPPort", typed), qPrintable(typed));
        m_desktop->screen.Press("Tab");
        QTRY_VERIFY_WITH_TIMEOUT(!m_program->Is("txtHTTPPort", State::Focused), kPatience);
        QTRY_COMPARE_WITH_TIMEOUT(m_program->Text("txtHTTPPort"), kept, kPatience);
    }
}

QTEST_GUILESS_MAIN(tst_desktop_pages)
#include "tst_desktop_pages.moc"
