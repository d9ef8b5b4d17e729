#include "forecast/forecast_schedule.h"

#include "core/countdown_text.h"
#include "forecast/forecast_location.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsPerDay = 86400;
constexpr int kTriggerSeconds = 10; // how long after its start a slot can still fire
constexpr int kMillisecondsPerSecond = 1000;
constexpr qsizetype kZoneCodeLength = 6;
constexpr qsizetype kStateCodeLength = 2;

/// The slot whose trigger window `now` lies in.
std::optional<std::size_t> SlotAt(int now)
{
    for (std::size_t i = 0; i < kForecastSlots.size(); ++i) {
        const int late = now - kForecastSlots[i].start;
        if (late >= 0 && late <= kTriggerSeconds)
            return i;
    }
    return std::nullopt;
}

/// Whether a slot has come that has not been answered yet; marks it as answered, whatever becomes
/// of the request.
bool Fires(std::array<bool, 4> &fired, int now)
{
    const std::optional<std::size_t> slot = SlotAt(now);
    if (!slot) {
        fired.fill(false);
        return false;
    }
    return !std::exchange(fired[*slot], true);
}

/// Seconds from `now` to the next checked slot, 1..86400; nothing if none is checked. A slot that
/// starts right now is past.
std::optional<int> SecondsToNextSlot(const std::array<bool, 4> &checked, int now)
{
    std::optional<int> shortest;
    for (std::size_t i = 0; i < kForecastSlots.size(); ++i) {
        if (!checked[i])
            continue;
        const int today = kForecastSlots[i].start - now;
        const int wait = today > 0 ? today : today + kSecondsPerDay;
        shortest = std::min(shortest.value_or(wait), wait);
    }
    return shortest;
}

QString NextUpdateIn(int seconds)
{
    return "Next Update in "_L1 + CountdownText(seconds);
}

} // namespace

ScheduleOutcome CheckForecastSchedule(std::array<bool, 4> &fired, const ScheduleInput &input)
{
    // One code of the right length is enough.
    if (input.zoneCode.size() != kZoneCodeLength && input.stateCode.size() != kStateCodeLength)
        return {.text = u"Invalid Zone Code/State"_s};
    if (input.countdown > 0)
        return {.text = NextUpdateIn(input.countdown / kMillisecondsPerSecond)};

    // The check boxes do not matter here: a slot fires whether its box is checked or not. One that
    // comes while the location is missing is lost.
    const bool startRequest =
        Fires(fired, input.now) && IsForecastLocationGiven(input.stateCode, input.zoneCode);
    const std::optional<int> wait = SecondsToNextSlot(input.slotChecked, input.now);
    return {.text = wait ? NextUpdateIn(*wait) : u"No Schedule Selected"_s,
            .startRequest = startRequest};
}
