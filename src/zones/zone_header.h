#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The list entry of a zone, "MDZ011:  " and its place names, from the zone's forecast file.
///
/// The names are on the lines after the first one that begins with the zone code, up to an empty
/// line or one that begins with a digit. A hyphen at the end of a line becomes ", " before the next
/// line; hyphens within a line are kept. Lines end in LF; a CR before it belongs to the line.
///
/// Takes time linear in the size of the file.
/// @param fileName the zone code and ".txt".
/// @return nothing if no line begins with the zone code, or none follows the one that does.
[[nodiscard]] std::optional<QString> ZoneEntry(QStringView file, const QString &fileName);
