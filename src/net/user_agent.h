#pragma once

#include <QByteArray>
#include <QStringView>

/// The User-Agent header's value: the program's name and version, followed by `contact` in
/// parentheses ("me@example.org"), which some services ask for.
///
/// Control characters are dropped from `contact`, so that it cannot start another header; if only
/// spaces are left, there are no parentheses.
[[nodiscard]] QByteArray UserAgent(QStringView contact);
