// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QStringView>

class QPalette;

/// Whether `palette` has light text on a dark ground.
bool isDarkAppearance(const QPalette& palette);

/// The contrast of two opaque colours, 1 to 21, as the Web Content Accessibility Guidelines 2.1 define it.
double contrastOf(const QColor& a, const QColor& b);

/// Whether `palette` has one ground for everything, with a contrast as between black and white.
bool isHighContrast(const QPalette& palette);

/// The colour of that name in the appearance (light or dark, of high contrast or not) of `palette`; an invalid colour
/// for a name that is not listed:
///  - "ControlTextColor", "ControlBackgroundColor": text and ground of a list, taken from the palette itself;
///  - "SystemRedColor", "SecondaryLabelColor": text on the ground of a list, at a contrast of 4.5:1 or better;
///  - "TableRowSelectionColor" under text in "TableRowSelectedTextColor", at 4.5:1 or better;
///  - "SeparatorColor": hairlines, meant to be barely seen;
///  - "EngravingColor" over "EngravingLipColor": shadow and lit edge of a rule that is cut into the window;
///  - "HeaderBackgroundColor": ground of a column header, under control text;
///  - "FocusRingColor": the frame of what has the keyboard focus, at 3:1 or better against the ground of a list.
QColor namedColor(QStringView name, const QPalette& palette);
