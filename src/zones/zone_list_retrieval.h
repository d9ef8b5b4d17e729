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
    Completed,  ///< All files were looked at, whatever they held.
    ListFailed, ///< There is no list of files; an entry and `lblZoneFiles` tell.
    Broken,     ///< Silently: no state is selected, or a file is not what its name says.
    Cancelled,
};

/// What a retrieval shows. None of the calls may destroy the retrieval, except RetrievalEnded().
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
    /// after Cancelled the dialog closes; after all but Cancelled the controls are given back.
    virtual void RetrievalEnded(ZoneListEnd end) = 0;
};

/// Fetches the list of a state's zone files and of each file its entry, without ever waiting.
///
/// To the user and to the view it is as if one file were fetched after the other: labels, entries
/// and counts come in the order of the list. Behind that up to kMostTransfers files are on their
/// way at the same time. It moves only in Start(), Poll() and Cancel(); the dialog polls it every
/// kPollInterval. Destroying it ends its transfers.
class ZoneListRetrieval
{
public:
    static constexpr std::size_t kMostTransfers = 6;
    static constexpr std::chrono::milliseconds kPollInterval{10};

    /// All three outlive the retrieval.
    ZoneListRetrieval(HttpTransfers &http, const Clock &clock, ZoneListView &view);
    ~ZoneListRetrieval();
    Q_DISABLE_COPY_MOVE(ZoneListRetrieval)

    /// Begins to retrieve the list of a state. One that runs already goes on instead.
    /// @param host      scheme and host, no slash at the end.
    /// @param stateCode in any case; empty (none is selected) ends the retrieval at once.
    void Start(const QString &host, const QString &stateCode);

    /// Goes on as far as transfers have ended.
    void Poll();

    /// Breaks off the transfers; the next Poll() ends the retrieval.
    void Cancel();

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

    /// What a transfer brought.
    struct Page
    {
        bool received = false;
        int errorNumber = 0; ///< Not 0 when it was not received.
        QString text = {};
    };

    /// Does one step.
    /// @return true when the next one can follow at once. False behind the end too, when `this` may
    ///         be gone.
    [[nodiscard]] bool Advance();
    [[nodiscard]] bool TakeList();
    [[nodiscard]] bool ReadList();
    [[nodiscard]] bool BeginFile();
    [[nodiscard]] bool TakeFile();
    [[nodiscard]] bool ReadFile();
    [[nodiscard]] bool Finish();
    [[nodiscard]] bool End(ZoneListEnd end);

    void Fetch(const QString &url);
    void FetchAhead();
    [[nodiscard]] std::optional<Page> TakePage();
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
    qsizetype m_next = 0;                   ///< The first that has not been asked for.
    QString m_text;                         ///< What has been received and is to be read.
    std::deque<TransferHandle> m_transfers; ///< In order; the front one's turn it is. May hold 0.
};
