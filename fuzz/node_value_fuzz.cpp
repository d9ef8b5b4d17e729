#include "core/value_texts.h"
#include "fuzz_input.h"
#include "plain_node_value.h"
#include "weather/node_value.h"

#include <QDateTime>

namespace {

/// FindNode() finds the tags that are there, and nothing else.
void CheckPlace(const QString &data, const PlainQuery &query)
{
    QString close = query.close;
    const NodePlace place =
        FindNode(data, {.openTag = query.open, .closeTag = close, .prefix = query.prefix});

    const qsizetype open = query.open.isEmpty() ? -1 : data.indexOf(query.open);
    Demand(place.open == open, "the first opening tag is found");
    Demand(place.close < 0 || place.close >= open + query.open.size(), "tags stand in order");
    Demand(place.close < 0 || data.mid(place.close).startsWith(close), "the closing tag is there");
    if (open < 0)
        return;
    const QString behind = PlainBehindTags(data, query);
    const qsizetype end = behind.indexOf(PlainLineEnd(query.close));
    Demand((place.close >= 0) == (end >= 0), "the closing tag counts behind the prefix");
    Demand(place.text == PlainTrim(behind.left(qMax(end, 0))), "the text stands in between");
}

} // namespace

// The contract: the value is never empty, and is the one that the plain version cuts out; a profile
// is believed without a search if it says that the service lacks the quantity; after a search the
// closing tag is resolved and the caller's text has no tab left.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    PlainQuery query;
    for (QString *field : {&query.open, &query.close, &query.prefix, &query.suffix, &query.units,
                           &query.factor, &query.format})
        *field = TextOf(input.Line());
    const QString received = TextOf(input.Rest());
    const QDateTime now(QDate(2026, 11, 20), QTime(12, 0), Qt::OffsetFromUTC, -5 * 3600);

    QString data = received;
    QString close = query.close;
    const NodeQuery nodeQuery{.openTag = query.open,
                              .closeTag = close,
                              .prefix = query.prefix,
                              .suffix = query.suffix,
                              .units = query.units,
                              .factor = query.factor,
                              .format = query.format,
                              .now = &now};
    const QString value = GetNodeValue(data, nodeQuery);

    Demand(!value.isEmpty(), "never empty");
    Demand(query.units != "?" || value == kNotAvailableFromService, "a profile is believed");
    const bool searched = query.units != "?" && !query.open.isEmpty();
    Demand(!searched || (!close.isEmpty() && !data.contains('\t')), "line end and tabs resolved");
    Demand(searched || data == received, "nothing changes without a search");
    Demand(value == PlainNodeValue(received, query, now), "the plain version's value");
    Demand(!searched || GetNodeValueWithoutTabs(data, nodeQuery) == value, "the same without tabs");
    CheckPlace(data, query);
    return 0;
}
