#include "zones/zone_list_retrieval.h"

#include "core/number_picture.h"
#include "core/trace.h"
#include "zones/zone_header.h"
#include "zones/zone_listing.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNotStarted = 2; // the blocking fetch's number for "no transfers at all"
constexpr double kPercent = 100;

/// "33.3%  (1 of 3)"
QString ProgressText(qsizetype done, qsizetype count)
{
    const double percent = static_cast<double>(done) / static_cast<double>(count) * kPercent;
    return FormatNumber(percent, u"0.0") + "%  ("_L1 + QString::number(done) + " of "_L1
         + QString::number(count) + u')';
}

} // namespace

ZoneListRetrieval::ZoneListRetrieval(HttpTransfers &http, const Clock &clock, ZoneListView &view)
    : m_http(http)
    , m_clock(clock)
    , m_view(view)
{}

ZoneListRetrieval::~ZoneListRetrieval()
{
    CloseTransfers();
}

void ZoneListRetrieval::Start(const QString &host, const QString &stateCode)
{
    if (Retrieving())
        return;
    m_step = Step::AwaitList;
    m_cancelRequested = false;
    m_found = false;
    m_view.SetProgress(u"0%"_s);
    if (stateCode.isEmpty()) {
        static_cast<void>(End(ZoneListEnd::Broken));
        return;
    }

    m_state = stateCode.toLower();
    m_listUrl = host + "/data/forecasts/zone/"_L1 + m_state + u'/';
    m_view.ClearEntries();
    m_view.SetFileNames({});
    m_view.SetZoneFiles("Requesting Zone List: "_L1 + m_listUrl);
    Fetch(m_listUrl);
}

void ZoneListRetrieval::Poll()
{
    while (Advance()) {
    }
}

void ZoneListRetrieval::Cancel()
{
    m_cancelRequested = Retrieving();
    CloseTransfers();
}

bool ZoneListRetrieval::Advance()
{
    switch (m_step) {
    case Step::Idle:
        return false;
    case Step::AwaitList:
        return PollList();
    case Step::ReadList:
        return ReadList();
    case Step::BeginFile:
        return BeginFile();
    case Step::AwaitFile:
        return PollFile();
    case Step::ReadFile:
        return ReadFile();
    case Step::Finish:
        return Finish();
    }
    return false;
}

bool ZoneListRetrieval::PollList()
{
    const std::optional<Page> page = PollPage();
    if (!page)
        return false;
    const QString failure = "Error retrieving "_L1 + m_listUrl;
    Trace(m_listUrl, u" -> ", page->received ? page->text : failure);
    if (m_cancelRequested)
        return End(ZoneListEnd::Cancelled);
    if (!page->received) {
        m_view.AddEntry(failure);
        m_view.SetZoneFiles(failure + " -> "_L1 + QString::number(page->errorNumber));
        return End(ZoneListEnd::ListFailed);
    }
    m_view.SetZoneFiles("Received Zone List:   "_L1 + m_listUrl);
    m_text = page->text;
    m_step = Step::ReadList;
    return false; // the label is painted before a long list is read
}

bool ZoneListRetrieval::ReadList()
{
    m_fileNames = ZoneFileNames(std::exchange(m_text, {}), m_state, m_clock.Now().date());
    m_file = 0;
    m_next = 0;
    m_view.SetFileNames(m_fileNames);
    m_view.ClearEntries();
    m_step = Step::BeginFile;
    return true;
}

bool ZoneListRetrieval::BeginFile()
{
    if (m_file == m_fileNames.size()) {
        m_step = Step::Finish;
        return true;
    }
    m_view.SetProgress(ProgressText(m_file + 1, m_fileNames.size()));
    if (m_cancelRequested)
        return End(ZoneListEnd::Cancelled);
    m_view.SetZoneFiles("Requesting Zone Data: "_L1 + FileUrl() + "..."_L1);
    FetchAhead();
    m_step = Step::AwaitFile;
    return true;
}

bool ZoneListRetrieval::PollFile()
{
    std::optional<Page> page = PollPage();
    if (!page)
        return false;
    if (page->received) {
        m_view.SetZoneFiles("Received Zone Data:   "_L1 + FileUrl());
        m_text = std::move(page->text);
        m_step = Step::ReadFile;
    } else {
        m_view.SetZoneFiles("No Zone Data Received:"_L1 + FileUrl()); // no blank after it
        ++m_file;
        m_step = Step::BeginFile;
    }
    return true;
}

bool ZoneListRetrieval::ReadFile()
{
    if (m_cancelRequested)
        return End(ZoneListEnd::Cancelled);
    const std::optional<QString> entry =
        ZoneEntry(std::exchange(m_text, {}), m_fileNames.at(m_file));
    if (!entry)
        return End(ZoneListEnd::Broken);
    m_view.AddEntry(*entry);
    m_found = true;
    ++m_file;
    m_step = Step::BeginFile;
    return true;
}

bool ZoneListRetrieval::Finish()
{
    if (m_cancelRequested)
        return End(ZoneListEnd::Cancelled);
    m_view.SetZoneFiles(m_found ? QString() : u"No Valid Forecast Data Found"_s);
    return End(ZoneListEnd::Completed);
}

bool ZoneListRetrieval::End(ZoneListEnd end)
{
    CloseTransfers();
    m_step = Step::Idle;
    m_text.clear();
    m_fileNames.clear();
    m_view.RetrievalEnded(end); // last: it may destroy this
    return false;
}

void ZoneListRetrieval::Fetch(const QString &url)
{
    if (m_cancelRequested)
        return;
    // A handle that cannot be opened counts as a failed transfer, and so does one that is refused.
    const TransferHandle handle = m_http.Net_HTTPThreadOpen(u"80"_s);
    if (handle != 0)
        m_http.Net_HTTPThreadGet(handle, url);
    m_transfers.push_back(handle);
}

void ZoneListRetrieval::FetchAhead()
{
    const qsizetype end =
        std::min(m_fileNames.size(), m_file + static_cast<qsizetype>(kMostTransfers));
    while (m_next < end)
        Fetch(m_listUrl + m_fileNames.at(m_next++));
}

std::optional<ZoneListRetrieval::Page> ZoneListRetrieval::PollPage()
{
    if (m_transfers.empty()) // cancelled
        return Page{.errorNumber = kNotStarted};
    const TransferHandle handle = m_transfers.front();
    if (!m_http.Net_HTTPThreadIsDone(handle))
        return std::nullopt;
    Page page;
    page.received = m_http.Net_HTTPThreadReturnText(handle, page.text) > 0;
    if (!page.received)
        page.errorNumber = handle == 0 ? kNotStarted : m_http.Net_HTTPThreadReply(handle).error;
    m_http.Net_HTTPThreadClose(handle);
    m_transfers.pop_front();
    return page;
}

void ZoneListRetrieval::CloseTransfers()
{
    for (const TransferHandle handle : std::exchange(m_transfers, {}))
        m_http.Net_HTTPThreadClose(handle);
}

QString ZoneListRetrieval::FileUrl() const
{
    return m_listUrl + m_fileNames.at(m_file);
}
