// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

/// What the painted cells, the header and the editor of a table agree on, in points.
inline constexpr int cellPadding = 8;        ///< between a cell's edge and its text, left and right
inline constexpr int sortIndicatorRoom = 16; ///< beside the title of a sortable column
inline constexpr double noteLineHeight = 17;
inline constexpr double eventLineHeight = 20; ///< of an important date

/// The system font at 13 points.
QFont cellFont();

/// How far below the top of a line of `lineHeight` its baseline stands, a whole number, for text in `font`.
int baselineInLine(const QFont& font, double lineHeight);

/// `text` as a tool tip that shows it as it stands, markup and all; a very long one ends in an ellipsis.
QString plainToolTip(const QString& text);
