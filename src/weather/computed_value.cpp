#include "weather/computed_value.h"

#include "core/number.h"
#include "core/number_picture.h"
#include "core/value_texts.h"
#include "weather/formulas.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// How one quantity is computed, in either scale.
struct Computation
{
    Quantity quantity = {};
    QLatin1StringView tokenF = {};
    QLatin1StringView tokenC = {};
    double (*computeF)(double, double) = nullptr;
    double (*computeC)(double, double) = nullptr;
    double leastResult = 0; ///< Below it the quantity does not apply.
};

constexpr std::array kComputations{
    Computation{Quantity::WindChill, "%WCF%"_L1, "%WCC%"_L1, GetWindChillF, GetWindChillC, -200},
    Computation{Quantity::HeatIndex, "%HIF%"_L1, "%HIC%"_L1, GetHeatIndexF, GetHeatIndexC, 0},
    Computation{Quantity::DewPoint, "%DPF%"_L1, "%DPC%"_L1, GetDewPointF, GetDewPointC, -200},
};

const Computation *Find(Quantity quantity)
{
    const auto found = std::ranges::find(kComputations, quantity, &Computation::quantity);
    return found == kComputations.end() ? nullptr : &*found;
}

} // namespace

bool IsComputed(Quantity quantity, QStringView units)
{
    const Computation *computation = Find(quantity);
    return computation != nullptr
        && (units.contains(computation->tokenF) || units.contains(computation->tokenC));
}

QString ComputedValue(Quantity quantity, const QString &units, QStringView temperature,
                      QStringView other)
{
    const Computation *computation = Find(quantity);
    const std::optional<double> t = LeadingNumber(temperature);
    const std::optional<double> o = LeadingNumber(other);
    if (computation == nullptr || !t || !o)
        return kNotAvailable.toString();

    const bool fahrenheit = units.contains(computation->tokenF);
    const double result =
        fahrenheit ? computation->computeF(*t, *o) : computation->computeC(*t, *o);
    if (!(result >= computation->leastResult))
        return kNotAvailable.toString();
    return QString(units).replace(fahrenheit ? computation->tokenF : computation->tokenC,
                                  FormatNumber(result, u"0.0"));
}
