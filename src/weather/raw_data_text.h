#pragma once

#include <QString>
#include <QStringView>

/// The reply as the raw-data box shows it: CR LF line ends, five spaces for a tab.
[[nodiscard]] QString RawDataText(QStringView reply);
