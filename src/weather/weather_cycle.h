#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "net/reply.h"
#include "profiles/weather_profile.h"

#include <array>
#include <optional>

/// What polling the transfer of the current weather has found.
struct WeatherPoll
{
    enum class State
    {
        Idle,    ///< No transfer is open.
        Waiting, ///< The transfer is running.
        Ended,   ///< There is a reply, and the transfer is closed.
    };

    State state = State::Idle;
    Reply reply = {};
    qint16 profile = -1; ///< Which profile the reply belongs to.
};

/// Runs the requests for the current weather: the countdown to the next one, the transfer, and what
/// was asked for. What to do with a reply is up to the owner.
class WeatherCycle
{
public:
    /// @param http must outlive the cycle.
    explicit WeatherCycle(HttpTransfers &http) : m_http(http) {}
    Q_DISABLE_COPY_MOVE(WeatherCycle)
    ~WeatherCycle() = default;

    /// Requests the weather of the selected profile, giving up a transfer that is still running.
    /// @return false if no transfer was started. If the profile has no address, nothing has
    ///         changed.
    [[nodiscard]] bool Request(ProfileTable &profiles, const QString &port, StatusLine &status);

    [[nodiscard]] WeatherPoll Poll();

    void GiveUp(); ///< Closes the transfer, if any: its reply is no longer wanted.

    [[nodiscard]] TransferHandle WeatherThreadHandle() const { return m_handle; } ///< 0: none runs.

    /// Seconds to the next request.
    [[nodiscard]] qint16 SecondsToWeatherCheck() const { return m_seconds; }
    void SetSecondsToWeatherCheck(qint16 seconds) { m_seconds = seconds; }

    /// Whether the last request was for this profile.
    [[nodiscard]] bool HasAskedFor(qint16 profile) const
    {
        return m_asked && m_asked->profile == profile;
    }

    /// Whether the last request was for this profile and these locations.
    [[nodiscard]] bool HasAskedFor(qint16 profile, const std::array<QString, 4> &location) const
    {
        return HasAskedFor(profile) && m_asked->location == location;
    }

private:
    struct Asked
    {
        qint16 profile = -1;
        std::array<QString, 4> location = {};
    };

    HttpTransfers &m_http;
    TransferHandle m_handle = 0;
    qint16 m_seconds = 0;
    std::optional<Asked> m_asked; ///< Nothing before the first request.
};
