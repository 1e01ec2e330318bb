// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Shortening that never splits what a reader sees as one sign: a letter with its marks, an emoji of several
/// characters. Only a sign that is longer than the limit by itself is split, and then not within a surrogate pair.
/// Lengths are in UTF-16 units.

/// The beginning of `text`, at most `maximum` units, none when that is negative; a view into `text`.
QStringView beginningOf(QStringView text, qsizetype maximum);

/// `text`, cut to `maximum` units and an ellipsis when it is longer.
QString shortened(QStringView text, qsizetype maximum);

/// `text`; when it is longer than `maximum`, about `maximum` / 2 units from each end with an ellipsis between them.
QString withoutMiddle(QStringView text, qsizetype maximum);

/// The first sign of `text`; empty for an empty text.
QStringView firstSignOf(QStringView text);
