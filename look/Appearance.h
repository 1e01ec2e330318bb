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

/// The size of the program's text in pixels: that of `given`, the font that the desktop gives programs. If Qt made that
/// font up because there is none, `text` decides, else 13.
int textPixelSize(const QFont& given, const DesktopText& text);

/// Sets the program's widget style, and a text size until the desktop's settings are known.
void applyStyle();

/// Gives the program's texts the size that they have on the desktop at present. A font given by the desktop is left
/// alone, so that Qt keeps following it.
void applyTextSize(const DesktopText& text);

/// Gives the program these colours, and `window` the style rules that go with them. Everything in the window, including
/// sheets and editors, changes at once.
void applyPalette(const QPalette& palette, QWidget& window);

/// Applies the rules of `resources/velumora.qss` to a window and everything in or attached to it, now and whenever the
/// text size changes. Call it after the window is laid out: applied earlier, the rules cost a start 35 ms, as every
/// widget is matched against them repeatedly.
void applyStyleRules(QWidget& window);
