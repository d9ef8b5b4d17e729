#pragma once

#include <QStringView>

/// True when the codes cannot be right: a state code that has not two characters beside a zone code
/// of six. All other combinations are left to the schedule and the request.
[[nodiscard]] bool IsForecastLocationInvalid(QStringView stateCode, QStringView zoneCode);

/// True when both codes hold more than spaces.
[[nodiscard]] bool IsForecastLocationGiven(QStringView stateCode, QStringView zoneCode);
