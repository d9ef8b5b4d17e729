#include "forecast/forecast_location.h"

#include "core/text.h"

bool IsForecastLocationInvalid(QStringView stateCode, QStringView zoneCode)
{
    return TrimSpaces(stateCode).size() != 2 && TrimSpaces(zoneCode).size() == 6;
}

bool IsForecastLocationGiven(QStringView stateCode, QStringView zoneCode)
{
    return !TrimSpaces(stateCode).isEmpty() && !TrimSpaces(zoneCode).isEmpty();
}
