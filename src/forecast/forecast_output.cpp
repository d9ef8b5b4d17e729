#include "forecast/forecast_output.h"

#include "core/text.h"

void SaveForecastData(const IniPath &file, const ForecastProfile &profile, int year)
{
    constexpr QStringView section = u"FORECAST";
    IniFile output(file);
    WriteIniValue(output, section, u"COPYRIGHT", WithYear(profile.copyright, year), true);
    WriteIniValue(output, section, u"COPYRIGHTURL", profile.copyrightURL, true);
    WriteIniValue(output, section, u"DATA", profile.forecastText, true);
    output.Commit();
}
