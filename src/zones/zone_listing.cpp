#include "zones/zone_listing.h"

#include "core/trace.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kRowMarker = u"<tr><td><a href=\"";
constexpr QStringView kEndMarker = u".txt\">";
constexpr qsizetype kExtensionLength = 4; // this much of the end marker belongs to the name
// Where the end marker may be, counted from 1.
constexpr qsizetype kShortestEnd = 3;
constexpr qsizetype kLongestEnd = 15;

constexpr std::array<QStringView, 12> kMonths{u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                              u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

using Dates = std::array<QString, 4>;

/// The dates of the files that count, the most likely first.
Dates AcceptedDates(QDate today)
{
    return {ListingDate(today), ListingDate(today.addDays(-1)), ListingDate(today.addDays(-2)),
            ListingDate(today.addDays(1))};
}

/// The file name at the front of one row; empty if the row does not count.
QStringView FileName(QStringView row, const QString &prefix, const Dates &dates)
{
    const qsizetype start = row.indexOf(prefix) + 1;
    Trace(u"startpos = ", start, u" for ", row);
    if (start != 1)
        return {};
    const bool fresh = std::any_of(dates.begin(), dates.end(),
                                   [row](const QString &date) { return row.contains(date); });
    if (!fresh)
        return {};
    const qsizetype end = row.indexOf(kEndMarker) + 1;
    Trace(u"endpos = ", end, u" for ", row);
    if (end < kShortestEnd || end > kLongestEnd) // no sensible name
        return {};
    return row.first(end - 1 + kExtensionLength);
}

} // namespace

QString ListingDate(QDate date)
{
    Q_ASSERT(date.isValid());
    return u"%1-%2-%3"_s.arg(date.day(), 2, 10, QChar(u'0'))
        .arg(kMonths[static_cast<std::size_t>(date.month() - 1)])
        .arg(date.year(), 4, 10, QChar(u'0'));
}

QStringList ZoneFileNames(QStringView listing, const QString &state, QDate today)
{
    const QString prefix = state + u'z';
    const Dates dates = AcceptedDates(today);
    QStringList names;
    for (qsizetype from = 0; from >= 0;) {
        // The text before the first marker counts as a row too.
        const qsizetype marker = listing.indexOf(kRowMarker, from);
        const QStringView row =
            marker < 0 ? listing.sliced(from) : listing.sliced(from, marker - from);
        const QStringView name = FileName(row, prefix, dates);
        if (!name.isEmpty())
            names.append(name.toString());
        from = marker < 0 ? -1 : marker + kRowMarker.size();
    }
    return names;
}
