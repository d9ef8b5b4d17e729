#pragma once

#include "service/reporter.h"
#include "start/exit_code.h"
#include "station/silent_view.h"
#include "station/station.h"

#include <array>

/// Requests each product of a station once, if it is set up.
class OneRound final : private SilentView
{
public:
    /// @param station must outlive the round; it has been brought up, but not started.
    /// @param say     is told what is missing if nothing is set up, and what fails.
    OneRound(Station &station, Say say);
    ~OneRound() override;
    Q_DISABLE_COPY_MOVE(OneRound)

    /// Sends the requests; does nothing if nothing is set up.
    void Start();

    void Poll() { m_station.Poll(); } ///< Call it each Station::kPollInterval.

    [[nodiscard]] bool IsDone() const; ///< All have ended.

    /// The result so far.
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
