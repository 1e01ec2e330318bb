// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

#include <cstdint>

class QWidget;

enum class Appearance : std::uint8_t { Light, Dark };

/// The program's colours.
QPalette calmPalette(Appearance appearance);

/// Sets the program's widget style, the fonts' base size and the palette: light or dark, as the desktop's is.
void applyAppearance();

/// Puts the rules of `resources/velumora.qss` on a window and on all that ever stands in it or hangs on it. Once the
/// window is laid out: rules that are there before cost a start 35 ms, as every widget is matched against them again
/// and again.
void applyStyleRules(QWidget& window);
