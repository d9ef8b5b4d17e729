#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

/// The controls of `window` that a person can see: shown, not covered by a frame in front, and not
/// the toolkit's inner parts.
[[nodiscard]] QList<QWidget *> SeenControls(const QWidget &window);

/// Those of them that the Tab key reaches, in its order.
[[nodiscard]] QList<QWidget *> TabStops(const QWidget &window);

/// What is wrong with the layout of `window` and its use by keyboard and assistive tools, in words;
/// empty if nothing is. The window must be on the screen.
///
/// Nothing is cut off or leaves its frame, and no two controls of one frame overlap; every control
/// that can have the focus has an accessible name and says what it is for; no two mnemonics clash;
/// and the Tab key follows the reading order.
[[nodiscard]] QStringList LayoutFaults(const QWidget &window);
