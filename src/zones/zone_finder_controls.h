#pragma once

#include <QString>

class ElidedLabel;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QWidget;
class ZoneListBox;

/// The controls of the zone finder. Its window owns all of them.
struct ZoneFinderControls
{
    /// Makes all controls and sets the order of the Tab key. Call it once, before any is used.
    void Build(QWidget *window);

    /// Fits them into the window: the list takes the space that the others leave.
    void Place(const QWidget &window) const;

    QWidget *frmState = nullptr; ///< The controls above the list; no frame is drawn.
    QComboBox *cboState = nullptr;
    QPushButton *btnNOAAZonesGetList = nullptr;
    QLabel *lblProgress = nullptr; ///< Hidden outside a retrieval.

    ZoneListBox *lstZoneCodes = nullptr;

    QWidget *frmSearch = nullptr; ///< The controls below the list; no frame is drawn.
    QLineEdit *txtSearch = nullptr;
    QPushButton *btnSearch = nullptr;

    ElidedLabel *lblZoneFiles = nullptr; ///< The status line.
    QPushButton *btnSelect = nullptr;
    QPushButton *btnCancel = nullptr;

    QListWidget *lstZoneFiles = nullptr;    ///< Never shown.
    QPlainTextEdit *txtZonesTest = nullptr; ///< Never shown.

private:
    void BuildState(QWidget *window);
    void BuildSearch(QWidget *window);
    void GiveHelp() const;
    void SetTabOrder() const;
};
