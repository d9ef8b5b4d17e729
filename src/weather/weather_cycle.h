#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "net/reply.h"
#include "profiles/weather_profile.h"

#include <array>
#include <optional>

/// What a look at the transfer of the current weather has found.
struct WeatherPoll
{
    enum class State
    {
        Idle,    ///< Nothing was asked for.
        Waiting, ///< The transfer runs.
        Ended,   ///< There is a reply, and the transfer is closed.
    };

    State state = State::Idle;
    Reply reply = {};
    qint16 profile = -1; ///< Which profile the reply belongs to.
};

/// The way of the current weather from one request to the next: its countdown, its transfer, and
/// what was asked for. What becomes of a reply is its owner's business.
class WeatherCycle
{
public:
    /// @param http outlives the cycle.
    explicit WeatherCycle(HttpTransfers &http) : m_http(http) {}
    Q_DISABLE_COPY_MOVE(WeatherCycle)
    ~WeatherCycle() = default;

    /// Asks for the weather of the selected profile; a transfer that still runs is given up.
    /// @return false when no transfer was started. Without an address in the profile nothing at all
    ///         has changed then.
    [[nodiscard]] bool Request(ProfileTable &profiles, const QString &port, StatusLine &status);

    [[nodiscard]] WeatherPoll Poll();

    void GiveUp(); ///< What was asked for is not wanted any more.

    [[nodiscard]] TransferHandle WeatherThreadHandle() const { return m_handle; } ///< 0: none runs.

    /// Seconds to the next request.
    [[nodiscard]] qint16 SecondsToWeatherCheck() const { return m_seconds; }
    void SetSecondsToWeatherCheck(qint16 seconds) { m_seconds = seconds; }

    /// Whether the last request was for this profile and for these locations.
    [[nodiscard]] bool HasAskedFor(qint16 profile, const std::array<QString, 4> &location) const
    {
        return m_asked && m_asked->profile == profile && m_asked->location == location;
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
