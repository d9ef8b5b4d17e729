#pragma once

#include "profiles/weather_profile.h"

#include <QString>

/// The reply as the parser searches it: without CR, LF and TAB.
[[nodiscard]] QString WorkingText(const QString &reply);

/// How the search for a profile's main node ended.
enum class MainNode
{
    Found,     ///< The text has been cut to it; a profile without one leaves it whole.
    NoOpening, ///< The opening tag is not in the text.
    NoClosing, ///< There is no closing tag after it.
};

/// Cuts `text` to the profile's main node. The cut begins with the last character of the opening
/// tag and lacks the last one before the closing tag. The text stays unchanged unless the profile
/// has both tags and both are found.
[[nodiscard]] MainNode CutToMainNode(QString &text, const WeatherProfile &profile);
