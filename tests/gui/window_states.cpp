#include "gui/window_states.h"

#include "controls/long_text_box.h"
#include "controls/message_boxes.h"
#include "gui/zone_finder.h"
#include "zones/frm_find_noaa_zones.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMessageBox>
#include <QRadioButton>
#include <QStyle>
#include <QTimer>

namespace {

using Visit = ShownState::Visit;

const QByteArray kFourPlaces = "[Profile0]\r\n"
                               "title=Harbour offices (four places)\r\n"
                               "description=Readings of the harbour offices.[CRLF]Enter the four "
                               "parts of an office's address.\r\n"
                               "baseURL=http://weather.test/%LOC1%/%LOC2%/%LOC3%/%LOC4%\r\n"
                               "location1Title=Country\r\n"
                               "location2Title=State or province\r\n"
                               "location3Title=Harbour\r\n"
                               "location4Title=Number of the pier\r\n";

const QByteArray kSettings = "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n"
                             "CurrentProfile=0\r\nForecastState=MD\r\nForecastZone=MDZ011\r\n"
                             "HTTPPort=80\r\n"
                             "ForecastSched0=True\r\nForecastSched1=True\r\n"
                             "ForecastSched2=False\r\nForecastSched3=True\r\n"
                             "[Profile0]\r\nlocation1=KBWI\r\n";

const QString kReply = "<image><url>http://weather.gov/images/logo.gif</url></image>\n"
                       "<location>Baltimore-Washington International Airport, MD</location>\n"
                       "<observation_time>Last Updated on Jul 4 2026, 9:53 am EDT"
                       "</observation_time>\n"
                       "<weather>Partly Cloudy</weather>\n"
                       "<temp_f>81.0</temp_f>\n"
                       "<relative_humidity>58</relative_humidity>\n"
                       "<wind_string>Southwest at 9.2 MPH (8 KT)</wind_string>\n"
                       "<pressure_in>30.02</pressure_in>\n"
                       "<dewpoint_f>64.9</dewpoint_f>\n"
                       "<heat_index_f>83</heat_index_f>\n"
                       "<visibility_mi>10.00</visibility_mi>\n"
                       "</current_observation>\n";

const QString kForecast =
    "Expires:202607050800;;123456\nFPUS51 KLWX 041330\nZFPLWX\n\nMDZ011-050800-\n"
    "Southern Baltimore-\nIncluding the cities of Catonsville, Towson, and Dundalk\n"
    "930 AM EDT Sat Jul 4 2026\n\n"
    ".THIS AFTERNOON...Partly sunny with a chance of showers and\nthunderstorms. Highs in the "
    "upper 80s. Southwest winds around\n10 mph. Chance of rain 40 percent.\n"
    ".TONIGHT...Mostly clear. Lows in the upper 60s. West winds\n5 to 10 mph.\n"
    ".SUNDAY...Sunny. Highs in the lower 80s. Northwest winds\n10 to 15 mph.\n"
    ".SUNDAY NIGHT...Clear. Lows in the lower 60s.\n"
    ".MONDAY...Sunny. Highs in the mid 80s.\n"
    ".MONDAY NIGHT...Mostly clear. Lows in the mid 60s.\n"
    ".TUESDAY...Mostly sunny. Highs around 90.\n\n$$\n";

const QStringList kZones{
    "MDZ001:  Garrett, Including the cities of Oakland, Grantsville, and Mountain Lake Park",
    "MDZ003:  Washington, Including the cities of Hagerstown, Weverton, and Highfield",
    ("MDZ004:  Frederick, Including the cities of Frederick, Ballenger Creek, Thurmont, and "
     "Emmitsburg"),
    "MDZ005:  Carroll, Including the cities of Westminster, Eldersburg, and Taneytown",
    "MDZ006:  Northern Baltimore, Including the cities of Cockeysville and Hereford",
    "MDZ007:  Northwest Harford, Including the cities of Jarrettsville and Norrisville",
    "MDZ008:  Cecil, Including the cities of Elkton, Port Deposit, and Rising Sun",
    "MDZ011:  Southern Baltimore, Including the cities of Catonsville, Towson, and Dundalk",
    "MDZ013:  Prince Georges, Including the cities of Bowie, College Park, and Greenbelt",
    "MDZ014:  Anne Arundel, Including the cities of Annapolis, Glen Burnie, and Severn",
    "MDZ016:  Charles, Including the cities of Waldorf, La Plata, and Port Tobacco",
    "MDZ017:  St. Marys, Including the cities of Lexington Park, California, and Leonardtown"};

constexpr int kMaryland = 19;
constexpr int kSecondsToLookAt = 42; // the countdown shows some minutes and seconds

QByteArray ShippedProfiles()
{
    QFile file(QStringLiteral(TAVRIN_SHIPPED_PROFILES));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the shipped profiles");
    return file.readAll();
}

void StartWith(MainWindow &m, const QByteArray &profiles, const QByteArray &settings = kSettings)
{
    m.Write("TavrinWeatherProfiles.ini", profiles);
    m.Write("TavrinWeatherSettings.ini", settings);
    if (const auto problem = m.Start(); problem)
        qFatal("%s", qUtf8Printable(*problem));
}

void Receive(MainWindow &m, const QString &reply)
{
    m.window->tmrWeatherCheck_Timer();
    m.http.Finish(m.station->WeatherThreadHandle(), reply);
    m.window->tmrMain_Timer();
    for (int second = 0; second < kSecondsToLookAt; ++second)
        m.window->tmrWeatherCheck_Timer();
}

void Look(QWidget &window, const Visit &visit)
{
    Settle();
    visit(window);
}

void ShowEmpty(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles(), "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n");
    Look(*m.window, visit);
}

void ShowFilled(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    Receive(m, kReply);
    Look(*m.window, visit);
}

/// The longest texts of the shipped profiles and of the first one's service.
void ShowLongest(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.Find<QRadioButton>("optCheckInterval3")->setChecked(true); // the longest countdown
    QString reply = kReply;
    reply.replace("International Airport", "International Thurgood Marshall Airport")
        .replace("Partly Cloudy", "Thunderstorm Heavy Rain Fog/Mist in Vicinity and Windy")
        .replace("Southwest at 9.2 MPH (8 KT)",
                 "from the Southwest at 20.7 gusting to 31.1 MPH (18 gusting to 27 KT)");
    Receive(m, reply);
    m.window->tmrDisclamer_Timer(); // the credit line's turn
    m.http.refuseOpen = true;
    m.window->StartWeatherRequest();
    Look(*m.window, visit);
}

void ShowNotAvailable(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    Receive(m, "Not Found");
    WeatherValues &values = m.station->profiles.weather[0].values;
    for (const Quantity quantity : kValues)
        values[quantity] = "N/A";
    for (QString *value :
         {&values[Quantity::Sunrise], &values[Quantity::Sunset], &values[Quantity::Precip]})
        *value = "Not Available From Service";
    m.window->DisplayWeatherData();
    Look(*m.window, visit);
}

void ShowOneLocation(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.window->btnWeatherSettings_Click();
    Look(*m.window, visit);
}

/// The shipped profile with the longest title and description.
void ShowLongProfile(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.Find<QComboBox>("cboSelectedProfile")->setCurrentIndex(3);
    m.window->btnWeatherSettings_Click();
    Look(*m.window, visit);
}

void ShowProfileList(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.window->btnWeatherSettings_Click();
    auto *list = m.Find<QComboBox>("cboSelectedProfile");
    list->showPopup();
    Look(*list->view()->window(), visit);
    list->hidePopup();
}

void ShowNoProfiles(MainWindow &m, const Visit &visit)
{
    StartWith(m, "");
    m.window->btnWeatherSettings_Click();
    Look(*m.window, visit);
}

void ShowFourLocations(MainWindow &m, const Visit &visit)
{
    StartWith(m, kFourPlaces,
              "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n[Profile0]\r\n"
              "location1=Netherlands\r\nlocation2=Zeeland\r\nlocation3=Vlissingen\r\n"
              "location4=14 north\r\n");
    m.window->btnWeatherSettings_Click();
    Look(*m.window, visit);
}

void ShowRaw(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    QString reply = kReply;
    while (reply.size() < 1'048'576)
        reply += "<station><id>KBWI</id>\t<name>Baltimore-Washington</name></station>\r\n";
    Receive(m, reply);
    m.window->btnShowRaw_Click();
    Look(*m.window, visit);
}

void ShowForecastEmpty(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles(), "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n");
    m.window->cmdPage_Click(1);
    m.window->tmrWeatherCheck_Timer();
    Look(*m.window, visit);
}

void ShowForecast(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.window->StartForecastRequest();
    m.http.Finish(m.station->ForecastThreadHandle(), kForecast);
    m.window->tmrMain_Timer();
    m.window->cmdPage_Click(1);
    m.window->tmrWeatherCheck_Timer();
    Look(*m.window, visit);
}

void ShowSettings(MainWindow &m, const Visit &visit)
{
    StartWith(m, ShippedProfiles());
    m.window->cmdPage_Click(2);
    Look(*m.window, visit);
}

void ShowFolderProblem(MainWindow &m, const Visit &visit)
{
    m.state.folderProblem = "The program folder cannot be written: "
                            "/opt/broadcast/tavrin-weather-utility";
    StartWith(m, ShippedProfiles());
    m.window->cmdPage_Click(2);
    Look(*m.window, visit);
}

void ShowExitQuestion(MainWindow &m, const Visit &visit)
{
    m.ask = AskYesNo;
    StartWith(m, ShippedProfiles());
    Receive(m, kReply);
    QTimer whileAsked;
    whileAsked.setSingleShot(true);
    whileAsked.callOnTimeout([&visit] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        Look(*box, visit);
        box->reject();
    });
    whileAsked.start(0);
    if (m.window->Unload(UnloadMode::TitleBar))
        qFatal("a refused question ended the program");
}

frmFindNOAAZones &OpenFinder(MainWindow &m)
{
    m.state.SelectedStateIndex = kMaryland;
    StartWith(m, ShippedProfiles());
    m.window->btnSelectNOAAZone_Click();
    return *m.Find<frmFindNOAAZones>("frmFindNOAAZones");
}

void ShowFinder(MainWindow &m, const Visit &visit)
{
    Look(OpenFinder(m), visit);
}

/// The transfer of the finder whose address ends in `name`.
TransferHandle HandleOf(const MainWindow &m, const QString &name)
{
    for (const auto &[handle, transfer] : m.http.open) {
        if (transfer.url.endsWith(name))
            return handle;
    }
    qFatal("nobody asked for %s", qUtf8Printable(name));
}

void ShowRetrieval(MainWindow &m, const Visit &visit)
{
    frmFindNOAAZones &finder = OpenFinder(m);
    m.clock.Set(QDateTime(QDate(2026, 11, 16), QTime(12, 0))); // the day of the listed files
    QList<int> numbers;
    for (const QString &zone : kZones)
        numbers.append(zone.mid(3, 3).toInt());
    finder.btnNOAAZonesGetList_Click();
    m.http.Finish(HandleOf(m, "/md/"), ZoneListing(numbers));
    finder.tmrRetrieval_Timer();
    finder.tmrRetrieval_Timer();
    for (const QString &zone : kZones.first(5)) {
        const QString code = zone.first(6);
        m.http.Finish(HandleOf(m, code.toLower() + ".txt"), ZoneFile(code, zone.sliced(9)));
        finder.tmrRetrieval_Timer();
    }
    Look(finder, visit);
}

void ShowMatch(MainWindow &m, const Visit &visit)
{
    frmFindNOAAZones &finder = OpenFinder(m);
    finder.findChild<QListWidget *>("lstZoneCodes")->addItems(kZones);
    auto *search = finder.findChild<QLineEdit *>("txtSearch");
    search->setText("towson");
    finder.btnSearch_Click();
    search->setFocus();
    Look(finder, visit);
}

} // namespace

const std::vector<ShownState> &WindowStates()
{
    static const std::vector<ShownState> states{
        {"weather-empty", "Weather page, empty", ShowEmpty},
        {"weather-page", "Weather page, filled", ShowFilled},
        {"weather-longest", "Weather page, longest texts", ShowLongest},
        {"weather-not-available", "Weather page, nothing available", ShowNotAvailable},
        {"weather-settings", "Weather settings, one location", ShowOneLocation},
        {"weather-settings-longest", "Weather settings, longest texts", ShowLongProfile, false},
        {"weather-settings-four", "Weather settings, four locations", ShowFourLocations},
        {"weather-settings-none", "Weather settings, no profiles", ShowNoProfiles, false},
        {"profile-list", "Weather settings, list opened", ShowProfileList, false},
        {"raw-data", "Raw data, a reply of 1 MB", ShowRaw},
        {"forecast-empty", "Forecast page, empty", ShowForecastEmpty, false},
        {"forecast-page", "Forecast page, filled", ShowForecast},
        {"program-settings", "Program settings", ShowSettings},
        {"program-settings-problem", "Program settings, folder problem", ShowFolderProblem, false},
        {"exit-question", "Exit question", ShowExitQuestion},
        {"zone-finder-empty", "Zone finder, empty", ShowFinder},
        {"zone-finder-retrieving", "Zone finder, retrieving", ShowRetrieval},
        {"zone-finder-match", "Zone finder, with a match", ShowMatch},
    };
    return states;
}

void VisitWindowStates(const std::function<void(const ShownState &state, QWidget &window)> &visit)
{
    for (const ShownState &state : WindowStates()) {
        MainWindow m;
        state.show(m, [&](QWidget &window) { visit(state, window); });
    }
}

void Settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QPalette LightPalette()
{
    return QApplication::style()->standardPalette();
}

QPalette DarkPalette()
{
    const QColor window(42, 46, 50);
    const QColor text(240, 240, 240);
    const QColor disabled(120, 124, 128);
    QPalette palette(QColor(52, 57, 62), window); // derives the shades of edges
    palette.setColor(QPalette::Base, QColor(27, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(35, 38, 41));
    palette.setColor(QPalette::ToolTipBase, QColor(52, 57, 62));
    palette.setColor(QPalette::Highlight, QColor(40, 110, 160));
    palette.setColor(QPalette::PlaceholderText, QColor(240, 240, 240, 128));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}
