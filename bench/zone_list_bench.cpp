// A state's zone list of 254 files from a host that answers after 50 ms: the zone finder compared
// with the same files fetched one after another over one kept connection, and with wget and curl if
// they are installed. Then reading a large listing, compared with a plain search through it.

#include "medians.h"
#include "net/curl_transfers.h"
#include "support/loopback_server.h"
#include "zones/frm_find_noaa_zones.h"
#include "zones/zone_listing.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFiles = 254;
constexpr int kDelay = 50; // milliseconds
constexpr int kRounds = kRuns;
constexpr int kLongest = 60'000; // milliseconds
constexpr qint16 kMaryland = 19;
constexpr qsizetype kLargeListing = qsizetype(16) * 1024 * 1024;
const QString kPath = u"/data/forecasts/zone/md/"_s;

QString FileName(int number)
{
    return u"mdz%1.txt"_s.arg(number, 3, 10, QChar(u'0'));
}

QString Row(const QString &name, QDate date)
{
    return u"<tr><td><a href=\"%1\">%1</a></td><td align=\"right\">%2 10:15  </td>"
           u"<td align=\"right\">1.2K</td></tr>\n"_s.arg(name, ListingDate(date));
}

std::string Body(const std::string &head, QDate today)
{
    const QString path = QString::fromStdString(head).section(u' ', 1, 1);
    if (path.endsWith(u".txt"_s)) {
        const QString zone = path.chopped(4).last(6).toUpper();
        return (zone + u"-161500-\nBaltimore-\nIncluding the city of Towson\n1015 AM EST\n"_s
                + u".TODAY...MOSTLY CLOUDY. HIGHS IN THE MID 40S.\n"_s.repeated(40))
            .toStdString();
    }
    QString rows;
    for (int number = 1; number <= kFiles; ++number)
        rows += Row(FileName(number), today);
    return rows.toStdString();
}

QStringList Urls(const QString &host)
{
    QStringList urls{host + kPath};
    for (int number = 1; number <= kFiles; ++number)
        urls.append(host + kPath + FileName(number));
    return urls;
}

/// The dialog, from the press of the button to the last entry.
bool FetchByDialog(const QString &host)
{
    CurlTransfers http;
    const SystemClock clock;
    QWidget owner;
    bool isOpen = false;
    auto *dialog = new frmFindNOAAZones(http, clock, host, isOpen, kMaryland, &owner);
    dialog->Form_Load();
    dialog->show();
    dialog->btnNOAAZonesGetList_Click();
    QElapsedTimer time;
    time.start();
    while (dialog->Retrieving() && time.elapsed() < kLongest)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return dialog->findChild<QListWidget *>(u"lstZoneCodes"_s)->count() == kFiles;
}

/// One after another over one kept connection.
bool FetchInTurn(const QString &host)
{
    CurlTransfers http;
    const QStringList urls = Urls(host);
    return std::all_of(urls.begin(), urls.end(), [&http](const QString &url) {
        QString text;
        return http.Net_HttpGetText(url, text) == 0;
    });
}

/// Another program, which gets the addresses on its standard input.
bool FetchBy(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    const QTemporaryDir folder;
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    return process.waitForFinished(kLongest) && process.exitCode() == 0
        && QDir(folder.path()).entryList({u"mdz*.txt"_s}).size() == kFiles;
}

bool FetchByWget(const QString &host)
{
    const QStringList urls = Urls(host);
    return FetchBy(u"wget"_s, {u"--quiet"_s, u"-i"_s, u"-"_s}, urls.join(u'\n').toUtf8() + '\n');
}

bool FetchByCurl(const QString &host)
{
    QByteArray config;
    for (const QString &url : Urls(host).sliced(1))
        config += "url=\"" + url.toUtf8() + "\"\n";
    return FetchBy(u"curl"_s,
                   {u"--silent"_s, u"--fail"_s, u"--parallel"_s, u"--parallel-max"_s, u"6"_s,
                    u"--remote-name-all"_s, u"--config"_s, u"-"_s},
                   config);
}

struct Way
{
    const char *name = nullptr;
    QString program = {}; ///< The program that it needs; empty: none.
    std::function<bool(const QString &host)> fetch = {};
    std::array<qint64, kRounds> milliseconds = {};

    [[nodiscard]] qint64 Median()
    {
        std::sort(milliseconds.begin(), milliseconds.end());
        return milliseconds[kRounds / 2];
    }
};

bool CompareFetching()
{
    const QDate today = SystemClock().Now().date();
    const LoopbackServer server([today](LoopbackConnection &connection, const std::string &head) {
        connection.Pause(kDelay);
        connection.Reply(Body(head, today));
    });
    const QString host = QString::fromStdString(server.Url(""));
    std::array<Way, 4> ways{
        {{.name = "zone finder", .fetch = FetchByDialog},
         {.name = "one after the other", .fetch = FetchInTurn},
         {.name = "wget -i", .program = u"wget"_s, .fetch = FetchByWget},
         {.name = "curl --parallel --parallel-max 6", .program = u"curl"_s, .fetch = FetchByCurl}}};
    for (int round = 0; round < kRounds; ++round) {
        for (Way &way : ways) {
            if (!way.program.isEmpty() && QStandardPaths::findExecutable(way.program).isEmpty())
                continue;
            QElapsedTimer time;
            time.start();
            if (!way.fetch(host)) {
                std::printf("%s: not all files arrived\n", way.name);
                return false;
            }
            way.milliseconds[static_cast<size_t>(round)] = time.elapsed();
        }
    }
    const auto finder = static_cast<double>(ways[0].Median());
    std::printf("%d files, %d ms each; median of %d\n", kFiles, kDelay, kRounds);
    for (Way &way : ways) {
        const qint64 median = way.Median();
        if (median == 0)
            std::printf("  %-34s not installed\n", way.name);
        else
            std::printf("  %-34s %6lld ms  %.2f times the zone finder\n", way.name,
                        static_cast<long long>(median), static_cast<double>(median) / finder);
    }
    return true;
}

double Milliseconds(const std::function<void()> &work)
{
    QElapsedTimer time;
    time.start();
    work();
    return static_cast<double>(time.nsecsElapsed()) * 1e-6;
}

void CompareReading()
{
    const QDate today(2026, 11, 16);
    const QString rows = Row(FileName(11), today) + Row(FileName(12), today.addDays(-3));
    const QString listing = rows.repeated(kLargeListing / rows.size());
    qsizetype found = 0;
    qsizetype names = 0;
    double read = 1e9;
    double searched = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        searched = std::min(searched, Milliseconds([&] {
                                found = listing.count(u"<tr><td><a href=\""_s)
                                      + listing.count(u"16-Nov-2026"_s);
                            }));
        read = std::min(
            read, Milliseconds([&] { names = ZoneFileNames(listing, u"md"_s, today).size(); }));
    }
    std::printf("listing of %lld rows, %lld of them current: %.0f ms, %.2f times two plain searches"
                " (%lld hits)\n",
                static_cast<long long>(listing.count(u'\n')), static_cast<long long>(names), read,
                read / searched, static_cast<long long>(found));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    CompareReading();
    return CompareFetching() ? 0 : 1;
}
