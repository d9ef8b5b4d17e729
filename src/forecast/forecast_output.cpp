#include "forecast/forecast_output.h"

#include "core/text.h"

using namespace Qt::StringLiterals;

IniPatch ForecastPatch(const IniPath &file, const ForecastProfile &profile, int year)
{
    const QString section = u"FORECAST"_s;
    return {.file = file,
            .values = {{section, u"COPYRIGHT"_s, WithYear(profile.copyright, year)},
                       {section, u"COPYRIGHTURL"_s, profile.copyrightURL},
                       {section, u"DATA"_s, profile.forecastText}}};
}
