#pragma once

#include "core/clock.h"
#include "net/http_transfers.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <deque>
#include <optional>

/// How a retrieval ended.
enum class ZoneListEnd
{
    Completed,  ///< All files were processed, whatever they contained.
    ListFailed, ///< There is no list of files; an entry and `lblZoneFiles` say so.
    Broken,     ///< Silently: no state is selected, or a file is not what its name says.
    Cancelled,
};

/// Shows the progress of a retrieval. No call except RetrievalEnded() may destroy the retrieval.
class ZoneListView
{
public:
    ZoneListView() = default;
    virtual ~ZoneListView() = default;
    Q_DISABLE_COPY_MOVE(ZoneListView)

    virtual void SetProgress(const QString &text) = 0;           ///< `lblProgress`
    virtual void SetZoneFiles(const QString &text) = 0;          ///< `lblZoneFiles`
    virtual void SetFileNames(const QStringList &fileNames) = 0; ///< `lstZoneFiles`
    virtual void ClearEntries() = 0;                             ///< `lstZoneCodes`
    virtual void AddEntry(const QString &entry) = 0;             ///< `lstZoneCodes`

    /// The retrieval is over and will not call again. After ListFailed `btnSelect` is disabled,
    /// after Cancelled the dialog closes; after all but Cancelled the controls are enabled again.
    virtual void RetrievalEnded(ZoneListEnd end) = 0;
};

/// Fetches the list of a state's zone files and the entry from each file, without ever waiting.
///
/// To the user and the view, files appear to be fetched one after another: labels, entries and
/// counts come in list order. Behind the scenes up to kMostTransfers files are in transfer at a
/// time. It advances only in Start(), Poll() and Cancel(); the dialog polls it every
/// kPollInterval. Destroying it ends its transfers.
class ZoneListRetrieval
{
public:
    static constexpr std::size_t kMostTransfers = 6;
    static constexpr std::chrono::milliseconds kPollInterval{10};

    /// All three must outlive the retrieval.
    ZoneListRetrieval(HttpTransfers &http, const Clock &clock, ZoneListView &view);
    ~ZoneListRetrieval();
    Q_DISABLE_COPY_MOVE(ZoneListRetrieval)

    /// Starts retrieving the list of a state. If a retrieval is running, it continues instead.
    /// @param host      scheme and host, without a trailing slash.
    /// @param stateCode in any case; empty (none is selected) ends the retrieval at once.
    void Start(const QString &host, const QString &stateCode);

    /// Advances as far as transfers have ended.
    void Poll();

    /// Aborts the transfers; the next Poll() ends the retrieval.
    void Cancel();

    /// True from Start() until just before RetrievalEnded() is called.
    [[nodiscard]] bool Retrieving() const { return m_step != Step::Idle; }

private:
    enum class Step
    {
        Idle,
        AwaitList,
        ReadList,
        BeginFile,
        AwaitFile,
        ReadFile,
        Finish,
    };

    /// The outcome of a transfer.
    struct Page
    {
        bool received = false;
        int errorNumber = 0; ///< Not 0 if it was not received.
        QString text = {};
    };

    /// Does one step.
    /// @return true if the next one can follow at once. False after the end too, when `this` may
    ///         no longer exist.
    [[nodiscard]] bool Advance();
    [[nodiscard]] bool PollList();
    [[nodiscard]] bool ReadList();
    [[nodiscard]] bool BeginFile();
    [[nodiscard]] bool PollFile();
    [[nodiscard]] bool ReadFile();
    [[nodiscard]] bool Finish();
    [[nodiscard]] bool End(ZoneListEnd end);

    void Fetch(const QString &url);
    void FetchAhead();
    [[nodiscard]] std::optional<Page> PollPage();
    void CloseTransfers();
    [[nodiscard]] QString FileUrl() const;

    HttpTransfers &m_http;
    const Clock &m_clock;
    ZoneListView &m_view;

    Step m_step = Step::Idle;
    bool m_cancelRequested = false;
    bool m_found = false; ///< There was an entry.
    QString m_state;      ///< In lower case.
    QString m_listUrl;    ///< With a slash at its end.
    QStringList m_fileNames;
    qsizetype m_file = 0;                   ///< The one whose turn it is.
    qsizetype m_next = 0;                   ///< The first that has not been requested.
    QString m_text;                         ///< Received, still to be read.
    std::deque<TransferHandle> m_transfers; ///< In order; it is the front one's turn. May hold 0.
};
