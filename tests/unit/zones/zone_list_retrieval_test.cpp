#include "support/fake_transfers.h"
#include "support/fixed_clock.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "zones/zone_list_retrieval.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

const QString kList = "https://host/data/forecasts/zone/md/";

/// Records what it is told, one line per call.
class RecordedListView final : public ZoneListView
{
public:
    void SetProgress(const QString &text) override { Add("progress " + text); }
    void SetZoneFiles(const QString &text) override { Add("label " + text); }
    void SetFileNames(const QStringList &fileNames) override
    {
        Add("files " + fileNames.join(' '));
    }
    void ClearEntries() override { Add("clear"); }
    void AddEntry(const QString &entry) override { Add("entry " + entry); }
    void RetrievalEnded(ZoneListEnd end) override
    {
        const char *names[] = {"completed", "list failed", "broken", "cancelled"};
        Add(QStringLiteral("end ") + names[static_cast<std::size_t>(end)]);
    }

    /// What has come since the last call.
    QStringList Take() { return std::exchange(lines, {}); }

    QStringList lines;
    std::function<void(const QString &line)> onLine; ///< May be empty.

private:
    void Add(const QString &line)
    {
        lines.append(line);
        if (onLine)
            onLine(line);
    }
};

QString FileName(int number)
{
    return QStringLiteral("mdz%1.txt").arg(number, 3, 10, QChar('0'));
}

/// A list of the files with these numbers, all of 16 November 2026.
QString List(const QList<int> &numbers)
{
    QString rows = "<table>";
    for (const int number : numbers)
        rows += "<tr><td><a href=\"" + FileName(number) + "\">x</a> 16-Nov-2026 10:15";
    return rows;
}

/// The file of a zone at the place `name`.
QString File(int number, const QString &name)
{
    return FileName(number).first(6).toUpper() + "-161500-\n" + name + "-\n1015 AM\n";
}

class ZoneRetrieval : public testing::Test
{
protected:
    [[nodiscard]] TransferHandle HandleOf(const QString &url) const
    {
        const auto found = std::find_if(http.open.begin(), http.open.end(),
                                        [&](const auto &open) { return open.second.url == url; });
        return found == http.open.end() ? 0 : found->first;
    }

    void FinishUrl(const QString &url, const QString &text)
    {
        ASSERT_NE(HandleOf(url), 0) << url.toStdString();
        http.Finish(HandleOf(url), text);
    }
    void FinishFile(int number) { FinishUrl(kList + FileName(number), File(number, "Town")); }
    void FailFile(int number) { http.Fail(HandleOf(kList + FileName(number))); }

    /// Starts and lets the list arrive; by then the files have been requested.
    void StartWith(const QList<int> &numbers)
    {
        retrieval->Start("https://host", "MD");
        FinishUrl(kList, List(numbers));
        retrieval->Poll(); // shows that the list is there
        retrieval->Poll(); // reads it
    }

    /// The numbers of the files that are on their way, in order.
    [[nodiscard]] QStringList OnTheirWay() const
    {
        QStringList names;
        for (const auto &[handle, transfer] : http.open)
            names.append(transfer.url.sliced(kList.size()));
        return names;
    }

    /// Cancels from within the call that brings `line`.
    void CancelAt(const QString &line)
    {
        view.onLine = [this, line](const QString &shown) {
            if (shown == line)
                retrieval->Cancel();
        };
    }

    FakeTransfers http;
    FixedClock clock{QDateTime(QDate(2026, 11, 16), QTime(12, 0))};
    RecordedListView view;
    std::unique_ptr<ZoneListRetrieval> retrieval =
        std::make_unique<ZoneListRetrieval>(http, clock, view);
};

TEST_F(ZoneRetrieval, ShowsEachStepInItsOrder)
{
    EXPECT_FALSE(retrieval->Retrieving());

    retrieval->Start("https://host", "MD");
    EXPECT_TRUE(retrieval->Retrieving());
    EXPECT_EQ(view.Take(), (QStringList{"progress 0%", "clear", "files ",
                                        "label Requesting Zone List: "
                                        "https://host/data/forecasts/zone/md/"}));
    EXPECT_EQ(http.calls, (QStringList{"open 80", "get https://host/data/forecasts/zone/md/"}));
    retrieval->Poll();
    EXPECT_EQ(view.Take(), QStringList());

    FinishUrl(kList, List({11, 12, 13}));
    retrieval->Poll();
    EXPECT_EQ(view.Take(), QStringList{"label Received Zone List:   "
                                       "https://host/data/forecasts/zone/md/"});

    retrieval->Poll();
    EXPECT_EQ(view.Take(), (QStringList{"files mdz011.txt mdz012.txt mdz013.txt", "clear",
                                        "progress 33.3%  (1 of 3)",
                                        "label Requesting Zone Data: "
                                        "https://host/data/forecasts/zone/md/mdz011.txt..."}));

    FinishUrl(kList + "mdz011.txt", "MDZ011-1-\nTowson-\n1 AM\n");
    retrieval->Poll();
    EXPECT_EQ(view.Take(), (QStringList{"label Received Zone Data:   "
                                        "https://host/data/forecasts/zone/md/mdz011.txt",
                                        "entry MDZ011:  Towson", "progress 66.7%  (2 of 3)",
                                        "label Requesting Zone Data: "
                                        "https://host/data/forecasts/zone/md/mdz012.txt..."}));

    FailFile(12);
    retrieval->Poll();
    EXPECT_EQ(view.Take(), (QStringList{"label No Zone Data Received:"
                                        "https://host/data/forecasts/zone/md/mdz012.txt",
                                        "progress 100.0%  (3 of 3)",
                                        "label Requesting Zone Data: "
                                        "https://host/data/forecasts/zone/md/mdz013.txt..."}));

    EXPECT_TRUE(retrieval->Retrieving());
    FinishUrl(kList + "mdz013.txt", "MDZ013-1-\nBowie-\n1 AM\n");
    retrieval->Poll();
    EXPECT_EQ(view.Take(), (QStringList{"label Received Zone Data:   "
                                        "https://host/data/forecasts/zone/md/mdz013.txt",
                                        "entry MDZ013:  Bowie", "label ", "end completed"}));
    EXPECT_FALSE(retrieval->Retrieving());
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ZoneRetrieval, RoundsThePercentagesAsPictures)
{
    QList<int> numbers;
    for (int number = 1; number <= 16; ++number)
        numbers.append(number);

    StartWith(numbers);

    EXPECT_TRUE(view.lines.contains("progress 6.3%  (1 of 16)"));
}

TEST_F(ZoneRetrieval, AsksTheHostForTheStateInSmallLetters)
{
    retrieval->Start("http://127.0.0.1:4711", "WY");

    EXPECT_EQ(http.calls.last(), "get http://127.0.0.1:4711/data/forecasts/zone/wy/");
}

TEST_F(ZoneRetrieval, TracesTheListAsItCame)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, "no rows");
    const RecordedTrace trace;

    retrieval->Poll();
    retrieval->Poll();

    EXPECT_EQ(trace.lines, (QStringList{"https://host/data/forecasts/zone/md/ -> no rows",
                                        "startpos = 0 for no rows"}));
}

TEST_F(ZoneRetrieval, TakesTheDateOfTheMomentAtWhichTheListIsRead)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({11}));
    clock.Set(QDateTime(QDate(2026, 11, 19), QTime(12, 0)));

    retrieval->Poll();
    retrieval->Poll();

    EXPECT_EQ(view.lines.last(2),
              (QStringList{"label No Valid Forecast Data Found", "end completed"}));
}

TEST_F(ZoneRetrieval, LeavesOutStaleRows)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({11}).replace("16-Nov", "13-Nov") + List({12}).sliced(7));

    retrieval->Poll();
    retrieval->Poll();

    EXPECT_TRUE(view.lines.contains("files mdz012.txt"));
    EXPECT_TRUE(view.lines.contains("progress 100.0%  (1 of 1)"));
}

// --- failures

TEST_F(ZoneRetrieval, TellsTheNumberOfAListThatFailed)
{
    retrieval->Start("https://host", "MD");
    view.Take();
    http.Fail(HandleOf(kList), "HTTP 404", 404);
    const RecordedTrace trace;

    retrieval->Poll();

    EXPECT_EQ(view.Take(),
              (QStringList{"entry Error retrieving https://host/data/forecasts/zone/md/",
                           "label Error retrieving https://host/data/forecasts/zone/md/ -> 404",
                           "end list failed"}));
    EXPECT_EQ(trace.lines, QStringList{"https://host/data/forecasts/zone/md/ -> "
                                       "Error retrieving https://host/data/forecasts/zone/md/"});
    EXPECT_FALSE(retrieval->Retrieving());
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ZoneRetrieval, TellsTheNumberOfAListThatCannotBeAskedFor)
{
    http.refuseGet = true;
    retrieval->Start("host", "MD");
    retrieval->Poll();
    EXPECT_EQ(view.lines.last(2),
              (QStringList{"label Error retrieving host/data/forecasts/zone/md/ -> 3",
                           "end list failed"}));

    http.refuseOpen = true;
    retrieval->Start("https://host", "MD");
    retrieval->Poll();
    EXPECT_EQ(view.lines.last(2),
              (QStringList{"label Error retrieving https://host/data/forecasts/zone/md/ -> 2",
                           "end list failed"}));
}

TEST_F(ZoneRetrieval, FindsNothingInAnEmptyList)
{
    StartWith({});

    EXPECT_EQ(
        view.lines.last(4),
        (QStringList{"files ", "clear", "label No Valid Forecast Data Found", "end completed"}));
}

TEST_F(ZoneRetrieval, FindsNothingWhenEveryFileFails)
{
    StartWith({1, 2});
    FailFile(1);
    FailFile(2);

    retrieval->Poll();

    EXPECT_EQ(view.lines.last(3),
              (QStringList{"label No Zone Data Received:" + kList + "mdz002.txt",
                           "label No Valid Forecast Data Found", "end completed"}));
}

TEST_F(ZoneRetrieval, CountsFilesThatCannotBeAskedForAsFailed)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({1, 2}));
    retrieval->Poll();
    http.refuseOpen = true;

    retrieval->Poll();

    EXPECT_TRUE(view.lines.contains("label No Zone Data Received:" + kList + "mdz001.txt"));
    EXPECT_EQ(view.lines.last(2),
              (QStringList{"label No Valid Forecast Data Found", "end completed"}));
}

TEST_F(ZoneRetrieval, EndsSilentlyAtAFileWithoutItsOwnCode)
{
    StartWith({1, 2, 3});
    FinishFile(1);
    FinishUrl(kList + "mdz002.txt", "PAZ001-1-\nYork-\n");
    FinishFile(3);
    view.Take();

    retrieval->Poll();

    EXPECT_EQ(view.Take(),
              (QStringList{"label Received Zone Data:   " + kList + "mdz001.txt",
                           "entry MDZ001:  Town", "progress 66.7%  (2 of 3)",
                           "label Requesting Zone Data: " + kList + "mdz002.txt...",
                           "label Received Zone Data:   " + kList + "mdz002.txt", "end broken"}));
    EXPECT_FALSE(retrieval->Retrieving());
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ZoneRetrieval, EndsSilentlyWithoutAState)
{
    retrieval->Start("https://host", "");

    EXPECT_EQ(view.Take(), (QStringList{"progress 0%", "end broken"}));
    EXPECT_FALSE(retrieval->Retrieving());
    EXPECT_TRUE(http.calls.isEmpty());
}

// --- several files on their way

TEST_F(ZoneRetrieval, HasSixFilesOnTheirWayAtMost)
{
    StartWith({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(OnTheirWay(), (QStringList{"mdz001.txt", "mdz002.txt", "mdz003.txt", "mdz004.txt",
                                         "mdz005.txt", "mdz006.txt"}));

    FinishFile(1);
    retrieval->Poll();
    EXPECT_EQ(OnTheirWay(), (QStringList{"mdz002.txt", "mdz003.txt", "mdz004.txt", "mdz005.txt",
                                         "mdz006.txt", "mdz007.txt"}));

    FinishFile(2);
    FinishFile(3);
    FinishFile(4);
    retrieval->Poll();
    EXPECT_EQ(OnTheirWay(), (QStringList{"mdz005.txt", "mdz006.txt", "mdz007.txt", "mdz008.txt"}));
}

TEST_F(ZoneRetrieval, ShowsFilesInTheOrderOfTheListHoweverTheyArrive)
{
    StartWith({1, 2, 3});
    view.Take();

    FinishFile(3);
    FailFile(2);
    retrieval->Poll();
    EXPECT_EQ(view.Take(), QStringList());

    FinishFile(1);
    retrieval->Poll();
    EXPECT_EQ(view.Take(), (QStringList{"label Received Zone Data:   " + kList + "mdz001.txt",
                                        "entry MDZ001:  Town", "progress 66.7%  (2 of 3)",
                                        "label Requesting Zone Data: " + kList + "mdz002.txt...",
                                        "label No Zone Data Received:" + kList + "mdz002.txt",
                                        "progress 100.0%  (3 of 3)",
                                        "label Requesting Zone Data: " + kList + "mdz003.txt...",
                                        "label Received Zone Data:   " + kList + "mdz003.txt",
                                        "entry MDZ003:  Town", "label ", "end completed"}));
}

TEST_F(ZoneRetrieval, ShowsEveryFileOfALongList)
{
    QList<int> numbers;
    for (int number = 1; number <= 254; ++number)
        numbers.append(number);
    StartWith(numbers);

    for (int polls = 0; retrieval->Retrieving() && polls < 254; ++polls) {
        for (auto &[handle, transfer] : http.open) {
            const int number = transfer.url.sliced(kList.size() + 3, 3).toInt();
            http.Finish(handle, File(number, QString::number(number)));
        }
        retrieval->Poll();
    }

    QStringList entries;
    for (const QString &line : view.lines) {
        if (line.startsWith("entry "))
            entries.append(line);
    }
    ASSERT_EQ(entries.size(), 254);
    EXPECT_EQ(entries.front(), "entry MDZ001:  1");
    EXPECT_EQ(entries.at(99), "entry MDZ100:  100");
    EXPECT_EQ(entries.back(), "entry MDZ254:  254");
    EXPECT_EQ(view.lines.filter("progress ").size(), 255);
    EXPECT_TRUE(view.lines.contains("progress 39.4%  (100 of 254)")); // 39.37...
    EXPECT_EQ(view.lines.last(2), (QStringList{"label ", "end completed"}));
}

// --- cancelling

TEST_F(ZoneRetrieval, IsCancelledWhileTheListIsOnItsWay)
{
    retrieval->Start("https://host", "MD");
    view.Take();

    retrieval->Cancel();
    EXPECT_TRUE(http.open.empty()); // at once
    EXPECT_EQ(view.Take(), QStringList());
    EXPECT_TRUE(retrieval->Retrieving());

    retrieval->Poll();
    EXPECT_EQ(view.Take(), QStringList{"end cancelled"});
    EXPECT_FALSE(retrieval->Retrieving());
}

TEST_F(ZoneRetrieval, IsCancelledAheadOfTheFirstFile)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({1}));
    retrieval->Poll();
    http.calls.clear();

    retrieval->Cancel();
    retrieval->Poll();

    EXPECT_EQ(view.lines.last(2), (QStringList{"progress 100.0%  (1 of 1)", "end cancelled"}));
    EXPECT_EQ(http.calls, QStringList()); // no file was requested
}

TEST_F(ZoneRetrieval, IsCancelledWhileAFileIsOnItsWay)
{
    StartWith({1, 2, 3});
    FinishFile(1);
    retrieval->Poll();
    view.Take();
    http.calls.clear();

    retrieval->Cancel();
    EXPECT_TRUE(http.open.empty());
    EXPECT_EQ(http.calls, (QStringList{"close 3", "close 4"}));
    retrieval->Poll();

    EXPECT_EQ(view.Take(), (QStringList{"label No Zone Data Received:" + kList + "mdz002.txt",
                                        "progress 100.0%  (3 of 3)", "end cancelled"}));
    EXPECT_EQ(http.calls.size(), 2); // nothing new was requested
}

TEST_F(ZoneRetrieval, IsCancelledWhileTheLastFileIsOnItsWay)
{
    StartWith({1});
    view.Take();

    retrieval->Cancel();
    retrieval->Poll();

    EXPECT_EQ(view.Take(), (QStringList{"label No Zone Data Received:" + kList + "mdz001.txt",
                                        "end cancelled"}));
}

TEST_F(ZoneRetrieval, IsCancelledInTheSearchForTheHeader)
{
    StartWith({1, 2});
    FinishFile(1);
    view.Take();
    CancelAt("label Received Zone Data:   " + kList + "mdz001.txt");

    retrieval->Poll();

    EXPECT_EQ(view.Take(), (QStringList{"label Received Zone Data:   " + kList + "mdz001.txt",
                                        "end cancelled"}));
    EXPECT_TRUE(http.open.empty());
}

TEST_F(ZoneRetrieval, IsCancelledAfterTheLastFile)
{
    StartWith({1});
    FinishFile(1);
    CancelAt("entry MDZ001:  Town");

    retrieval->Poll();

    EXPECT_EQ(view.lines.last(2), (QStringList{"entry MDZ001:  Town", "end cancelled"}));
}

TEST_F(ZoneRetrieval, IsCancelledWithAnEmptyList)
{
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({}));
    retrieval->Poll();

    retrieval->Cancel();
    retrieval->Poll();

    EXPECT_EQ(view.lines.last(2), (QStringList{"clear", "end cancelled"}));
}

TEST_F(ZoneRetrieval, AsksForNothingOnceItIsCancelled)
{
    CancelAt("label Requesting Zone List: " + kList);
    retrieval->Start("https://host", "MD");
    retrieval->Poll();
    EXPECT_EQ(http.calls, QStringList());
    EXPECT_EQ(view.lines.last(), "end cancelled");

    view.onLine = {};
    retrieval->Start("https://host", "MD");
    FinishUrl(kList, List({1, 2}));
    retrieval->Poll();
    http.calls.clear();
    CancelAt("label Requesting Zone Data: " + kList + "mdz001.txt...");
    retrieval->Poll();
    EXPECT_EQ(http.calls, QStringList());
    EXPECT_EQ(view.lines.last(), "end cancelled");
}

TEST_F(ZoneRetrieval, HasNothingToCancelBeforeItsStart)
{
    retrieval->Cancel();
    retrieval->Poll();
    EXPECT_EQ(view.Take(), QStringList());

    StartWith({1});
    FinishFile(1);
    retrieval->Poll();
    EXPECT_EQ(view.lines.last(), "end completed");
}

// --- more than once, and never to the end

TEST_F(ZoneRetrieval, GoesOnWhenItIsStartedTwice)
{
    retrieval->Start("https://host", "MD");
    view.Take();

    retrieval->Start("https://other", "VA");

    EXPECT_EQ(view.Take(), QStringList());
    EXPECT_EQ(http.calls.size(), 2);
}

TEST_F(ZoneRetrieval, BeginsAnewAfterItsEnd)
{
    StartWith({1, 2});
    FinishFile(1);
    retrieval->Poll();
    retrieval->Cancel();
    retrieval->Poll();
    view.Take();

    StartWith({3});
    FailFile(3);
    retrieval->Poll();

    // Nothing is left of the entry found the first time.
    EXPECT_EQ(view.lines.first(3), (QStringList{"progress 0%", "clear", "files "}));
    EXPECT_EQ(view.lines.last(2),
              (QStringList{"label No Valid Forecast Data Found", "end completed"}));
}

TEST_F(ZoneRetrieval, MayBeStartedAgainFromItsEnd)
{
    view.onLine = [this](const QString &line) {
        if (line == "end list failed")
            retrieval->Start("https://host", "VA");
    };
    retrieval->Start("https://host", "MD");
    http.Fail(HandleOf(kList));

    retrieval->Poll();

    EXPECT_TRUE(retrieval->Retrieving());
    EXPECT_EQ(view.lines.last(),
              "label Requesting Zone List: https://host/data/forecasts/zone/va/");
    EXPECT_EQ(http.open.size(), 1U);
}

TEST_F(ZoneRetrieval, ClosesItsTransfersWhenItIsDestroyed)
{
    StartWith({1, 2, 3});
    EXPECT_EQ(http.open.size(), 3U);

    retrieval.reset();

    EXPECT_TRUE(http.open.empty());
    EXPECT_EQ(view.lines.filter("end ").size(), 0);
}

TEST_F(ZoneRetrieval, MayBeDestroyedFromItsEnd)
{
    view.onLine = [this](const QString &line) {
        if (line.startsWith("end "))
            retrieval.reset();
    };

    StartWith({1});
    FinishFile(1);
    retrieval->Poll();
    EXPECT_EQ(retrieval, nullptr);

    retrieval = std::make_unique<ZoneListRetrieval>(http, clock, view);
    StartWith({1});
    retrieval->Cancel();
    retrieval->Poll();
    EXPECT_EQ(retrieval, nullptr);

    retrieval = std::make_unique<ZoneListRetrieval>(http, clock, view);
    retrieval->Start("https://host", "");
    EXPECT_EQ(retrieval, nullptr);
    EXPECT_TRUE(http.open.empty());
}

} // namespace
