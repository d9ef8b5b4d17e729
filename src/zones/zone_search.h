#pragma once

#include <QString>
#include <QStringList>

/// The next zone entry that holds `search` (not empty, in any case): first behind the selected one,
/// then from the beginning up to and including it. The first seven characters of an entry, its zone
/// code and the colon, never match.
///
/// @param selected index of the selected entry; -1 for none.
/// @return its index; -1 when there is none.
[[nodiscard]] qsizetype FindZone(const QStringList &entries, const QString &search,
                                 qsizetype selected);
