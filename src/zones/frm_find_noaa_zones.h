#pragma once

#include "controls/control.h"
#include "zones/zone_finder_controls.h"
#include "zones/zone_list_retrieval.h"

#include <QTimer>
#include <QWidget>

/// The zone finder: fetches the forecast zones of a state and hands back the one that is chosen.
///
/// A modeless dialog of `owner`, made with `new`: it deletes itself when it is closed, once the
/// event loop runs again, and the owner deletes one that is still open. From Form_Load() until it
/// is closed ZoneFinderOpen is true. Its routines are slots under the names that users and
/// neighbours know, so that a test can call them instead of waiting for a timer.
class frmFindNOAAZones final : public QWidget, private ZoneListView, private ZoneFinderControls
{
    Q_OBJECT

public:
    /// Logical pixels, without frame and title; it can be drawn wider, and no higher.
    static constexpr QSize kClientSize{Twips(10365), Twips(5625)};

    /// What is handed in by reference outlives the dialog.
    /// @param host               scheme and host of the zone files, no slash at the end.
    /// @param zoneFinderOpen     the program's `ZoneFinderOpen`.
    /// @param selectedStateIndex index of the state that is chosen at first, 0..49.
    frmFindNOAAZones(HttpTransfers &http, const Clock &clock, QString host, bool &zoneFinderOpen,
                     qint16 selectedStateIndex, QWidget *owner);
    ~frmFindNOAAZones() override;
    Q_DISABLE_COPY_MOVE(frmFindNOAAZones)

    /// Fills the list of states; to be called once, before the dialog is shown.
    void Form_Load();

    /// Tells that the dialog is no longer open; does so once.
    void Form_Unload();

    /// Takes the text of a transfer of zone codes (`txtZonesTest`).
    void SetZonesTest(const QString &text);

    [[nodiscard]] bool Retrieving() const { return m_retrieval.Retrieving(); }

Q_SIGNALS:
    /// An entry was selected; the dialog closes behind this.
    /// @param zone      the zone code in upper case, "MDZ011".
    /// @param stateCode of the state that is chosen at this moment, "MD".
    void ZoneSelected(const QString &zone, const QString &stateCode);

public Q_SLOTS:
    void Form_Resize();
    void btnNOAAZonesGetList_Click();
    void btnCancel_Click();
    void btnSearch_Click();
    void btnSelect_Click();
    void lstZoneCodes_Click();
    void txtSearch_Change();
    void RestoreFinderControls();
    void tmrRetrieval_Timer(); ///< Runs during a retrieval only.

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
