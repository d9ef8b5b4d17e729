#include "graph/graph_scale.h"

#include "core/number_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNoon = 12;
constexpr double kFarthest = 100; // heights of the plot; farther cannot be seen, nor painted
constexpr double kLargestPlain = 1e6;
constexpr int kMostDecimals = 6;
constexpr double kALittleMore = 1 + 1e-9;
constexpr double kHourGap = 8;   // pixels between two hours' texts, at least
constexpr QChar kDegree(0x00B0); // degree sign

std::optional<TempScale> Upright(double one, double other)
{
    const TempScale scale{std::min(one, other), std::max(one, other)};
    const double range = scale.top - scale.bottom;
    return std::isfinite(range) && range > 0 ? std::optional(scale) : std::nullopt;
}

bool AreLabelsWhole(const TempScale &scale)
{
    for (int i = 0; i < kTempLabels; ++i) {
        const double temperature = LabelTemp(scale, i);
        if (temperature != std::nearbyint(temperature))
            return false;
    }
    return true;
}

} // namespace

std::optional<TempScale> DrawnScale(const DayTemps &day)
{
    if (day.MaxTemp != day.MinTemp || !std::isfinite(day.MaxTemp))
        return Upright(day.MinTemp, day.MaxTemp);

    const DayExtremes extremes = FindExtremes(day).value_or(DayExtremes{day.MinTemp, day.MinTemp});
    if (extremes.lowest < extremes.highest)
        return Upright(extremes.lowest, extremes.highest);
    return Upright(extremes.lowest - 1, extremes.lowest + 1);
}

double XOfHour(const QRectF &plot, int hour)
{
    return plot.left() + plot.width() * hour / kHoursPerDay;
}

double YOfTemp(const QRectF &plot, const TempScale &scale, double temperature)
{
    const double part = (temperature - scale.bottom) / (scale.top - scale.bottom);
    return plot.bottom() - plot.height() * std::clamp(part, -kFarthest, kFarthest);
}

bool IsOnScale(const TempScale &scale, double temperature)
{
    return temperature >= scale.bottom && temperature <= scale.top;
}

double LabelTemp(const TempScale &scale, int index)
{
    return scale.bottom + (scale.top - scale.bottom) * (double(index) / (kTempLabels - 1));
}

int LabelDecimals(const TempScale &scale)
{
    if (AreLabelsWhole(scale))
        return 0;
    // Slightly more than the real distance, because 50.4 - 50 falls short of 0.4.
    const double distance = (scale.top - scale.bottom) / (kTempLabels - 1) * kALittleMore;
    int decimals = 1;
    for (double unit = 0.1; distance < unit && decimals < kMostDecimals; unit /= 10)
        ++decimals;
    return decimals;
}

QString DegreesText(double temperature, int decimals)
{
    if (std::abs(temperature) >= kLargestPlain)
        return FormatNumber(temperature, u"0.0E+00") + kDegree;
    const QString picture = decimals == 0 ? u"0"_s : u"0."_s + QString(decimals, u'0');
    return FormatNumber(temperature, picture) + kDegree;
}

QString HourText(int hour)
{
    const int ofHalf = hour % kNoon == 0 ? kNoon : hour % kNoon;
    return QString::number(ofHalf) + (hour < kNoon ? u" AM"_s : u" PM"_s);
}

int HourStep(double hourWidth, double textWidth)
{
    constexpr std::array kSteps = {3, 6, 12};
    const auto *const step = std::find_if(kSteps.begin(), kSteps.end(), [&](int hours) {
        return hours * hourWidth >= textWidth + kHourGap;
    });
    return step == kSteps.end() ? kHoursPerDay : *step;
}

int LabelStep(double plotHeight, double textHeight)
{
    constexpr std::array kSteps = {1, 2, 4};
    const double distance = plotHeight / (kTempLabels - 1);
    const auto *const step = std::find_if(
        kSteps.begin(), kSteps.end(), [&](int lines) { return lines * distance >= textHeight; });
    return step == kSteps.end() ? 0 : *step;
}
