#pragma once

#include "forecast/forecast_request.h"
#include "forecast/forecast_schedule.h"

#include <array>

/// The way of the forecast from one request to the next: its countdown, its schedule, its transfer,
/// and which zone was asked for.
class ForecastCycle
{
public:
    /// @param http outlives the cycle.
    explicit ForecastCycle(HttpTransfers &http) : m_http(http) {}
    Q_DISABLE_COPY_MOVE(ForecastCycle)
    ~ForecastCycle() = default;

    /// Asks for a forecast; a transfer that still runs is given up, and so is a request that is
    /// counted down to. When no transfer can be opened while requests are repeated, because the
    /// port is just being typed for example, they go on.
    /// @return false when no transfer was started.
    [[nodiscard]] bool Request(const ForecastAddress &address, StatusLine &status);

    /// Looks whether the transfer has ended, and takes its forecast into `profile`. After a failure
    /// before the first forecast of the run the next request is counted down to, in half a minute
    /// or as soon as was already intended.
    [[nodiscard]] ForecastPoll Poll(ForecastProfile &profile, StatusLine &status);

    [[nodiscard]] TransferHandle ForecastThreadHandle() const { return m_handle; } ///< 0: none.

    /// Milliseconds to a request that is counted down to; 0: none.
    [[nodiscard]] qint16 ForecastRequestCountdown() const { return m_countdown; }
    void SetForecastRequestCountdown(qint16 milliseconds) { m_countdown = milliseconds; }

    /// Takes `milliseconds` off the countdown.
    /// @return true when it has ended with that: the request is due.
    [[nodiscard]] bool CountDown(int milliseconds);

    /// Whether the schedule wants a request, and the words for the wait; see there. The countdown
    /// of `input` is filled in here.
    [[nodiscard]] ScheduleOutcome CheckSchedule(ScheduleInput input);

    /// Why the last transfer brought no forecast, in words; empty when it did.
    [[nodiscard]] const QString &Failure() const { return m_forecast.failure; }

    /// The zone of the last request; empty before the first.
    [[nodiscard]] const QString &ForecastZoneCode() const { return m_forecast.ForecastZoneCode; }

private:
    HttpTransfers &m_http;
    ForecastState m_forecast;
    TransferHandle m_handle = 0;
    qint16 m_countdown = 0;
    bool m_repeats = false; ///< A request has failed, and there is no forecast of this run yet.
    std::array<bool, 4> m_scheduleFired = {}; ///< Which of the slots have been answered.
};
