// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

#include <cstdint>

class GlobalDefaults;
class ProcessInfo;
class QFont;
class QWidget;
struct DesktopText;

enum class Appearance : std::uint8_t { Light, Dark };

/// Dark when the desktop's "AppleInterfaceStyle" holds "Dark" and the system's release is 10.14 or later. The release
/// is compared as the decimal number that it reads as: 10.2 counts as later than 10.14.
Appearance systemAppearance(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults);

/// The program's colours.
QPalette calmPalette(Appearance appearance);

/// The same in high contrast: black and white, every line as strong as a text.
QPalette strongPalette(Appearance appearance);

/// The colours for the desktop as it is now: in high contrast its own, where it has such colours, else the program's.
QPalette systemPalette(const ProcessInfo& processInfo, const GlobalDefaults& globalDefaults);

/// The size of the program's text in pixels: that of the font that the desktop gives programs, `given`. The toolkit
/// makes one up where no desktop gives any; then what the desktop says of its texts counts, else 13.
int textPixelSize(const QFont& given, const DesktopText& text);

/// Sets the program's widget style, and a size of its text until it is known what the desktop says of it.
void applyStyle();

/// Gives the program's texts the size that they have on the desktop as it is now. A font that the desktop gives is left
/// alone, so that the toolkit goes on to follow it.
void applyTextSize(const DesktopText& text);

/// Gives the program these colours, and `window` the rules that go with them. What shows in the window, sheets and
/// editors included, changes at once.
void applyPalette(const QPalette& palette, QWidget& window);

/// Puts the rules of `resources/velumora.qss` on a window and on all that ever stands in it or hangs on it, and puts
/// them on anew when the program's text has another size. Once the window is laid out: rules that are there before cost
/// a start 35 ms, as every widget is matched against them again and again.
void applyStyleRules(QWidget& window);
