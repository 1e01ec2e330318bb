// SPDX-License-Identifier: MIT
#pragma once

class QPalette;
class QWidget;

/// Sets the program's widget style, and a text size until the desktop's settings are known.
void applyStyle();

/// Gives the program these colours, and `window` the style rules that go with them. Everything in the window, including
/// sheets and editors, changes at once.
void applyPalette(const QPalette& palette, QWidget& window);

/// Applies the rules of `resources/velumora.qss` to a window and everything in or attached to it, now and whenever the
/// text size changes. Call it after the window is laid out: applied earlier, the rules cost a start 35 ms, as every
/// widget is matched against them repeatedly.
void applyStyleRules(QWidget& window);
