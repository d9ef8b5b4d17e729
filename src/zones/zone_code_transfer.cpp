#include "zones/zone_code_transfer.h"

#include "core/trace.h"

#include <utility>

using namespace Qt::StringLiterals;

std::optional<QString> ReceiveZoneCodes(TransferHandle &ZoneCodeThreadHandle, HttpTransfers &http,
                                        StatusLine &status)
{
    if (ZoneCodeThreadHandle == 0)
        return std::nullopt;
    QString text;
    const bool received = http.Net_HTTPThreadReturnText(ZoneCodeThreadHandle, text) > 0;
    if (received) {
        Trace(u"net_HTTPThreadReturnText completed");
        status.SetStatus(u"Finished retrieving zone codes."_s);
    } else {
        Trace(u"net_HTTPThreadReturnText errored");
        status.SetStatus(u"An error occurred while retrieving zone codes."_s);
    }
    http.Net_HTTPThreadClose(std::exchange(ZoneCodeThreadHandle, 0));
    return received ? std::optional(text) : std::nullopt;
}

std::optional<QString> CheckZoneCodeTransfer(TransferHandle &ZoneCodeThreadHandle,
                                             HttpTransfers &http, StatusLine &status)
{
    Trace(u"Checking NOAAZoneCodeHandle ", ZoneCodeThreadHandle);
    if (!http.Net_HTTPThreadIsDone(ZoneCodeThreadHandle))
        return std::nullopt;
    return ReceiveZoneCodes(ZoneCodeThreadHandle, http, status);
}
