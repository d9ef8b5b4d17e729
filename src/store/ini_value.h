#pragma once

#include "store/private_profile.h"

#include <QString>
#include <QStringView>

#include <optional>

/// The value of `key`, trimmed of spaces, with the tokens [SP] [CR] [LF] [TAB] replaced by their
/// characters; nothing if there is no such key.
[[nodiscard]] std::optional<QString> FindIniValue(const PrivateProfile &profile,
                                                  QStringView section, QStringView key);

/// The same.
/// @return `fallback`, treated the same way, if there is no such key.
[[nodiscard]] QString ReadIniValue(const PrivateProfile &profile, QStringView section,
                                   QStringView key, QStringView fallback = {});

/// Sets the value of `key` in the image. With `encode`, spaces, tabs, line feeds and carriage
/// returns become tokens, so that any text stays one line; without, the value loses its outer
/// spaces.
void WriteIniValue(PrivateProfile &profile, QStringView section, QStringView key, QStringView value,
                   bool encode);
