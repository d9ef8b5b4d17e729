#include "station/update_cycle.h"

#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kHighestPort = 65535;
constexpr int kSecondsAMinute = 60;

/// Whether the choices are exactly those that the settings file can name, in minutes.
constexpr bool AreAllChoicesKept()
{
    return std::equal(kCheckIntervals.begin(), kCheckIntervals.end(), kCheckIntervalMinutes.begin(),
                      kCheckIntervalMinutes.end(), [](const CheckInterval &choice, int minutes) {
                          return choice.seconds == minutes * kSecondsAMinute;
                      });
}
static_assert(AreAllChoicesKept());

} // namespace

qint16 CheckIntervalSeconds(const std::array<bool, 4> &selected)
{
    const auto begin = selected.begin() + 1;
    const auto chosen = std::find(begin, selected.end(), true);
    return chosen == selected.end()
             ? kCheckIntervals.front().seconds
             : kCheckIntervals[static_cast<std::size_t>(chosen - selected.begin())].seconds;
}

qint16 CheckIntervalOf(const Settings &settings)
{
    return settings.CheckInterval ? qint16(*settings.CheckInterval * kSecondsAMinute)
                                  : kCheckIntervals.front().seconds;
}

bool IsLocationMissing(const std::array<LocationBox, 4> &boxes)
{
    return std::any_of(boxes.begin(), boxes.end(), [](const LocationBox &box) {
        return box.shown && TrimSpaces(box.text).isEmpty();
    });
}

QString HttpPortText(QStringView text)
{
    // The default rounding mode rounds halves to even.
    const double port = std::nearbyint(LeadingNumber(text).value_or(0));
    return port >= 1 && port <= kHighestPort ? QString::number(int(port)) : u"80"_s;
}

qint16 UsableProfileIndex(qint16 index, int count)
{
    if (count == 0)
        return -1;
    return index >= 0 && index < count ? index : qint16(0);
}
