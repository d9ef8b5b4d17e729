#pragma once

#include <QStringView>

/// What a quantity reads when it could not be obtained, and when the profile declares that its
/// service does not deliver it.
inline constexpr QStringView kNotAvailable = u"N/A";
inline constexpr QStringView kNotAvailableFromService = u"Not Available From Service";
