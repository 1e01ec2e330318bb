// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

#include <cstdint>

class GlobalDefaults;
class ProcessInfo;

enum class Appearance : std::uint8_t { Light, Dark };

/// Dark when the desktop's "AppleInterfaceStyle" contains "Dark" and the system's release is 10.14 or later. Releases
/// are compared as decimal numbers: 10.2 counts as later than 10.14.
Appearance systemAppearance(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults);

/// The program's usual colours.
QPalette calmPalette(Appearance appearance);

/// The program's colours in high contrast: black and white, with every line as strong as a text.
QPalette strongPalette(Appearance appearance);

/// The colours for the desktop's present settings: in high contrast the desktop's own palette, if it is one, else the
/// program's.
QPalette systemPalette(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults);
