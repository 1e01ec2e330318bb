// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

/// Gives the program its look: the widget style, the fonts' base size and the rules of `resources/velumora.qss`, all on
/// the colours of the desktop's palette.
void applyAppearance(QApplication& application);
