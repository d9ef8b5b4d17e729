#pragma once

#include <QString>
#include <QStringList>

/// Index of the next zone entry that contains `search` (not empty, case-insensitive): first after
/// the selected one, then from the beginning up to and including it. The first seven characters of
/// an entry, its zone code and the colon, never match.
///
/// @param selected index of the selected entry; -1 for none.
/// @return -1 if there is no such entry.
[[nodiscard]] qsizetype FindZone(const QStringList &entries, const QString &search,
                                 qsizetype selected);
