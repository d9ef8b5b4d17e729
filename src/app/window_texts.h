#pragma once

#include <QString>

/// The window's caption: the program's name, and the session unless it is the first one.
[[nodiscard]] QString WindowCaption(const QString &sessionId);

/// The program's version and its publisher's notice for `year`.
[[nodiscard]] QString VersionText(int year);
