#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"

#include <QString>

#include <optional>

// The end of a background transfer of zone codes. The program itself starts none, but answers one
// whose handle has been set.

/// Takes the text of the completed transfer and closes the transfer. Reports on `status`.
///
/// @param ZoneCodeThreadHandle set to 0; if it is 0 already, nothing happens.
/// @return the text, for `txtZonesTest` of an open zone finder; nothing if the transfer failed.
[[nodiscard]] std::optional<QString> ReceiveZoneCodes(TransferHandle &ZoneCodeThreadHandle,
                                                      HttpTransfers &http, StatusLine &status);

/// If the transfer has ended, receives its text as above.
[[nodiscard]] std::optional<QString> CheckZoneCodeTransfer(TransferHandle &ZoneCodeThreadHandle,
                                                           HttpTransfers &http, StatusLine &status);
