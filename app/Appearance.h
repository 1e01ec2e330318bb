// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

#include <cstdint>

class QApplication;

enum class Appearance : std::uint8_t { Light, Dark };

/// The program's colours.
QPalette calmPalette(Appearance appearance);

/// Gives the program its look: the widget style, the fonts' base size, the palette (light or dark, as the desktop's is) and
/// the rules of `resources/velumora.qss`.
void applyAppearance(QApplication& application);
