#pragma once

#include "app/value_box_fields.h"

class QWidget;

/// What the tool tip of a value says: its meaning, and its unit as the profile has it.
[[nodiscard]] QString ValueHelp(const ValueBoxField &field, const WeatherProfile &profile);

/// Gives the controls of the main window, and their titles, tool tips that say what they are for.
/// The value boxes get theirs with the profile that is shown.
void GiveHelp(const QWidget &window);
