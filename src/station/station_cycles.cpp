#include "core/countdown_text.h"
#include "core/trace.h"
#include "forecast/forecast_location.h"
#include "forecast/forecast_output.h"
#include "station/station.h"
#include "station/update_cycle.h"
#include "weather/weather_output.h"
#include "weather/weather_reading.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

// The two cycles, from the tick to the output files.

namespace {

const QString kInvalidLocation = u"Invalid Location"_s;

} // namespace

void Station::TickSecond()
{
    if (IsLocationMissing())
        m_nextWeatherCheck = kInvalidLocation; // the countdown pauses
    else
        CountDownToWeather();

    // The schedule has a check of its own, different from this one.
    if (IsForecastLocationInvalid(m_settings.ForecastState, m_settings.ForecastZone))
        SetNextForecastCheck(kInvalidLocation);
    else
        CheckForecastSchedule(); // tells the view about both texts, as the other branch does
}

bool Station::IsLocationMissing() const
{
    std::array<LocationBox, 4> boxes;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i] = {.shown = UsesLocation(i), .text = m_locationTexts[i]};
    return ::IsLocationMissing(boxes);
}

void Station::CountDownToWeather()
{
    const qint16 seconds = m_weather.SecondsToWeatherCheck();
    m_nextWeatherCheck = "Next Update in "_L1 + CountdownText(seconds);
    if (seconds == 0) {
        if (IsLocationBeingEdited())
            return; // half a location is another place, or none
        StartWeatherRequest();
        ReloadWeatherCountdown();
    }
    m_weather.SetSecondsToWeatherCheck(qint16(m_weather.SecondsToWeatherCheck() - 1));
}

void Station::ReloadWeatherCountdown()
{
    m_weather.SetSecondsToWeatherCheck(m_checkInterval);
}

void Station::SetCheckInterval(qint16 seconds)
{
    m_checkInterval = seconds;
    if (m_settings.CheckInterval)
        Change([=](Settings &settings) { settings.CheckInterval = seconds / 60; });
}

void Station::RequestWeather()
{
    StartWeatherRequest();
    ReloadWeatherCountdown(); // the automatic cycle starts over from here
}

void Station::StartWeatherRequest()
{
    StoreLocations();
    const QString port = m_settings.HTTPPort;
    m_view->RequestStarted();
    if (m_weather.Request(m_profiles, port, *m_view))
        m_view->SetStatus(u"Requesting Weather..."_s);
    else
        TellNotStarted(Product::Weather, port);
}

void Station::TellNotStarted(Product product, const QString &port)
{
    const bool isWeather = product == Product::Weather;
    const QString failure = "Unable to open HTTP handle on port "_L1 + port
                          + (isWeather ? " for weather request"_L1 : " for forecast request"_L1);
    m_view->SetStatus(failure);
    const TransferHandle handle =
        isWeather ? m_weather.WeatherThreadHandle() : m_forecast.ForecastThreadHandle();
    if (handle == 0) // else a transfer is about to end, and reports it
        m_view->Ended({product, failure});
}

void Station::PollWeather()
{
    const WeatherPoll poll = m_weather.Poll();
    switch (poll.state) {
    case WeatherPoll::State::Idle:
        return;
    case WeatherPoll::State::Waiting:
        m_view->SetStatus(u"Waiting for HTTP Host"_s);
        return;
    case WeatherPoll::State::Ended:
        break;
    }
    if (poll.profile != m_profiles.currentWeatherProfile) {
        // With the new profile's tags it would read as another place's weather, or as none at all.
        Trace(u"Weather reply to another profile's request ignored");
        return;
    }
    m_view->SetStatus(u"Retrieved current weather data"_s);
    // A failed transfer delivers the empty text, which the parser can handle.
    if (const auto refusal = ParseWeatherData(poll.reply.text)) {
        const bool isReceived = poll.reply.error == 0;
        m_view->Ended({Product::Weather, isReceived ? *refusal : poll.reply.errorText});
        return;
    }
    DisplayWeatherData();
    SaveWeatherData();
}

/// @return why the reply is refused; nothing if it is not.
std::optional<QString> Station::ParseWeatherData(const QString &reply)
{
    WeatherProfile *profile = m_profiles.Selected();
    const QDateTime now = m_clock.Now();
    m_view->RawReply(reply);
    WeatherReading reading = BeginReading(profile, reply, now);
    for (const QString &status : reading.statuses)
        m_view->SetStatus(status);
    if (!reading.taken)
        return reading.statuses.value(reading.statuses.size() - 1);
    // Stored at this point because the rest shows the previous day's extremes.
    if (reading.temperature)
        CheckMinMaxTemp(m_minMax, m_files.MinMax(), now.date(), *reading.temperature);
    profile->values = FinishReading(std::move(reading), *profile, m_minMax, now);
    return std::nullopt;
}

void Station::DisplayWeatherData()
{
    const WeatherProfile *profile = m_profiles.Selected();
    if (profile == nullptr)
        return;
    m_shown = DisplayedValues(profile->values);
    m_view->WeatherChanged();
}

void Station::ClearWeatherFields()
{
    m_shown = {};
    m_view->WeatherChanged();
}

void Station::SaveWeatherData()
{
    // What the user sees is what the automation system gets.
    Store(Product::Weather, WeatherPatch(m_files.Weather(), m_shown, m_profiles.Selected(), Year()),
          {});
}

void Station::Store(Product product, IniPatch patch, const QString &failure)
{
    m_onTheirWay[std::size_t(product)] = {m_writer.Put(std::move(patch)), failure};
}

void Station::PollFiles()
{
    for (const Written &written : m_writer.Poll()) {
        for (const Product product : {Product::Weather, Product::Forecast}) {
            OnItsWay &sent = m_onTheirWay[std::size_t(product)];
            if (sent.ticket != written.ticket) // an earlier one, which nobody waits for
                continue;
            const QString failure = std::exchange(sent, {}).failure;
            const bool isStored = !written.error.IsError();
            m_view->Ended(
                {product, isStored ? failure : written.file + u": "_s + written.error.text});
        }
    }
}

void Station::RequestForecast()
{
    if (IsForecastLocationThere())
        StartForecastRequest();
    else
        SetNextForecastCheck(kInvalidLocation);
}

void Station::StartForecastRequest()
{
    const QString port = m_settings.HTTPPort;
    const ForecastAddress address{.host = m_profiles.forecast.host,
                                  .port = port,
                                  .state = m_settings.ForecastState,
                                  .zoneCode = m_settings.ForecastZone};
    if (m_forecast.Request(address, *m_view))
        m_view->SetStatus(u"Requesting Forecast..."_s);
    else
        TellNotStarted(Product::Forecast, port);
}

bool Station::IsForecastLocationThere() const
{
    return IsForecastLocationGiven(m_settings.ForecastState, m_settings.ForecastZone);
}

void Station::CountDownToForecast()
{
    if (m_forecast.CountDown(int(kPollInterval.count())))
        RequestForecast();
}

void Station::CheckForecastSchedule()
{
    const ScheduleOutcome outcome =
        m_forecast.CheckSchedule({.now = m_clock.Now().time().msecsSinceStartOfDay() / 1000,
                                  .zoneCode = m_settings.ForecastZone,
                                  .stateCode = m_settings.ForecastState,
                                  .slotChecked = m_settings.ForecastSched});
    if (outcome.startRequest)
        StartForecastRequest();
    SetNextForecastCheck(outcome.text);
}

void Station::SetNextForecastCheck(const QString &text)
{
    m_nextForecastCheck = text;
    m_view->CountdownsChanged();
}

void Station::PollForecast()
{
    switch (m_forecast.Poll(m_profiles.forecast, *m_view)) {
    case ForecastPoll::Waiting:
        break;
    case ForecastPoll::RequestAgain:
        m_view->Ended({Product::Forecast, m_forecast.Failure()});
        break;
    case ForecastPoll::ShowAndSave:
        m_view->ForecastChanged();
        SaveForecastData();
        break;
    }
}

void Station::SaveForecastData()
{
    Store(Product::Forecast, ForecastPatch(m_files.Forecast(), m_profiles.forecast, Year()),
          m_forecast.Failure());
}
