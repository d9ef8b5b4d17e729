#include "zones/frm_find_noaa_zones.h"

#include "controls/control.h"
#include "controls/elided_label.h"
#include "controls/tool_tip.h"
#include "core/state_tables.h"
#include "zones/zone_list_box.h"
#include "zones/zone_search.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>

#include <utility>

using namespace Qt::StringLiterals;

frmFindNOAAZones::frmFindNOAAZones(HttpTransfers &http, const Clock &clock, QString host,
                                   bool &zoneFinderOpen, qint16 selectedStateIndex, QWidget *owner)
    : QWidget(owner, Qt::Dialog)
    , m_host(std::move(host))
    , ZoneFinderOpen(zoneFinderOpen)
    , SelectedStateIndex(selectedStateIndex)
    , m_retrieval(http, clock, *this)
{
    setObjectName(u"frmFindNOAAZones"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Select NOAA Zone Code"_s);
    Build(this);
    setMinimumSize(kClientSize);
    setMaximumHeight(kClientSize.height());
    resize(kClientSize);
    Form_Resize();
    ConnectControls();
}

frmFindNOAAZones::~frmFindNOAAZones()
{
    Form_Unload();
}

void frmFindNOAAZones::ConnectControls()
{
    connect(btnNOAAZonesGetList, &QPushButton::clicked, this,
            &frmFindNOAAZones::btnNOAAZonesGetList_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frmFindNOAAZones::btnCancel_Click);
    connect(btnSearch, &QPushButton::clicked, this, &frmFindNOAAZones::btnSearch_Click);
    connect(btnSelect, &QPushButton::clicked, this, &frmFindNOAAZones::btnSelect_Click);
    connect(txtSearch, &QLineEdit::textChanged, this, &frmFindNOAAZones::txtSearch_Change);
    connect(txtSearch, &QLineEdit::returnPressed, this, &frmFindNOAAZones::btnSearch_Click);
    connect(lstZoneCodes, &QListWidget::itemSelectionChanged, this, [this] {
        if (SelectedEntry() >= 0)
            lstZoneCodes_Click();
    });
    connect(lstZoneCodes, &QListWidget::itemDoubleClicked, this,
            &frmFindNOAAZones::btnSelect_Click);

    // Not the list's "activated": on some desktops a single click activates.
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *enter = new QShortcut(key, lstZoneCodes); // owned by the list
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, &frmFindNOAAZones::btnSelect_Click);
    }

    connect(&tmrRetrieval, &QTimer::timeout, this, &frmFindNOAAZones::tmrRetrieval_Timer);
}

void frmFindNOAAZones::Form_Load()
{
    ZoneFinderOpen = true;
    m_loaded = true;
    cboState->clear();
    for (const QStringView name : StateNames)
        cboState->addItem(name.toString());
    cboState->setCurrentIndex(SelectedStateIndex);
    cboState->setFocus();
    DescribeControlsOnRequest(*this);
}

void frmFindNOAAZones::Form_Unload()
{
    // Only once: after this dialog's end another may be open, and the flag is then that one's.
    if (std::exchange(m_loaded, false))
        ZoneFinderOpen = false;
}

void frmFindNOAAZones::SetZonesTest(const QString &text)
{
    txtZonesTest->setPlainText(text);
}

void frmFindNOAAZones::Form_Resize()
{
    Place(*this);
}

bool frmFindNOAAZones::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) // another font, another style
        Form_Resize();
    return QWidget::event(event);
}

void frmFindNOAAZones::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}

// Not a shortcut, which would also close the dialog when the key closes the list of states.
void frmFindNOAAZones::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        btnCancel_Click();
    else
        QWidget::keyPressEvent(event);
}

void frmFindNOAAZones::closeEvent(QCloseEvent *event)
{
    const bool retrieving = Retrieving();
    if (retrieving)
        m_retrieval.Cancel(); // its end closes the dialog
    else
        Form_Unload();
    event->setAccepted(!retrieving);
}

void frmFindNOAAZones::btnCancel_Click()
{
    close();
}

// --- the retrieval

void frmFindNOAAZones::btnNOAAZonesGetList_Click()
{
    btnSelect->setEnabled(false);
    EnableFinderControls(false);
    lblProgress->show();
    tmrRetrieval.start(ZoneListRetrieval::kPollInterval);
    m_retrieval.Start(m_host, StateCode());
}

void frmFindNOAAZones::tmrRetrieval_Timer()
{
    m_retrieval.Poll();
}

void frmFindNOAAZones::SetProgress(const QString &text)
{
    lblProgress->setText(text);
}

void frmFindNOAAZones::SetZoneFiles(const QString &text)
{
    lblZoneFiles->setText(text);
}

void frmFindNOAAZones::SetFileNames(const QStringList &fileNames)
{
    lstZoneFiles->clear();
    lstZoneFiles->addItems(fileNames);
}

void frmFindNOAAZones::ClearEntries()
{
    lstZoneCodes->clear();
}

void frmFindNOAAZones::AddEntry(const QString &entry)
{
    auto *item = new QListWidgetItem(entry, lstZoneCodes); // owned by the list
    item->setToolTip(PlainToolTip(entry));
}

void frmFindNOAAZones::RetrievalEnded(ZoneListEnd end)
{
    tmrRetrieval.stop();
    RestoreFinderControls();
    btnCancel->setEnabled(true);
    switch (end) {
    case ZoneListEnd::Cancelled:
        close(); // deletes the dialog later: this is still a call from the retrieval
        return;
    case ZoneListEnd::ListFailed:
        // The entry is a message, which must not be selected as a zone and go on air.
        if (QListWidgetItem *message = lstZoneCodes->item(lstZoneCodes->count() - 1))
            message->setFlags(Qt::ItemIsEnabled);
        btnSelect->setEnabled(false);
        break;
    case ZoneListEnd::Completed:
    case ZoneListEnd::Broken:
        break;
    }
    GiveFocusBack();
}

void frmFindNOAAZones::RestoreFinderControls()
{
    lblProgress->hide();
    EnableFinderControls(true);
}

void frmFindNOAAZones::EnableFinderControls(bool enabled)
{
    for (QWidget *control : std::initializer_list<QWidget *>{
             lstZoneCodes, cboState, btnNOAAZonesGetList, txtSearch, btnSearch})
        control->setEnabled(enabled);
}

void frmFindNOAAZones::GiveFocusBack()
{
    // During the retrieval only Cancel could have the focus, and there Enter would now close the
    // dialog.
    if (lstZoneCodes->count() > 0)
        txtSearch->setFocus();
    else
        cboState->setFocus();
}

QString frmFindNOAAZones::StateCode() const
{
    const int state = cboState->currentIndex();
    return state >= 0 && state < int(StateCodes.size()) ? StateCodes[size_t(state)].toString()
                                                        : QString();
}

// --- search and selection

void frmFindNOAAZones::btnSearch_Click()
{
    if (txtSearch->text().isEmpty())
        return;
    const int start = SelectedEntry();
    SelectEntry(-1);
    btnSelect->setEnabled(false);
    const auto found = int(FindZone(Entries(), txtSearch->text(), start));
    if (found < 0)
        return;
    SelectEntry(found);
    btnSelect->setEnabled(true);
}

void frmFindNOAAZones::btnSelect_Click()
{
    const int selected = SelectedEntry();
    const QString stateCode = StateCode();
    if (selected < 0 || stateCode.isEmpty())
        return;
    const QString entry = lstZoneCodes->item(selected)->text();
    Q_EMIT ZoneSelected(entry.left(entry.indexOf(u':')), stateCode);
    close();
}

void frmFindNOAAZones::lstZoneCodes_Click()
{
    btnSelect->setEnabled(true);
}

void frmFindNOAAZones::txtSearch_Change()
{
    SelectEntry(-1);
}

QStringList frmFindNOAAZones::Entries() const
{
    QStringList entries;
    for (int i = 0; i < lstZoneCodes->count(); ++i) {
        const QListWidgetItem *item = lstZoneCodes->item(i);
        entries.append(item->flags().testFlag(Qt::ItemIsSelectable) ? item->text() : QString());
    }
    return entries;
}

int frmFindNOAAZones::SelectedEntry() const
{
    // Not the current row: once it had the focus, a list has one even without a selection.
    const QList<QListWidgetItem *> selected = lstZoneCodes->selectedItems();
    return selected.isEmpty() ? -1 : lstZoneCodes->row(selected.front());
}

void frmFindNOAAZones::SelectEntry(int entry)
{
    lstZoneCodes->setCurrentRow(entry);
    if (QListWidgetItem *item = lstZoneCodes->item(entry))
        lstZoneCodes->scrollToItem(item);
}
