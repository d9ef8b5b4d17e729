#pragma once

#include <QStringView>

/// True when the codes cannot be right: a zone code of six characters with a state code that does
/// not have two. Schedule and request judge all other combinations.
[[nodiscard]] bool IsForecastLocationInvalid(QStringView stateCode, QStringView zoneCode);

/// True when both codes hold more than spaces.
[[nodiscard]] bool IsForecastLocationGiven(QStringView stateCode, QStringView zoneCode);
