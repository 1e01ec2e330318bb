// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

#include <cstdint>

class GlobalDefaults;
class ProcessInfo;
class QWidget;

enum class Appearance : std::uint8_t { Light, Dark };

/// Dark when the desktop's "AppleInterfaceStyle" holds "Dark" and the system's release is 10.14 or later. The release
/// is compared as the decimal number that it reads as: 10.2 counts as later than 10.14.
Appearance systemAppearance(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults);

/// The program's colours.
QPalette calmPalette(Appearance appearance);

/// Sets the program's widget style and the fonts' base size, which are the same in both appearances.
void applyStyle();

/// Gives the program the colours of `appearance`, and `window` the rules that go with them. What shows in the window,
/// sheets and editors included, changes at once.
void applyAppearance(Appearance appearance, QWidget& window);

/// Puts the rules of `resources/velumora.qss` on a window and on all that ever stands in it or hangs on it. Once the
/// window is laid out: rules that are there before cost a start 35 ms, as every widget is matched against them again
/// and again.
void applyStyleRules(QWidget& window);
