#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"

#include <QString>

#include <optional>

// The end of a transfer of zone codes in the background. Nothing in the program starts one; whoever
// sets the handle gets this answer.

/// Takes the text of the transfer, which has ended, and closes it. Reports on `status`.
///
/// @param ZoneCodeThreadHandle set to 0; when it is 0 nothing happens.
/// @return the text, for `txtZonesTest` of an open zone finder; nothing when the transfer failed.
[[nodiscard]] std::optional<QString> ReceiveZoneCodes(TransferHandle &ZoneCodeThreadHandle,
                                                      HttpTransfers &http, StatusLine &status);

/// Looks whether the transfer has ended, and if so receives its text as above.
[[nodiscard]] std::optional<QString> CheckZoneCodeTransfer(TransferHandle &ZoneCodeThreadHandle,
                                                           HttpTransfers &http, StatusLine &status);
