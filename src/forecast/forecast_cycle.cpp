#include "forecast/forecast_cycle.h"

#include <QtGlobal>

bool ForecastCycle::Request(const ForecastAddress &address, StatusLine &status)
{
    const bool started = RequestForecast(address, m_forecast, m_handle, m_http, status);
    m_countdown = m_handle == 0 && m_repeats ? kForecastRetryMilliseconds : qint16(0);
    return started;
}

ForecastPoll ForecastCycle::Poll(ForecastProfile &profile, StatusLine &status)
{
    if (m_handle == 0)
        return ForecastPoll::Waiting;
    const ForecastPoll poll = PollForecast(m_forecast, profile, m_handle, m_http, status);
    if (poll == ForecastPoll::Waiting)
        return poll;
    m_repeats = poll == ForecastPoll::RequestAgain;
    // A zone just chosen is requested sooner.
    if (m_repeats && m_countdown == 0)
        m_countdown = kForecastRetryMilliseconds;
    return poll;
}

bool ForecastCycle::CountDown(int milliseconds)
{
    if (m_countdown <= 0)
        return false;
    m_countdown = qint16(qMax(0, m_countdown - milliseconds));
    return m_countdown == 0;
}

ScheduleOutcome ForecastCycle::CheckSchedule(ScheduleInput input)
{
    input.countdown = m_countdown;
    return CheckForecastSchedule(m_scheduleFired, input);
}
