#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The list entry of a zone, "MDZ011:  " and its place names, out of the zone's forecast file.
///
/// The names stand on the lines behind the first one that begins with the zone code, up to an empty
/// line or one that begins with a digit. A hyphen at the end of a line parts it from the next one
/// by ", "; hyphens within a line stay. Lines end in LF; a CR ahead of it belongs to its line.
///
/// Works in time linear in the file.
/// @param fileName the zone code and ".txt".
/// @return nothing when no line begins with the zone code or none follows the one that does.
[[nodiscard]] std::optional<QString> ZoneEntry(QStringView file, const QString &fileName);
