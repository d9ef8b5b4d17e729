#include "gui/zone_finder.h"
#include "net/curl_transfers.h"
#include "support/loopback_server.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <atomic>

namespace {

// Milliseconds, far below every time-out. An idle machine needs less than 250; a busy one may
// stall.
constexpr int kLongestCancel = 3000;

/// The path that a request's head asks for.
QString PathOf(const std::string &head)
{
    return QString::fromStdString(head).section(' ', 1, 1);
}

/// The number of the zone file that `path` names; 0 for the list.
int FileNumber(const QString &path)
{
    return path.endsWith(".txt") ? path.chopped(4).last(3).toInt() : 0;
}

QString PlaceOf(int number)
{
    return number % 2 == 0 ? "Bowie " + QString::number(number)
                           : "Towson " + QString::number(number);
}

/// What a misbehaving host does.
enum class Fault
{
    Stalls,
    Resets,
    Denies,
    SendsHalf,
};

void Misbehave(LoopbackConnection &connection, Fault fault, const std::string &body)
{
    switch (fault) {
    case Fault::Stalls:
        connection.Hold();
        return;
    case Fault::Resets:
        connection.Reset();
        return;
    case Fault::Denies:
        connection.Reply("no", {}, "404 Not Found");
        return;
    case Fault::SendsHalf:
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size())
                        + "\r\n\r\n" + body.substr(0, body.size() / 2));
        connection.CloseAfterwards();
        return;
    }
}

} // namespace

/// The zone finder against a real host on the loopback, which has the zones 1 to `m_files`.
class tst_ZoneFinderNetwork final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fetchesSearchesAndSelects();
    void showsTheProgressFileByFile();
    void fetchesManyFiles();
    void tellsWhyThereIsNoList_data();
    void tellsWhyThereIsNoList();
    void leavesOutFilesThatFail_data();
    void leavesOutFilesThatFail();
    void readsAListThatIsCutOff();
    void isCancelledWhileTheHostIsSilent_data();
    void isCancelledWhileTheHostIsSilent();
    void isCancelledByItsCloseButton();
    void letsTheWindowLiveWhileTheHostIsSilent();
    void endsWithItsOwnerWhileTheHostIsSilent();
    void leavesOtherTransfersAlone();

private:
    void Answer(LoopbackConnection &connection, const std::string &head);
    void FaultAt(int file, Fault fault)
    {
        m_fault = fault;
        m_faultAt = file;
    }
    [[nodiscard]] QString ListUrl() const
    {
        return QString::fromStdString(m_server->Url("/data/forecasts/zone/md/"));
    }

    // Set before the first request; only m_answered changes later.
    int m_files = 3;
    int m_faultAt = -1; ///< Number of a file, 0 for the list; -1: none.
    Fault m_fault = Fault::Stalls;
    bool m_listWithoutLength = false;
    std::atomic<int> m_answered = 1000; ///< Files up to this number are answered.

    std::unique_ptr<LoopbackServer> m_server;
    std::unique_ptr<CurlTransfers> m_http;
    std::unique_ptr<ZoneFinder> m;
};

void tst_ZoneFinderNetwork::init()
{
    m_files = 3;
    m_faultAt = -1;
    m_listWithoutLength = false;
    m_answered = 1000;
    m_server = std::make_unique<LoopbackServer>(
        [this](LoopbackConnection &connection, const std::string &head) {
            Answer(connection, head);
        });
    m_http = std::make_unique<CurlTransfers>();
    m = std::make_unique<ZoneFinder>(*m_http, QString::fromStdString(m_server->Url("")));
    m->Open();
}

void tst_ZoneFinderNetwork::cleanup()
{
    m.reset();
    m_http.reset();
    m_server.reset();
}

void tst_ZoneFinderNetwork::Answer(LoopbackConnection &connection, const std::string &head)
{
    const QString path = PathOf(head);
    if (path == "/silent") {
        connection.Hold();
        return;
    }
    const int number = FileNumber(path);
    QString body;
    if (number == 0) {
        QList<int> numbers;
        for (int i = 1; i <= m_files; ++i)
            numbers.append(i);
        body = ZoneListing(numbers);
    } else {
        body = ZoneFile(path.chopped(4).last(6).toUpper(), PlaceOf(number));
    }
    while (connection.IsOpen() && number > m_answered)
        connection.Pause(1);
    if (number == m_faultAt) {
        Misbehave(connection, m_fault, body.toStdString());
    } else if (number == 0 && m_listWithoutLength) {
        // The body lasts as long as the connection: nobody can tell that the end is missing.
        const qsizetype lastRow = body.lastIndexOf("</a>");
        connection.Send("HTTP/1.1 200 OK\r\n\r\n" + body.first(lastRow).toStdString());
        connection.CloseAfterwards();
    } else {
        connection.Reply(body.toStdString());
    }
}

void tst_ZoneFinderNetwork::fetchesSearchesAndSelects()
{
    QTest::mouseClick(m->Find("btnNOAAZonesGetList"), Qt::LeftButton);
    QTRY_COMPARE(m->Entries(),
                 (QStringList{"MDZ001:  Towson 1", "MDZ002:  Bowie 2", "MDZ003:  Towson 3"}));
    QTRY_VERIFY(!m->dialog->Retrieving());

    QTest::keyClicks(m->Find("txtSearch"), "towson");
    QList<int> found;
    for (int i = 0; i < 3; ++i) {
        QTest::mouseClick(m->Find("btnSearch"), Qt::LeftButton);
        found.append(m->Selected());
    }
    QCOMPARE(found, (QList<int>{0, 2, 0}));

    QTest::mouseClick(m->Find("btnSelect"), Qt::LeftButton);
    QCOMPARE(m->selected, QStringList{"MDZ001 MD"});
    QTRY_VERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderNetwork::showsTheProgressFileByFile()
{
    m_answered = -1; // not even the list
    m->Click("btnNOAAZonesGetList");
    QCOMPARE(m->Label("lblProgress"), "0%");
    QCOMPARE(m->Label("lblZoneFiles"), "Requesting Zone List: " + ListUrl());

    const QStringList progress{"33.3%  (1 of 3)", "66.7%  (2 of 3)", "100.0%  (3 of 3)"};
    for (int i = 0; i < 3; ++i) {
        m_answered = i;
        QTRY_COMPARE(m->Label("lblProgress"), progress.at(i));
        QCOMPARE(m->Label("lblZoneFiles"),
                 QString("Requesting Zone Data: %1mdz00%2.txt...").arg(ListUrl()).arg(i + 1));
        QCOMPARE(m->Entries().size(), i);
    }
    m_answered = 3;
    QTRY_VERIFY(!m->dialog->Retrieving());
    QCOMPARE(m->Entries().size(), 3);
    QVERIFY(!m->IsShown("lblProgress"));
}

void tst_ZoneFinderNetwork::fetchesManyFiles()
{
    m_files = 254;
    m->Click("btnNOAAZonesGetList");
    QTRY_VERIFY_WITH_TIMEOUT(!m->dialog->Retrieving(), 30'000);

    QCOMPARE(m->Entries().size(), 254);
    QCOMPARE(m->Entries().front(), "MDZ001:  Towson 1");
    QCOMPARE(m->Entries().back(), "MDZ254:  Bowie 254");
    QCOMPARE(m->Label("lblProgress"), "100.0%  (254 of 254)");
    QCOMPARE(m_server->Heads().size(), size_t(255));
    QVERIFY(m_server->Accepted() <= 6); // connections are kept
}

void tst_ZoneFinderNetwork::tellsWhyThereIsNoList_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("number");
    QTest::newRow("not found") << int(Fault::Denies) << 404;
    QTest::newRow("reset") << int(Fault::Resets) << 56;          // CURLE_RECV_ERROR
    QTest::newRow("half a list") << int(Fault::SendsHalf) << 18; // CURLE_PARTIAL_FILE
}

void tst_ZoneFinderNetwork::tellsWhyThereIsNoList()
{
    QFETCH(int, fault);
    QFETCH(int, number);
    FaultAt(0, Fault(fault));

    m->Click("btnNOAAZonesGetList");
    QTRY_VERIFY(!m->dialog->Retrieving());

    QCOMPARE(m->Entries(), QStringList{"Error retrieving " + ListUrl()});
    QCOMPARE(m->Label("lblZoneFiles"),
             QString("Error retrieving %1 -> %2").arg(ListUrl()).arg(number));
    QVERIFY(!m->IsEnabled("btnSelect"));
    QVERIFY(m->IsEnabled("btnNOAAZonesGetList"));
}

void tst_ZoneFinderNetwork::leavesOutFilesThatFail_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("not found") << int(Fault::Denies);
    QTest::newRow("reset") << int(Fault::Resets);
    QTest::newRow("half a file") << int(Fault::SendsHalf);
}

void tst_ZoneFinderNetwork::leavesOutFilesThatFail()
{
    QFETCH(int, fault);
    FaultAt(2, Fault(fault));

    m->Click("btnNOAAZonesGetList");
    QTRY_VERIFY(!m->dialog->Retrieving());

    QCOMPARE(m->Entries(), (QStringList{"MDZ001:  Towson 1", "MDZ003:  Towson 3"}));
    QCOMPARE(m->Label("lblZoneFiles"), "");
}

void tst_ZoneFinderNetwork::readsAListThatIsCutOff()
{
    m_listWithoutLength = true;

    m->Click("btnNOAAZonesGetList");
    QTRY_VERIFY(!m->dialog->Retrieving());

    QCOMPARE(m->Entries(), (QStringList{"MDZ001:  Towson 1", "MDZ002:  Bowie 2"}));
}

void tst_ZoneFinderNetwork::isCancelledWhileTheHostIsSilent_data()
{
    QTest::addColumn<int>("silentAt");
    QTest::addColumn<QString>("progress");
    QTest::newRow("at the list") << 0 << "0%";
    QTest::newRow("at the first file") << 1 << "33.3%  (1 of 3)";
    QTest::newRow("in between") << 2 << "66.7%  (2 of 3)";
    QTest::newRow("at the last file") << 3 << "100.0%  (3 of 3)";
}

void tst_ZoneFinderNetwork::isCancelledWhileTheHostIsSilent()
{
    QFETCH(int, silentAt);
    QFETCH(QString, progress);
    FaultAt(silentAt, Fault::Stalls);
    m->Click("btnNOAAZonesGetList");
    QTRY_COMPARE(m->Label("lblProgress"), progress);
    QTRY_VERIFY(!m_server->Heads().empty() && int(m_server->Heads().size()) > silentAt);

    QElapsedTimer time;
    time.start();
    QTest::mouseClick(m->Find("btnCancel"), Qt::LeftButton);
    QTRY_VERIFY(m->dialog.isNull());

    QVERIFY2(time.elapsed() < kLongestCancel, qPrintable(QString::number(time.elapsed())));
    QVERIFY(!m->isOpen);
    QTRY_VERIFY(m_server->Ended() > 0); // the host sees it too
}

void tst_ZoneFinderNetwork::isCancelledByItsCloseButton()
{
    FaultAt(2, Fault::Stalls);
    m->Click("btnNOAAZonesGetList");
    QTRY_COMPARE(m->Label("lblProgress"), "66.7%  (2 of 3)");

    QElapsedTimer time;
    time.start();
    m->dialog->close();
    QTRY_VERIFY(m->dialog.isNull());

    QVERIFY2(time.elapsed() < kLongestCancel, qPrintable(QString::number(time.elapsed())));
    QVERIFY(!m->isOpen);
}

void tst_ZoneFinderNetwork::letsTheWindowLiveWhileTheHostIsSilent()
{
    FaultAt(1, Fault::Stalls);
    m->Click("btnNOAAZonesGetList");
    QTRY_COMPARE(m->Label("lblProgress"), "33.3%  (1 of 3)");

    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&ticks] { ++ticks; });
    timer.start(1);

    QTRY_VERIFY(ticks >= 20);
    QVERIFY(m->dialog->Retrieving());
}

void tst_ZoneFinderNetwork::endsWithItsOwnerWhileTheHostIsSilent()
{
    FaultAt(2, Fault::Stalls);
    m->Click("btnNOAAZonesGetList");
    QTRY_COMPARE(m->Label("lblProgress"), "66.7%  (2 of 3)");

    m->owner.reset();

    QVERIFY(m->dialog.isNull());
    QVERIFY(!m->isOpen);
    QTRY_VERIFY(m_server->Ended() > 0);
}

void tst_ZoneFinderNetwork::leavesOtherTransfersAlone()
{
    // A weather request that is answered and a forecast request that is not.
    const TransferHandle weather = m_http->Net_HTTPThreadOpen("80");
    const TransferHandle forecast = m_http->Net_HTTPThreadOpen("80");
    QVERIFY(m_http->Net_HTTPThreadGet(weather, ListUrl() + "mdz007.txt"));
    QVERIFY(m_http->Net_HTTPThreadGet(forecast, QString::fromStdString(m_server->Url("/silent"))));

    m->Click("btnNOAAZonesGetList");
    QTRY_VERIFY(!m->dialog->Retrieving());
    QCOMPARE(m->Entries().size(), 3);

    m_faultAt = 1; // the next one is cancelled; no request is under way that could see this change
    m->Click("btnNOAAZonesGetList");
    QTRY_COMPARE(m->Label("lblProgress"), "33.3%  (1 of 3)");
    m->Click("btnCancel");
    QTRY_VERIFY(m->dialog.isNull());

    QTRY_VERIFY(m_http->Net_HTTPThreadIsDone(weather));
    QString text;
    QCOMPARE(m_http->Net_HTTPThreadReturnText(weather, text), 1);
    QVERIFY(text.startsWith("MDZ007-"));
    QVERIFY(!m_http->Net_HTTPThreadIsDone(forecast));
    m_http->Net_HTTPThreadClose(weather);
    m_http->Net_HTTPThreadClose(forecast);
}

QTEST_MAIN(tst_ZoneFinderNetwork)
#include "tst_zone_finder_network.moc"
