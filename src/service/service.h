#pragma once

#include "service/reporter.h"
#include "station/silent_view.h"
#include "station/station.h"

#include <QString>

#include <optional>

/// Loads everything that a station needs before it starts.
/// @return what keeps it from starting, in words for the user.
[[nodiscard]] std::optional<QString> BringUp(Station &station);

/// The program without a window: drives a station that has been brought up, and reports what
/// happens.
///
/// While something is missing, it reads the files again every minute.
class Service final : private SilentView
{
public:
    /// @param station must outlive the service; it has not been started.
    Service(Station &station, Say say);
    ~Service() override;
    Q_DISABLE_COPY_MOVE(Service)

    void Start();

    // What drives it.

    void Poll() { m_station.Poll(); } ///< Call it each Station::kPollInterval.
    void TickSecond();                ///< Call it every second.

    /// Reads the files again because somebody asked; says again what is missing.
    void Reload();

private:
    void Ended(const ProductEnd &end) override { m_reporter.Ended(end); }

    void ReadFiles();
    void LookForMissing();

    Station &m_station;
    Say m_say;
    Reporter m_reporter;
    QString m_problem;        ///< What was said about the settings.
    int m_secondsToLook = 0;  ///< Until the files are read again.
    bool m_isMissing = false; ///< Whether something is.
};
