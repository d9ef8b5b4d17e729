#pragma once

#include "store/private_profile.h"

#include <QString>
#include <QStringView>

#include <optional>

/// The arguments from the first on (without the program's own path), joined by single blanks.
[[nodiscard]] QString CommandText(int argc, const char *const *argv);

/// What the program prints and ends with, without needing a display, when one of the arguments is
/// "--help" or "--version".
[[nodiscard]] std::optional<QString> ConsoleAnswer(const QString &command);

/// Lets the toolkit try X11 before Wayland where a desktop offers both and the user has not chosen
/// with `QT_QPA_PLATFORM`: on Wayland a window is not told that it is minimised, so it could not
/// hide in the tray. To be called before the application object is made.
void PreferX11();

/// Lets the toolkit hand its paintings to an X server through the connection instead of shared
/// memory, which is waited for at each: a line that counts is painted every second. To be called
/// before the application object is made.
void PaintThroughConnection();

/// The session that the command text asks for: "2".."9" when "/SESSION=" and that digit stand at
/// its very end (letter case ignored), "" for the default session. Traces what it looks at.
[[nodiscard]] QString SessionFromCommand(const QString &command);

/// The same without a trace line.
[[nodiscard]] QString SessionOf(const QString &command);

/// Windows-1252 when "/CODEPAGE=1252" and a blank or the end of the text stand ahead of
/// "/SESSION=", or anywhere when there is no session switch; letter case is ignored.
[[nodiscard]] CodePage CodePageFromCommand(QStringView command);

/// The window's caption: the program's name, and the session unless it is the default one.
[[nodiscard]] QString WindowCaption(const QString &sessionId);

/// The program's version and its publisher's notice for `year`.
[[nodiscard]] QString VersionText(int year);
