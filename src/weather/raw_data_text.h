#pragma once

#include <QString>
#include <QStringView>

/// The reply as the raw-data box shows it: line ends are CR LF, tabs are five spaces.
[[nodiscard]] QString RawDataText(QStringView reply);
