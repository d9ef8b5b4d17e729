#pragma once

#include "profiles/weather_profile.h"

class QWidget;

/// The tool tip of a value box: the meaning of the value, and its unit as the profile writes it.
[[nodiscard]] QString ValueHelp(const QuantityRow &row, const WeatherProfile &profile);

/// Gives the controls of the main window, and their titles, tool tips that say what they are for.
/// Value boxes are left out: theirs depend on the profile.
void GiveHelp(const QWidget &window);
