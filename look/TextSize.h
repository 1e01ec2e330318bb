// SPDX-License-Identifier: MIT
#pragma once

class QFont;
struct DesktopText;

/// The size of the program's text in pixels: that of `given`, the font that the desktop gives programs. If Qt made that
/// font up because there is none, `text` decides, else 13.
int textPixelSize(const QFont& given, const DesktopText& text);

/// Gives the program's texts the size that they have on the desktop at present. A font given by the desktop is left
/// alone, so that Qt keeps following it.
void applyTextSize(const DesktopText& text);
