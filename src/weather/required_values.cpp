#include "weather/required_values.h"

#include "core/text.h"
#include "weather/node_value.h"

#include <algorithm>

namespace {

bool IsText(Quantity quantity)
{
    return quantity == Quantity::Conditions || quantity == Quantity::WindDir
        || quantity == Quantity::Time || quantity == Quantity::Location;
}

bool HoldsDigit(QStringView text)
{
    return std::ranges::any_of(text, IsDigit);
}

bool IsThere(WeatherProfile &profile, QStringView stem, QStringView working)
{
    const auto found = std::ranges::find(kQuantities, stem, &QuantityRow::stem);
    if (found == kQuantities.end())
        return false; // no reply satisfies an unknown stem
    const Quantity quantity = found->quantity;
    QuantityTags &tags = profile[quantity];
    const NodePlace place =
        FindNode(working, {.openTag = tags.Open, .closeTag = tags.Close, .prefix = tags.Prefix});
    return IsText(quantity) ? !place.text.isEmpty() : HoldsDigit(place.text);
}

} // namespace

std::optional<QString> MissingRequiredValue(WeatherProfile &profile, QStringView working)
{
    const auto missing = std::ranges::find_if_not(
        profile.required, [&](const QString &stem) { return IsThere(profile, stem, working); });
    return missing == profile.required.end() ? std::nullopt : std::optional(*missing);
}
