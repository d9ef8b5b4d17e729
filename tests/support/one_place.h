#pragma once

#include <QByteArray>
#include <QString>

/// A service that is asked for one place and delivers some of the quantities.
inline const QByteArray kOnePlaceProfile = "[Profile0]\r\n"
                                           "title=One place\r\n"
                                           "baseURL=http://weather.test%PORT%/now?q=%LOC1%\r\n"
                                           "copyright=Data (c) %YEAR% by %YEAR% people\r\n"
                                           "copyrightURL=http://weather.test/\r\n"
                                           "location1Title=City\r\n"
                                           "mainNodeOpen=<now>\r\n"
                                           "mainNodeClose=</now>\r\n"
                                           "timeOpen=<time>\r\ntimeClose=</time>\r\n"
                                           "locationOpen=<place>\r\nlocationClose=</place>\r\n"
                                           "temperatureOpen=<temp>\r\ntemperatureClose=</temp>\r\n"
                                           "temperatureUnits=[SP]F\r\n"
                                           "conditionsOpen=<sky>\r\nconditionsClose=</sky>\r\n"
                                           "humidityOpen=<hum>\r\nhumidityClose=</hum>\r\n"
                                           "humidityUnits=[SP]%\r\n"
                                           "visibilityUnits=?\r\n"
                                           "precipOpen=<rain>\r\nprecipClose=</rain>\r\n"
                                           "minTempUnits=%MIN%[SP]F\r\nmaxTempUnits=%MAX%[SP]F\r\n";

/// A reply of that service.
inline const QString kOnePlaceReply =
    "<html><now><time>9:53 AM</time><place>Salem, OR</place><temp>71</temp>"
    "<sky>Sunny</sky><hum>40</hum><rain>0.1</rain> </now></html>";
