#pragma once

#include "core/twips.h"
#include "zones/zone_finder_controls.h"
#include "zones/zone_list_retrieval.h"

#include <QTimer>
#include <QWidget>

/// The zone finder: fetches the forecast zones of a state and returns the chosen one.
///
/// A modeless dialog of `owner`, made with `new`: after it is closed it deletes itself, once the
/// event loop runs again; the owner deletes one that is still open. ZoneFinderOpen is true from
/// Form_Load() until it is closed. Its routines are slots, so that a test can call them by name
/// instead of waiting for a timer.
class frmFindNOAAZones final : public QWidget, private ZoneListView, private ZoneFinderControls
{
    Q_OBJECT

public:
    /// Logical pixels, without frame and title; the user can make it wider, but not higher.
    static constexpr QSize kClientSize{Twips(10365), Twips(5625)};

    /// Everything passed by reference must outlive the dialog.
    /// @param host               scheme and host of the zone files, without a trailing slash.
    /// @param zoneFinderOpen     the program's `ZoneFinderOpen`.
    /// @param selectedStateIndex index of the initially chosen state, 0..49.
    frmFindNOAAZones(HttpTransfers &http, const Clock &clock, QString host, bool &zoneFinderOpen,
                     qint16 selectedStateIndex, QWidget *owner);
    ~frmFindNOAAZones() override;
    Q_DISABLE_COPY_MOVE(frmFindNOAAZones)

    /// Fills the list of states. Call it once, before the dialog is shown.
    void Form_Load();

    /// Clears ZoneFinderOpen, because the dialog is no longer open; only the first call does.
    void Form_Unload();

    /// Puts the text of a transfer of zone codes into `txtZonesTest`.
    void SetZonesTest(const QString &text);

    /// Whether a list is being fetched. Closing the dialog then cancels that first.
    [[nodiscard]] bool Retrieving() const { return m_retrieval.Retrieving(); }

Q_SIGNALS:
    /// An entry was selected; the dialog closes after this.
    /// @param zone      the zone code in upper case, "MDZ011".
    /// @param stateCode of the state that is chosen at this moment, "MD".
    void ZoneSelected(const QString &zone, const QString &stateCode);

public Q_SLOTS:
    void Form_Resize();               ///< Places the controls; at every change of size or font.
    void btnNOAAZonesGetList_Click(); ///< Starts fetching the zones of the chosen state.
    void btnCancel_Click();           ///< Closes the dialog; a retrieval is cancelled first.
    void btnSearch_Click();           ///< Selects the next entry with the text; Enter does so, too.
    void btnSelect_Click();           ///< Reports the selected entry and closes the dialog.
    void lstZoneCodes_Click();        ///< An entry was selected: it can be chosen now.
    void txtSearch_Change();          ///< Another text to search for: nothing is selected any more.
    void RestoreFinderControls();     ///< Undoes what the start of a retrieval disabled.
    void tmrRetrieval_Timer();        ///< Every 10 ms, during a retrieval only: polls it.

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // What the retrieval shows.
    void SetProgress(const QString &text) override;
    void SetZoneFiles(const QString &text) override;
    void SetFileNames(const QStringList &fileNames) override;
    void ClearEntries() override;
    void AddEntry(const QString &entry) override;
    void RetrievalEnded(ZoneListEnd end) override;

    void ConnectControls();
    void EnableFinderControls(bool enabled);
    void GiveFocusBack();
    [[nodiscard]] QString StateCode() const;
    [[nodiscard]] QStringList Entries() const;
    [[nodiscard]] int SelectedEntry() const;
    void SelectEntry(int entry);

    QString m_host;
    bool &ZoneFinderOpen;
    qint16 SelectedStateIndex;
    bool m_loaded = false; ///< From Form_Load() to Form_Unload().

    ZoneListRetrieval m_retrieval;
    QTimer tmrRetrieval;
};
