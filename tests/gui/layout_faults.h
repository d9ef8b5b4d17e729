#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

/// The controls of `window` that a person can see: shown, not covered by a frame in front, and not
/// the toolkit's inner parts.
[[nodiscard]] QList<QWidget *> SeenControls(const QWidget &window);

/// Those of them that the Tab key goes to, in its order.
[[nodiscard]] QList<QWidget *> TabStops(const QWidget &window);

/// What is wrong with the layout of `window` and with its use by keyboard and assistive tools, in
/// words; empty when nothing is. The window has to be on the screen.
///
/// Nothing is cut off, nothing leaves its frame, no two controls of one frame overlap; every
/// control that can have the focus has an accessible name and says what it is for, no two mnemonics
/// clash, and the Tab key goes the way one reads.
[[nodiscard]] QStringList LayoutFaults(const QWidget &window);
