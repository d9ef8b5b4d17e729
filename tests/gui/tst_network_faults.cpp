#include "gui/main_window.h"
#include "gui/network_faults.h"
#include "net/curl_transfers.h"
#include "support/process_counts.h"
#include "support/recorded_trace.h"
#include "support/silent_name_server.h"
#include "support/wait_until.h"
#include "zones/frm_find_noaa_zones.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

constexpr std::chrono::seconds kPatience{20}; // an idle machine needs less than one
constexpr qint16 kMaryland = 19;              // alphabetically after Maine
// KiB; a large reply takes 48 MiB and more. Includes what a first use loads, such as TLS.
constexpr long kMoreMemory = 8192;

// Milliseconds of processor time: four times what the largest reply may take a release build.
constexpr double kLongestTick = kSanitized ? 4000 : 1000;

const std::string kListPath = "/data/forecasts/zone/md/";

/// The path on which a kind of transfer meets its fault.
std::string FaultyPath(Kind kind)
{
    switch (kind) {
    case Kind::Weather:
        return "/now?q=Salem";
    case Kind::Forecast:
        return kListPath + "mdz011.txt";
    case Kind::ZoneList:
        return kListPath;
    case Kind::ZoneFile:
        return kListPath + "mdz002.txt";
    }
    return {};
}

// What the host offers, what is shown of it and what is written. `sky` tells one answer from the
// next.

const QByteArray kProfile = "[Profile0]\r\n"
                            "title=One place\r\n"
                            "baseURL=http://set.by.test/\r\n"
                            "location1Title=City\r\n"
                            "mainNodeOpen=<now>\r\nmainNodeClose=</now>\r\n"
                            "timeOpen=<time>\r\ntimeClose=</time>\r\n"
                            "locationOpen=<place>\r\nlocationClose=</place>\r\n"
                            "temperatureOpen=<temp>\r\ntemperatureClose=</temp>\r\n"
                            "temperatureUnits=[SP]F\r\n"
                            "conditionsOpen=<sky>\r\nconditionsClose=</sky>\r\n"
                            "[ForecastProfile0]\r\nhost=http://set.by.test\r\n"
                            "copyright=NWS\r\ncopyrightURL=http://credit.test/\r\n";

std::string Observation(const std::string &sky)
{
    return "<html><now><time>9:53 AM</time><place>Montr\xC3\xA9"
           "al</place><temp>71</temp><sky>"
         + sky + "</sky> </now></html>";
}

QByteArray WeatherFile(const QByteArray &sky)
{
    return "[Weather]\r\nTIME=9:53[SP]AM\r\nCOPYRIGHT=\r\nCOPYRIGHTURL=\r\n"
           "CITY=Montr\xC3\xA9"
           "al\r\nTEMP=71.0[SP]F\r\nCONDITIONS="
         + sky
         + "\r\nWINDS=N/A\r\nPRESSURE=N/A\r\nHUMIDITY=N/A\r\nDEWPOINT=N/A\r\nWINDCHILL=N/A\r\n"
           "HEATINDEX=N/A\r\nVISIBILITY=N/A\r\nSUNRISE=N/A\r\nSUNSET=N/A\r\nPREVMIN=N/A\r\n"
           "PREVMAX=N/A\r\n";
}

std::string ZoneForecast(const std::string &sky)
{
    return "FPUS51 KLWX 040800\n\nMDZ011-041500-\nMontr\xC3\xA9"
           "al-\n400 AM EDT Sat Jul 4 2026\n\n.TODAY..."
         + sky + ".\n\n$$\n";
}

/// @param data the forecast as it is written.
QByteArray ForecastFile(const QByteArray &data)
{
    return "[FORECAST]\r\nCOPYRIGHT=NWS\r\nCOPYRIGHTURL=http://credit.test/\r\nDATA=" + data
         + "\r\n";
}

QByteArray CleanedProduct(const QByteArray &sky)
{
    // Each line end gets a carriage return, the heading a paragraph of its own.
    return "Montr\xC3\xA9"
           "al-[CR][LF]400[SP]AM[SP]EDT[SP]Sat[SP]Jul[SP]4[SP]2026[CR][LF][CR][LF][CR][LF]"
           "TODAY.[SP]"
         + sky;
}

std::string Listing()
{
    std::string rows = "<p>Montr\xC3\xA9"
                       "al</p>\n";
    for (const char *name : {"mdz001.txt", "mdz002.txt"}) {
        rows += std::string("<tr><td><a href=\"") + name + "\">" + name
              + "</a></td><td>04-Jul-2026 04:00 Sunny</td></tr>\n";
    }
    return rows;
}

std::string OneZoneFile(const std::string &code, const std::string &sky)
{
    return code + "-041500-\nMontr\xC3\xA9" + "al " + sky + "-\n400 AM EDT SAT JUL 4 2026\n";
}

/// What the user and the automation system see after a transfer.
struct Seen
{
    QString status;    ///< lblStatus; lblZoneFiles of the zone finder.
    QByteArray output; ///< The file's bytes; the zone finder's entries, line by line.

    bool operator==(const Seen &) const = default;
};

char *toString(const Seen &seen)
{
    return QTest::toString(seen.status + " | " + QString::fromUtf8(seen.output));
}

/// What is to be seen after a weather transfer.
/// @param before the file's bytes until then.
Seen WeatherSeen(const NetworkFault &fault, const QByteArray &sky, const QByteArray &before)
{
    switch (fault.outcome) {
    case Outcome::Fails:
    case Outcome::Empty:
    case Outcome::Page:
        return {"Could not find opening node tag in received data", before};
    case Outcome::CutAtNul:
        return {"Retrieved current weather data", WeatherFile(sky.first(2))};
    case Outcome::Good:
        return {"Retrieved current weather data", WeatherFile(sky)};
    }
    return {};
}

Seen ForecastSeen(const NetworkFault &fault, const QByteArray &sky, const QByteArray &before)
{
    switch (fault.outcome) {
    case Outcome::Fails:
        return {"An error occured receiving forecast", before};
    case Outcome::Empty:
        return {"Forecast host returned no forecast data", before};
    case Outcome::Page: // the first five characters, the rest of that line, and then the forecast
        return {"Received forecast data",
                ForecastFile("<title>Log[SP]in</title>[CR][LF]</html>[CR][LF]")};
    case Outcome::CutAtNul:
        return {"Received forecast data", ForecastFile(CleanedProduct(sky.first(2)))};
    case Outcome::Good:
        return {"Received forecast data", ForecastFile(CleanedProduct(sky) + ".[CR][LF][CR][LF]")};
    }
    return {};
}

const QByteArray kFirstZone = "MDZ001:  Montr\xC3\xA9"
                              "al Calm";

QByteArray BothZones(const QByteArray &sky)
{
    return kFirstZone
         + "\nMDZ002:  Montr\xC3\xA9"
           "al "
         + sky;
}

/// @param list the list's address.
Seen ZoneListSeen(const NetworkFault &fault, const QByteArray &sky, const QString &list)
{
    const QString failure = "Error retrieving " + list;
    switch (fault.outcome) {
    case Outcome::Fails:
        return {failure + " -> " + QString::number(fault.number), failure.toUtf8()};
    case Outcome::Empty:
    case Outcome::Page:
        return {"No Valid Forecast Data Found", ""};
    case Outcome::CutAtNul: // after the names, where nothing is read
    case Outcome::Good:
        return {"", BothZones(sky)};
    }
    return {};
}

Seen ZoneFileSeen(const NetworkFault &fault, const QByteArray &sky, const QString &list)
{
    switch (fault.outcome) {
    case Outcome::Fails:
        return {"", kFirstZone}; // it is left out
    case Outcome::Empty:
    case Outcome::Page: // without the zone's line the retrieval ends, and says no more
        return {"Received Zone Data:   " + list + "mdz002.txt", kFirstZone};
    case Outcome::CutAtNul:
        return {"", BothZones(QByteArray(sky).insert(2, '\0'))};
    case Outcome::Good:
        return {"", BothZones(sky)};
    }
    return {};
}

const NetworkFault kNone = {.name = "none"};

} // namespace

/// Each network fault with each kind of transfer, in the whole program: the real window and the
/// real transfers against a host on the loopback. A row goes through fault, repair, fault and
/// repair; after each of the four the user sees the right text and the files hold the right bytes,
/// and after the last nothing is left that was not there before the first.
class tst_NetworkFaults final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void currentWeather_data() { AddRows(); }
    void currentWeather() { RunRow(Kind::Weather); }
    void forecast_data() { AddRows(); }
    void forecast() { RunRow(Kind::Forecast); }
    void zoneList_data() { AddRows(); }
    void zoneList() { RunRow(Kind::ZoneList); }
    void zoneFile_data() { AddRows(); }
    void zoneFile() { RunRow(Kind::ZoneFile); }

    void failureWithoutAMainNode_data();
    void failureWithoutAMainNode();

private:
    static void AddRows();
    void RunRow(Kind kind);
    void StartProgram(const NetworkFault &fault, Kind kind);
    void RunCycle(const NetworkFault &fault, const QByteArray &sky);
    void RunMendedCycle(const QByteArray &sky);

    void UseWay(Way way);
    void Strike(const NetworkFault &fault);
    void Offer(const QByteArray &sky) const;
    [[nodiscard]] Seen Expected(const NetworkFault &fault, const QByteArray &sky) const;
    void Tick();
    [[nodiscard]] Seen Request();
    [[nodiscard]] Seen RequestWeather();
    [[nodiscard]] Seen RequestForecast();
    [[nodiscard]] Seen RequestZones();
    [[nodiscard]] QByteArray Output() const;
    [[nodiscard]] bool IsAnyHandleOpen() const;

    const TestCertificates m_certificates;
    Kind m_kind = Kind::Weather;
    QString m_address;        ///< Of the host, as the program has it now.
    double m_longestTick = 0; ///< Milliseconds of processor time.
    std::unique_ptr<FaultHost> m_host;
    std::unique_ptr<CurlTransfers> m_http;
    std::unique_ptr<MainWindow> m;
};

void tst_NetworkFaults::init()
{
    m_host = std::make_unique<FaultHost>(m_certificates);
}

void tst_NetworkFaults::cleanup()
{
    m.reset();
    m_http.reset();
    m_host.reset();
}

void tst_NetworkFaults::AddRows()
{
    QTest::addColumn<int>("row");
    for (size_t i = 0; i < NetworkFaults().size(); ++i)
        QTest::newRow(NetworkFaults()[i].name) << int(i);
}

void tst_NetworkFaults::StartProgram(const NetworkFault &fault, Kind kind)
{
    m_kind = kind;
    m_longestTick = 0;
    TransferOptions options = fault.limits;
    options.trustedRoots = QByteArray::fromStdString(m_certificates.AuthorityPem());
    m_http = std::make_unique<CurlTransfers>(options);
    m = std::make_unique<MainWindow>(*m_http);
    m->Write("TavrinWeatherProfiles.ini", kProfile);
    m->Write("TavrinWeatherSettings.ini", "[Settings]\r\nFirstRun=False\r\n"
                                          "MinimizeOnStartup=False\r\nForecastZone=MDZ011\r\n"
                                          "ForecastState=MD\r\n");
    // Of the day before.
    m->Write("Weather.ini", WeatherFile("Fog"));
    m->Write("Forecast.ini", ForecastFile("Fog"));
    QVERIFY(!m->Start());
    m->state.SelectedStateIndex = kMaryland;
    m->station->SetForecastRequestCountdown(0); // the test itself asks
}

/// Leads the program to the host that way. It reads its profiles only at its start, so the address
/// goes where it keeps them from then on.
void tst_NetworkFaults::UseWay(Way way)
{
    m_address = QString::fromStdString(m_host->Address(way));
    m->station->profiles.weather[0].baseURL = m_address + "/now?q=%LOC1%";
    m->station->profiles.forecast.host = m_address;
}

/// Lets the next transfer of the kind meet the fault.
void tst_NetworkFaults::Strike(const NetworkFault &fault)
{
    // A zone file comes from its list's host, which was there: only a redirect leads astray.
    const bool leadsAstray =
        m_kind == Kind::ZoneFile && fault.act == nullptr && fault.way != Way::Plain;
    const auto redirect = [to = m_host->Address(fault.way)](LoopbackConnection &connection,
                                                            const FaultyRequest &request) {
        connection.Redirect(to + request.path + "moved");
    };
    UseWay(leadsAstray ? Way::Plain : fault.way);
    m_host->Strike(FaultyPath(m_kind), leadsAstray ? redirect : fault.act);
}

void tst_NetworkFaults::Offer(const QByteArray &sky) const
{
    const std::string text = sky.toStdString();
    m_host->Offer(FaultyPath(Kind::Weather), Observation(text));
    m_host->Offer(FaultyPath(Kind::Forecast), ZoneForecast(text));
    m_host->Offer(kListPath, Listing());
    m_host->Offer(kListPath + "mdz001.txt", OneZoneFile("MDZ001", "Calm"));
    m_host->Offer(kListPath + "mdz002.txt", OneZoneFile("MDZ002", text));
}

QByteArray tst_NetworkFaults::Output() const
{
    return m->Read(m_kind == Kind::Weather ? "Weather.ini" : "Forecast.ini");
}

Seen tst_NetworkFaults::Expected(const NetworkFault &fault, const QByteArray &sky) const
{
    const QString list = m_address + QString::fromStdString(kListPath);
    switch (m_kind) {
    case Kind::Weather:
        return WeatherSeen(fault, sky, Output());
    case Kind::Forecast:
        return ForecastSeen(fault, sky, Output());
    case Kind::ZoneList:
        return ZoneListSeen(fault, sky, list);
    case Kind::ZoneFile:
        return ZoneFileSeen(fault, sky, list);
    }
    return {};
}

Seen tst_NetworkFaults::Request()
{
    switch (m_kind) {
    case Kind::Weather:
        return RequestWeather();
    case Kind::Forecast:
        return RequestForecast();
    case Kind::ZoneList:
    case Kind::ZoneFile:
        return RequestZones();
    }
    return {};
}

/// Lets the window do what there is to do now.
void tst_NetworkFaults::Tick()
{
    const double before = ProcessorTime();
    QCoreApplication::processEvents();
    m->window->tmrMain_Timer();
    m_longestTick = std::max(m_longestTick, ProcessorTime() - before);
}

Seen tst_NetworkFaults::RequestWeather()
{
    m->Type("txtLocation1", "Salem");
    m->window->btnGetWeather_Click();
    const auto hasEnded = [this] {
        Tick();
        return m->station->WeatherThreadHandle() == 0;
    };
    if (!WaitUntil(hasEnded, kPatience))
        return {"no end of the transfer", {}};
    return {m->Text("lblStatus"), Output()};
}

Seen tst_NetworkFaults::RequestForecast()
{
    m->window->btnGetForecast_Click();
    const auto hasEnded = [this] {
        Tick();
        m->station->SetForecastRequestCountdown(0);
        return m->station->ForecastThreadHandle() == 0;
    };
    if (!WaitUntil(hasEnded, kPatience))
        return {"no end of the transfer", {}};
    return {m->Text("lblStatus"), Output()};
}

Seen tst_NetworkFaults::RequestZones()
{
    m->window->btnSelectNOAAZone_Click();
    QPointer<frmFindNOAAZones> dialog = m->window->findChild<frmFindNOAAZones *>();
    auto *button = dialog->findChild<QPushButton *>("btnNOAAZonesGetList");
    button->click();
    const auto hasEnded = [&] {
        Tick();
        return !dialog->Retrieving();
    };
    if (!WaitUntil(hasEnded, kPatience))
        return {"no end of the retrieval", {}};

    Seen seen{dialog->findChild<QLabel *>("lblZoneFiles")->text(), {}};
    const auto *list = dialog->findChild<QListWidget *>("lstZoneCodes");
    QStringList entries;
    for (int i = 0; i < list->count(); ++i)
        entries.append(list->item(i)->text());
    seen.output = entries.join('\n').toUtf8();
    if (!button->isEnabled() || !list->isEnabled())
        seen.status += " (controls stay disabled)";
    dialog->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return seen;
}

/// Handles are given out in order, so a new one tells how many there were.
bool tst_NetworkFaults::IsAnyHandleOpen() const
{
    const TransferHandle last = m_http->Net_HTTPThreadOpen("80");
    m_http->Net_HTTPThreadClose(last);
    for (TransferHandle handle = 1; handle < last; ++handle) {
        QString text;
        if (!m_http->Net_HTTPThreadIsDone(handle)
            || m_http->Net_HTTPThreadReply(handle).error != kNoReply
            || m_http->Net_HTTPThreadReturnText(handle, text) > 0)
            return true;
    }
    return false;
}

void tst_NetworkFaults::RunCycle(const NetworkFault &fault, const QByteArray &sky)
{
    Offer(sky);
    Strike(fault);
    const int struck = m_host->Struck();
    const auto silence = fault.silentNames ? std::make_unique<SilentNameServer>() : nullptr;
    const Seen expected = Expected(fault, sky);
    // What was received can be megabytes, and the trace would hold them many times.
    const auto trace =
        fault.outcome == Outcome::Fails ? std::make_unique<RecordedTrace>() : nullptr;

    const Seen seen = Request();

    QCOMPARE(seen, expected);
    QVERIFY(fault.act == nullptr || m_host->Struck() > struck);
    if (trace != nullptr && m_kind == Kind::Weather)
        QVERIFY(!trace->lines.filter("Weather transfer failed: " + fault.reason).isEmpty());
    if (trace != nullptr && m_kind == Kind::Forecast) {
        const QString words = "An error occurred while retrieving the forecast. ";
        QVERIFY(!trace->lines.filter(words + fault.reason).isEmpty());
    }
    QVERIFY(!IsAnyHandleOpen());
}

void tst_NetworkFaults::RunMendedCycle(const QByteArray &sky)
{
    RunCycle(kNone, sky);
}

void tst_NetworkFaults::RunRow(Kind kind)
{
    QFETCH(int, row);
    const NetworkFault &fault = NetworkFaults()[size_t(row)];
    StartProgram(fault, kind);
    const long descriptors = OpenDescriptors();
    const long threads = RunningThreads();
    const long memory = PrivateMemory();

    RunCycle(fault, "Sunny");
    if (QTest::currentTestFailed())
        return;
    RunMendedCycle("Cloudy");
    if (QTest::currentTestFailed())
        return;
    RunCycle(fault, "Funny");
    if (QTest::currentTestFailed())
        return;
    RunMendedCycle("Rainy");
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(m_longestTick <= kLongestTick, qPrintable(QString::number(m_longestTick)));
    // A finished thread, and the host's side of a connection, go a little later.
    QVERIFY(WaitUntil([=] { return OpenDescriptors() <= descriptors; }, kPatience));
    QVERIFY(WaitUntil([=] { return RunningThreads() <= threads; }, kPatience));
    // The sanitizers hold on to freed memory.
    QVERIFY2(kSanitized || PrivateMemory() <= memory + kMoreMemory,
             qPrintable(QString("%1 KiB, now %2").arg(memory).arg(PrivateMemory())));
}

void tst_NetworkFaults::failureWithoutAMainNode_data()
{
    QTest::addColumn<QByteArray>("required");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("nothing is required")
        << QByteArray() << "Weather host not reachable, or no weather data returned"
        << WeatherFile("N/A")
               .replace("9:53[SP]AM", "7/4/2026[SP]10:00:00[SP]AM")
               .replace("Montr\xC3\xA9"
                        "al",
                        "Salem")
               .replace("71.0", "0.0");
    QTest::newRow("the temperature is required")
        << QByteArray("required=temperature\r\n")
        << "Required value not found in received data: temperature" << WeatherFile("Fog");
}

/// The empty text of a failed transfer is read like any other if no main node has to be found. All
/// failures deliver the same text, so one stands for all.
void tst_NetworkFaults::failureWithoutAMainNode()
{
    QFETCH(QByteArray, required);
    QFETCH(QString, status);
    QFETCH(QByteArray, written);
    StartProgram(kNone, Kind::Weather);
    m->Write(
        "TavrinWeatherProfiles.ini",
        QByteArray(kProfile).replace("mainNodeOpen=<now>\r\nmainNodeClose=</now>\r\n", required));
    QVERIFY(!m->Restart());
    m->Write("Weather.ini", WeatherFile("Fog"));
    UseWay(Way::Refused);

    QCOMPARE(RequestWeather(), (Seen{status, written}));
}

QTEST_MAIN(tst_NetworkFaults)
#include "tst_network_faults.moc"
