#include "app/help_texts.h"

#include "controls/tool_tip.h"

#include <QHash>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

struct HelpText
{
    QStringView name = {}; ///< Of the control.
    QStringView text = {};
    int first = 0; ///< Numbers at the end of the name; none if both are 0.
    int last = 0;
};

constexpr HelpText kHelpTexts[] = {
    {u"lblStatus", u"What the program did last."},
    {u"lblNextWeatherCheck",
     u"Time to the next weather request, in hours, minutes and seconds. It stands still while a "
     "location is missing."},
    {u"btnGetWeather", u"Asks the weather service now and starts the countdown anew."},
    {u"btnWeatherSettings", u"Choose the weather service and its place."},
    {u"btnShowRaw", u"Shows the last reply of the weather service as it came in."},

    {u"cboSelectedProfile", u"The weather service that is asked. With another one the lowest and "
                            "highest temperatures of today begin anew."},
    {u"txtLocation", u"Goes into the request; the description below says what to enter.", 1, 4},
    {u"txtProfileDescription", u"What the profile says of its service and of its places."},
    {u"txtWeatherInfo", u"The last reply of the weather service, with five blanks for a tab."},
    {u"btnWeatherDone", u"Back to the page."},

    {u"txtZoneCode",
     u"Forecast zone of the U.S. National Weather Service: six characters such as MDZ011."},
    {u"txtStateCode", u"The state's postal code: two letters such as MD."},
    {u"btnSelectNOAAZone", u"Lists the zones of a state and finds a town among them."},
    {u"txtForecast", u"The last forecast, as it stands in the output file."},
    {u"lblNextForecastCheck", u"Time to the next forecast request, in hours, minutes and seconds."},
    {u"btnGetForecast", u"Asks for the forecast now."},

    {u"txtHTTPPort",
     u"Port number of all requests, 1 to 65535. With 80 each service is asked at its usual port."},
    {u"chkForecastTime", u"Counted down to on the page \"Forecast\".", 0, 3},
    {u"optCheckInterval", u"Time between two weather requests, from the next one on.", 0, 3},
    {u"chkMinimizeOnStartup", u"Starts the program out of the way, from the next start on."},
    {u"lblFolderProblem", u"Neither settings nor output files can be kept there."},
};

/// The unit in a units text, without a token such as "%MIN%".
QString UnitIn(QStringView units)
{
    QString unit = units.toString();
    const qsizetype token = unit.indexOf(u'%');
    const qsizetype end = token < 0 ? -1 : unit.indexOf(u'%', token + 1);
    if (end > token)
        unit.remove(token, end + 1 - token);
    return unit.simplified();
}

QHash<QString, QStringView> HelpByName()
{
    QHash<QString, QStringView> texts;
    for (const auto &[name, text, first, last] : kHelpTexts) {
        if (first == last)
            texts.insert(name.toString(), text);
        for (int number = first; first != last && number <= last; ++number)
            texts.insert(name.toString() + QString::number(number), text);
    }
    return texts;
}

} // namespace

QString ValueHelp(const QuantityRow &row, const WeatherProfile &profile)
{
    QString text = row.meaning.toString();
    const QString &units = profile[row.quantity].Units;
    if (units == "?"_L1)
        return text + u"\nThe service of this profile does not deliver it."_s;
    if (!row.hasUnit)
        return text;
    const QString unit = UnitIn(units);
    if (unit.isEmpty())
        return text + u"\nUnit: as the service writes it."_s;
    return text + u"\nUnit: "_s + unit;
}

void GiveHelp(const QWidget &window)
{
    const QHash<QString, QStringView> texts = HelpByName();
    for (QWidget *control : window.findChildren<QWidget *>()) {
        const auto text = texts.find(control->objectName());
        if (text != texts.end())
            SetHelp(control, text->toString());
    }
    for (QLabel *title : window.findChildren<QLabel *>()) {
        if (title->buddy() != nullptr && !title->buddy()->toolTip().isEmpty())
            SetHelp(title, title->buddy()->toolTip());
    }
}
