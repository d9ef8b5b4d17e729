#include "weather/node_value.h"

#include <QDateTime>

#include <cstdlib>

#include "fuzz_text.h"

// The contract: never an empty text; a profile that says so is believed without a search; after a
// search the closing tag is resolved and the caller's text has no tab left.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    constexpr std::size_t kTag = 24;
    FuzzedDataProvider input(bytes, size);
    const QString open = TakeText(input, kTag);
    const QString prefix = TakeText(input, kTag);
    const QString suffix = TakeText(input, kTag);
    const QString units = TakeText(input, kTag);
    const QString factor = TakeText(input, kTag);
    const QString format = TakeText(input, kTag);
    QString close = TakeText(input, kTag);
    QString data = QString::fromStdString(input.ConsumeRemainingBytesAsString());
    const QDateTime now(QDate(2026, 11, 20), QTime(12, 0), Qt::OffsetFromUTC, -5 * 3600);

    const QString value = GetNodeValue(data, {.openTag = open,
                                              .closeTag = close,
                                              .prefix = prefix,
                                              .suffix = suffix,
                                              .units = units,
                                              .factor = factor,
                                              .format = format,
                                              .now = &now});

    if (value.isEmpty())
        std::abort();
    if (units == u"?" && value != kNotAvailableFromService)
        std::abort();
    if (units != u"?" && open.isEmpty() && value != kNotAvailable)
        std::abort();
    const bool searched = units != u"?" && !open.isEmpty();
    if (searched && (close.isEmpty() || data.contains(u'\t')))
        std::abort();
    return 0;
}
