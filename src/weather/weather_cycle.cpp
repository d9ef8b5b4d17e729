#include "weather/weather_cycle.h"

#include "core/trace.h"
#include "weather/weather_request.h"

#include <utility>

bool WeatherCycle::Request(ProfileTable &profiles, const QString &port, StatusLine &status)
{
    const WeatherProfile *profile = profiles.Selected();
    const TransferHandle before = m_handle;
    const bool started = RequestCurrentWeather(profile, port, m_handle, m_http, status);
    // Only if a new transfer was opened: without an address the present one goes on.
    if (m_handle != before && m_handle != 0)
        m_asked = Asked{.profile = profiles.currentWeatherProfile, .location = profile->location};
    return started;
}

void WeatherCycle::GiveUp()
{
    if (m_handle != 0)
        m_http.Net_HTTPThreadClose(std::exchange(m_handle, 0));
}

WeatherPoll WeatherCycle::Poll()
{
    if (m_handle == 0)
        return {};
    if (!m_http.Net_HTTPThreadIsDone(m_handle))
        return {.state = WeatherPoll::State::Waiting};

    WeatherPoll poll{.state = WeatherPoll::State::Ended,
                     .reply = m_http.Net_HTTPThreadReply(m_handle),
                     .profile = m_asked ? m_asked->profile : qint16(-1)};
    if (poll.reply.error != 0)
        Trace(u"Weather transfer failed: ", poll.reply.errorText);
    m_http.Net_HTTPThreadClose(std::exchange(m_handle, 0));
    return poll;
}
