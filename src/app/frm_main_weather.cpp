#include "app/covering_frame.h"
#include "app/frm_main.h"
#include "app/long_text_box.h"
#include "app/update_cycle.h"
#include "app/value_box.h"
#include "controls/elided_label.h"
#include "core/countdown_text.h"
#include "core/trace.h"
#include "forecast/forecast_location.h"
#include "weather/weather_output.h"
#include "weather/weather_request.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

// The update cycle and the page "Current Weather".

namespace {

const QString kInvalidLocation = u"Invalid Location"_s;

} // namespace

void frmMain::tmrMain_Timer()
{
    PollWeatherTransfer();
    if (m_state.ForecastThreadHandle != 0)
        PollForecastTransfer();
    if (m_state.ZoneCodeThreadHandle != 0)
        PollZoneCodeTransfer();
    CountDownToForecast();
}

void frmMain::PollWeatherTransfer()
{
    TransferHandle &handle = m_state.WeatherThreadHandle;
    if (handle == 0) {
        btnGetWeather->setEnabled(true);
        return;
    }
    if (!m_platform.http.Net_HTTPThreadIsDone(handle)) {
        SetStatus(u"Waiting for HTTP Host"_s);
        return;
    }

    SetStatus(u"Retrieved current weather data"_s);
    QString reply;
    // A failed transfer delivers the empty text, which the parser has an answer for.
    if (m_platform.http.Net_HTTPThreadReturnText(handle, reply) <= 0)
        Trace(u"Weather transfer failed: ", m_platform.http.ErrorText(handle));
    m_platform.http.Net_HTTPThreadClose(std::exchange(handle, 0));
    if (m_requestedProfile != m_state.profiles.currentWeatherProfile) {
        // Read by the new profile's tags it would be another place's weather, or no weather at all.
        Trace(u"Weather reply to another profile's request ignored");
        return;
    }

    const QDateTime now = m_platform.clock.Now();
    if (ParseWeatherData(m_state.profiles.Selected(), reply, now, *this)) {
        ClearWeatherFields();
        DisplayWeatherData();
        SaveWeatherData();
    }
}

void frmMain::tmrWeatherCheck_Timer()
{
    std::array<LocationBox, 4> boxes;
    for (size_t i = 0; i < boxes.size(); ++i)
        boxes[i] = {.shown = !frmLoc[i]->isHidden(), .text = txtLocation[i]->text()};
    if (IsLocationMissing(boxes))
        lblNextWeatherCheck->setText(kInvalidLocation); // the countdown stands still
    else
        CountDownToWeather();

    // The schedule has a test of its own, which differs from this one.
    if (IsForecastLocationInvalid(txtStateCode->text(), txtZoneCode->text()))
        lblNextForecastCheck->setText(kInvalidLocation);
    else
        CheckForecastSchedule();

    if (m_running)
        m_recovery->Keep(GatherSettings());
}

void frmMain::CountDownToWeather()
{
    lblNextWeatherCheck->setText(u"Next Update in "_s + CountdownText(SecondsToWeatherCheck));
    if (SecondsToWeatherCheck == 0) {
        StartWeatherRequest();
        ReloadWeatherCountdown();
    }
    --SecondsToWeatherCheck;
}

void frmMain::ReloadWeatherCountdown()
{
    std::array<bool, 4> selected{};
    for (size_t i = 0; i < selected.size(); ++i)
        selected[i] = optCheckInterval[i]->isChecked();
    SecondsToWeatherCheck = CheckIntervalSeconds(selected);
}

void frmMain::StartWeatherRequest()
{
    StoreLocations();
    const QString port = txtHTTPPort->text();
    const TransferHandle before = m_state.WeatherThreadHandle;
    const bool started =
        RequestCurrentWeather(m_state.profiles.Selected(), port, m_state.WeatherThreadHandle,
                              m_platform.http, *this, [this] { StartIconAnimation(); });
    if (m_state.WeatherThreadHandle != before) // a profile without an address starts nothing
        m_requestedProfile = m_state.profiles.currentWeatherProfile;
    if (started)
        SetStatus(u"Requesting Weather..."_s);
    else
        SetStatus(u"Unable to open HTTP handle on port "_s + port + u" for weather request"_s);
}

void frmMain::btnGetWeather_Click()
{
    StartWeatherRequest();
    txtFocus->setFocus();
    ReloadWeatherCountdown(); // the automatic cycle starts over from here
}

void frmMain::tmrDisclamer_Timer()
{
    const bool showDisclaimers = lblDisclaimer1->isHidden();
    lblDisclaimer1->setVisible(showDisclaimers);
    lblDisclaimer2->setVisible(showDisclaimers);
    lblWeatherCopyright->setVisible(!showDisclaimers);
    lblForecastCopyright->setVisible(!showDisclaimers);
}

void frmMain::DisplayWeatherData()
{
    const WeatherProfile *profile = m_state.profiles.Selected();
    if (profile == nullptr)
        return;
    const WeatherValues shown = DisplayedValues(profile->values);
    for (size_t i = 0; i < valueBoxes.size(); ++i)
        valueBoxes[i]->SetValue(shown.*kValueBoxFields[i].value);
}

void frmMain::ClearWeatherFields()
{
    for (ValueBox *box : valueBoxes)
        box->SetValue({});
}

void frmMain::SaveWeatherData()
{
    // What the user sees is what the automation system gets.
    WeatherValues shown;
    for (size_t i = 0; i < valueBoxes.size(); ++i)
        shown.*kValueBoxFields[i].value = valueBoxes[i]->Value();
    ::SaveWeatherData(m_state.files.Weather(), shown, m_state.profiles.Selected(), Year());
}

void frmMain::btnShowRaw_Click()
{
    frmWeatherRaw->move(0, 0);
    frmWeatherRaw->raise();
    frmWeatherRaw->show();
    btnWeatherDone[1]->setFocus();
}

void frmMain::SetStatus(const QString &text)
{
    lblStatus->setText(text);
}

void frmMain::ShowRawData(const QString &reply)
{
    txtWeatherInfo->SetText(reply);
}

void frmMain::CheckMinMaxTemp(double temp)
{
    const QDate today = m_platform.clock.Now().date();
    ::CheckMinMaxTemp(m_state.minMax, m_state.files.MinMax(), today, temp);
}

const MinMaxTemps &frmMain::MinMax() const
{
    return m_state.minMax;
}
