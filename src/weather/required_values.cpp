#include "weather/required_values.h"

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
    return std::ranges::any_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool IsThere(WeatherProfile &profile, QStringView stem, QStringView working)
{
    const auto found = std::ranges::find(kQuantityStems, stem);
    if (found == kQuantityStems.end())
        return false; // a stem that no quantity has can never be satisfied
    const auto quantity = static_cast<Quantity>(found - kQuantityStems.begin());
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
