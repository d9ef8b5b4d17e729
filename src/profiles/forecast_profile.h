#pragma once

#include <QString>

/// The forecast service: where it is, whom to credit, and the last forecast.
struct ForecastProfile
{
    double timeStamp = 0; ///< Days since 30 December 1899; never used.
    QString host = {};    ///< Scheme and host of forecasts and zone lists, no slash at the end.
    QString baseURL = {};
    QString description = {};
    QString title = {};
    QString copyright = {};
    QString copyrightURL = {};
    QString forecastText = {};
};
