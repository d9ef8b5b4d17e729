#pragma once

#include <QByteArray>
#include <QStringView>

/// The User-Agent header's value: the program's name and version, and behind it `contact` in
/// parentheses, which some services ask for ("me@example.org").
///
/// Control characters are dropped from `contact`, so that it cannot begin another header; when only
/// spaces are left there is no parenthesis.
[[nodiscard]] QByteArray UserAgent(QStringView contact);
