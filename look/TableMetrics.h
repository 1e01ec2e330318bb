// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

/// Measures shared by the painted cells, the header and the editor of a table, in points.
inline constexpr int cellPadding = 8;        ///< between a cell's edge and its text, left and right
inline constexpr int sortIndicatorRoom = 16; ///< beside the title of a sortable column
inline constexpr double noteLineHeight = 17;
inline constexpr double eventLineHeight = 20; ///< of an important date

/// The system font at 13 points.
QFont cellFont();

/// The distance of the baseline from the top of a line of `lineHeight` for text in `font`, a whole number.
int baselineInLine(const QFont& font, double lineHeight);

/// A tool tip that shows `text` literally, including markup; a very long text ends in an ellipsis.
QString plainToolTip(const QString& text);
