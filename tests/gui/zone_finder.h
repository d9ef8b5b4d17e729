#pragma once

#include "support/fake_transfers.h"
#include "support/fixed_clock.h"
#include "zones/frm_find_noaa_zones.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>

#include <memory>
#include <utility>

/// A zone finder with an owner. The clock shows noon on 16 November 2026; Maryland is chosen.
class ZoneFinder
{
public:
    static constexpr qint16 kMaryland = 19; ///< Alphabetically after Maine.

    explicit ZoneFinder(HttpTransfers &http, QString host = "https://host")
        : m_http(http)
        , m_host(std::move(host))
    {}

    void Open(qint16 state = kMaryland)
    {
        dialog = new frmFindNOAAZones(m_http, clock, m_host, isOpen, state, owner.get());
        QObject::connect(
            dialog, &frmFindNOAAZones::ZoneSelected, owner.get(),
            [this](const QString &zone, const QString &code) { selected += zone + ' ' + code; });
        dialog->Form_Load();
        dialog->show();
        QCoreApplication::processEvents(); // lets the layouts settle
    }

    /// Fills the list as a retrieval does.
    void Fill(const QStringList &entries) const
    {
        Find<QListWidget>("lstZoneCodes")->addItems(entries);
    }

    /// Lets the event loop delete what has been closed.
    static void DeleteClosed()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template <typename Control = QWidget>
    [[nodiscard]] Control *Find(const QString &name) const
    {
        auto *control = dialog->findChild<Control *>(name);
        if (control == nullptr)
            qFatal("no control %s", qUtf8Printable(name));
        return control;
    }

    [[nodiscard]] QString Label(const QString &name) const { return Find<QLabel>(name)->text(); }
    [[nodiscard]] bool IsShown(const QString &name) const { return Find(name)->isVisible(); }
    [[nodiscard]] bool IsEnabled(const QString &name) const { return Find(name)->isEnabled(); }
    void Click(const QString &name) const { Find<QAbstractButton>(name)->click(); }
    void Type(const QString &text) const { Find<QLineEdit>("txtSearch")->setText(text); }

    [[nodiscard]] QStringList Entries(const QString &list = "lstZoneCodes") const
    {
        const auto *box = Find<QListWidget>(list);
        QStringList entries;
        for (int i = 0; i < box->count(); ++i)
            entries.append(box->item(i)->text());
        return entries;
    }

    /// Index of the entry that is selected; -1 when none is.
    [[nodiscard]] int Selected() const
    {
        const auto *list = Find<QListWidget>("lstZoneCodes");
        return list->selectedItems().isEmpty() ? -1 : list->row(list->selectedItems().front());
    }

    /// Those of the controls that a retrieval disables which are enabled now.
    [[nodiscard]] QStringList Enabled() const
    {
        QStringList enabled;
        for (const QString name : {"lstZoneCodes", "cboState", "btnNOAAZonesGetList", "txtSearch",
                                   "btnSearch", "btnSelect", "btnCancel"}) {
            if (IsEnabled(name))
                enabled.append(name);
        }
        return enabled;
    }

    FixedClock clock{QDateTime(QDate(2026, 11, 16), QTime(12, 0))};
    bool isOpen = false;  ///< `ZoneFinderOpen`
    QStringList selected; ///< What was handed back, "MDZ011 MD".
    std::unique_ptr<QWidget> owner = std::make_unique<QWidget>();
    QPointer<frmFindNOAAZones> dialog;

private:
    HttpTransfers &m_http;
    QString m_host;
};

/// A list of the files with these numbers in Maryland, all of 16 November 2026.
inline QString ZoneListing(const QList<int> &numbers)
{
    QString rows = "<table>\n";
    for (const int number : numbers) {
        const QString name = QString("mdz%1.txt").arg(number, 3, 10, QChar('0'));
        rows += QString("<tr><td><a href=\"%1\">%1</a></td><td>16-Nov-2026 10:15</td></tr>\n")
                    .arg(name);
    }
    return rows;
}

/// The file of the zone `code` ("MDZ011"), which is at `place`.
inline QString ZoneFile(const QString &code, const QString &place)
{
    return code + "-161500-\n" + place + "-\n1015 AM EST MON NOV 16 2026\n";
}
