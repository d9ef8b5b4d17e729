#pragma once

#include "service/reporter.h"
#include "station/silent_view.h"
#include "station/station.h"

#include <QString>

#include <optional>

/// Brings a station up as far as it goes without a request.
/// @return what keeps it from starting, in words for the user.
[[nodiscard]] std::optional<QString> BringUp(Station &station);

/// The program without a window: drives a station that has been brought up, and says what becomes
/// of it.
///
/// While something is missing the files are read anew each minute.
class Service final : private SilentView
{
public:
    /// @param station outlives the service; it has not been started.
    Service(Station &station, Say say);
    ~Service() override;
    Q_DISABLE_COPY_MOVE(Service)

    void Start();

    // What drives it.

    void Poll() { m_station.Poll(); } ///< To be called each Station::kPollInterval.
    void TickSecond();                ///< To be called each second.

    /// Reads the files anew because somebody wants it; what is missing is said again.
    void Reload();

private:
    void Ended(const ProductEnd &end) override { m_reporter.Ended(end); }

    void ReadFiles();
    void LookForMissing();

    Station &m_station;
    Say m_say;
    Reporter m_reporter;
    QString m_problem;        ///< Of the settings, as it was said.
    int m_secondsToLook = 0;  ///< Until the files are read anew.
    bool m_isMissing = false; ///< Something is.
};
