#include "zones/zone_search.h"

#include <algorithm>

namespace {

constexpr qsizetype kSearchFrom = 7;

} // namespace

qsizetype FindZone(const QStringList &entries, const QString &search, qsizetype selected)
{
    const QString text = search.toUpper();
    const auto matches = [&text](const QString &entry) {
        return entry.toUpper().indexOf(text, kSearchFrom) >= 0;
    };
    const auto behind = entries.begin() + std::min(selected + 1, entries.size());
    auto found = std::find_if(behind, entries.end(), matches);
    if (found == entries.end()) {
        found = std::find_if(entries.begin(), behind, matches);
        if (found == behind)
            return -1;
    }
    return found - entries.begin();
}
