#include "fuzz_input.h"
#include "zones/zone_listing.h"

#include <QLocale>

#include <algorithm>

namespace {

QString PlainDate(QDate date)
{
    return QLocale::c().toString(date, "dd-MMM-yyyy");
}

QStringList PlainNames(const QString &listing, const QString &state, QDate today)
{
    QStringList names;
    for (const QString &row : listing.split("<tr><td><a href=\"")) {
        bool fresh = false;
        for (const int days : {0, -1, -2, 1})
            fresh = fresh || row.contains(PlainDate(today.addDays(days)));
        const qsizetype end = row.indexOf(".txt\">") + 1;
        if (fresh && row.indexOf(state + "z") + 1 == 1 && end > 2 && end < 16)
            names.append(row.left(end + 3));
    }
    return names;
}

} // namespace

// The contract: only names of the state's zone files, only of a length that a name can have, and
// only those of fresh rows.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QString state = TextOf(input.Line());
    const QDate asked = QDate::fromString(QString::fromLatin1(input.Line()), Qt::ISODate);
    const QDate today = asked.isValid() && asked.year() >= 1 ? asked : QDate(2026, 11, 16);
    const QString listing = TextOf(input.Rest());

    const QStringList names = ZoneFileNames(listing, state, today);

    Demand(std::all_of(names.begin(), names.end(),
                       [&](const QString &name) {
                           return name.startsWith(state + "z") && name.endsWith(".txt")
                               && name.size() <= 18 && listing.contains(name);
                       }),
           "names of the state's zone files");
    Demand(names == PlainNames(listing, state, today), "the plain version's names");
    return 0;
}
