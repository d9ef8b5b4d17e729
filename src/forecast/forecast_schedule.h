#pragma once

#include <QString>
#include <QStringView>

#include <array>

/// One time of day at which the forecast can be asked for.
struct ForecastSlot
{
    QStringView caption = {};
    int start = 0; ///< Seconds after local midnight.
};

/// The slots in the order of their check boxes.
inline constexpr std::array<ForecastSlot, 4> kForecastSlots{{
    {u"12:00 AM", 0},
    {u"6:00 AM", 21600},
    {u"12:00 PM", 43200},
    {u"6:00 PM", 64800},
}};

/// What the schedule depends on: the settings and the clock, read once per call.
struct ScheduleInput
{
    int now = 0; ///< Seconds after local midnight, 0..86399.
    QStringView zoneCode = {};
    QStringView stateCode = {};
    std::array<bool, 4> slotChecked = {}; ///< In the order of kForecastSlots.
    qint16 countdown = 0;                 ///< Milliseconds to a pending request; 0: none.
};

/// What follows from it.
struct ScheduleOutcome
{
    QString text = {};         ///< For `lblNextForecastCheck`.
    bool startRequest = false; ///< A slot has come, and its forecast can be asked for.
};

/// Decides whether a forecast is due, and words the wait for the next one. Call it every second;
/// only the local time of the moment counts, so a clock that jumps does no harm.
///
/// @param fired the slots that have been answered since the clock entered one, which lasts ten
///              seconds from its start; cleared by the first call outside all slots.
[[nodiscard]] ScheduleOutcome CheckForecastSchedule(std::array<bool, 4> &fired,
                                                    const ScheduleInput &input);
