#pragma once

#include "forecast/forecast_request.h"
#include "forecast/forecast_schedule.h"

#include <array>

/// Runs the requests for the forecast: the countdown to the next one, the schedule, the transfer,
/// and the zone that was asked for.
class ForecastCycle
{
public:
    /// @param http must outlive the cycle.
    explicit ForecastCycle(HttpTransfers &http) : m_http(http) {}
    Q_DISABLE_COPY_MOVE(ForecastCycle)
    ~ForecastCycle() = default;

    /// Requests a forecast, giving up a transfer that is still running and a pending countdown. If
    /// no transfer can be opened while requests are being repeated, because the port is just being
    /// typed for example, the repeats go on.
    /// @return false if no transfer was started.
    [[nodiscard]] bool Request(const ForecastAddress &address, StatusLine &status);

    /// Checks whether the transfer has ended, and stores its forecast in `profile`. After a failure
    /// before the first forecast of the run, counts down half a minute to the next request, unless
    /// a countdown is already running.
    [[nodiscard]] ForecastPoll Poll(ForecastProfile &profile, StatusLine &status);

    [[nodiscard]] TransferHandle ForecastThreadHandle() const { return m_handle; } ///< 0: none.

    /// Milliseconds to the pending request; 0: none is pending.
    [[nodiscard]] qint16 ForecastRequestCountdown() const { return m_countdown; }
    void SetForecastRequestCountdown(qint16 milliseconds) { m_countdown = milliseconds; }

    /// Takes `milliseconds` off the countdown.
    /// @return true if that ended it: the request is due.
    [[nodiscard]] bool CountDown(int milliseconds);

    /// CheckForecastSchedule() with the countdown and the answered slots of this cycle.
    [[nodiscard]] ScheduleOutcome CheckSchedule(ScheduleInput input);

    /// Why the last transfer brought no forecast, in words; empty if it did.
    [[nodiscard]] const QString &Failure() const { return m_forecast.failure; }

    /// The zone of the last request; empty before the first.
    [[nodiscard]] const QString &ForecastZoneCode() const { return m_forecast.ForecastZoneCode; }

private:
    HttpTransfers &m_http;
    ForecastState m_forecast;
    TransferHandle m_handle = 0;
    qint16 m_countdown = 0;
    bool m_repeats = false; ///< A request has failed, and there is no forecast of this run yet.
    std::array<bool, 4> m_scheduleFired = {}; ///< Which slots have been answered.
};
