#pragma once

#include "profiles/quantity.h"

#include <initializer_list>
#include <utility>

/// Values with these texts; those that are not named are empty.
inline WeatherValues ValuesOf(std::initializer_list<std::pair<Quantity, QString>> texts)
{
    WeatherValues values;
    for (const auto &[quantity, text] : texts)
        values[quantity] = text;
    return values;
}
