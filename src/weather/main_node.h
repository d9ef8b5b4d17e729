#pragma once

#include "profiles/weather_profile.h"

#include <QString>

/// The reply as the parser searches it: without CR, LF and TAB.
[[nodiscard]] QString WorkingText(const QString &reply);

/// How the search for a profile's main node ended.
enum class MainNode
{
    Found,     ///< The text is cut to it, or the profile has none and the text is whole.
    NoOpening, ///< The opening tag is not in the text.
    NoClosing, ///< The closing tag is not behind it.
};

/// Cuts `text` down to the profile's main node. The cut begins with the last character of the
/// opening tag and loses the last one ahead of the closing tag. Without both tags found, or without
/// both in the profile, the text stays as it is.
[[nodiscard]] MainNode CutToMainNode(QString &text, const WeatherProfile &profile);
