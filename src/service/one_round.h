#pragma once

#include "service/reporter.h"
#include "start/exit_code.h"
#include "station/silent_view.h"
#include "station/station.h"

#include <array>

/// Asks once for each product of a station that is set up.
class OneRound final : private SilentView
{
public:
    /// @param station outlives the round; it has been brought up and not been started.
    /// @param say     is told what is missing if nothing is set up, and what fails.
    OneRound(Station &station, Say say);
    ~OneRound() override;
    Q_DISABLE_COPY_MOVE(OneRound)

    /// Sends the requests; nothing happens if nothing is set up.
    void Start();

    void Poll() { m_station.Poll(); } ///< To be called each Station::kPollInterval.

    [[nodiscard]] bool IsDone() const; ///< All have ended.

    /// What has become of it so far.
    [[nodiscard]] ExitCode Result() const;

private:
    /// One product's part.
    struct Part
    {
        bool isWanted = false;
        bool hasEnded = false;
        bool isStored = false;
    };

    void Ended(const ProductEnd &end) override;
    Station &m_station;
    Say m_say;
    std::array<Part, 2> m_parts; ///< [Product].
};
