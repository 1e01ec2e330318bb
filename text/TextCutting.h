// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Parts of a text that never halve what is seen as one sign: a letter with its marks, an emoji of several characters.
/// Only a sign that alone is longer than what is asked for is cut, and then no surrogate pair.
/// Lengths are in UTF-16 units.

/// The beginning of `text`, no more than `maximum` units. The view stands in `text`.
QStringView beginningOf(QStringView text, qsizetype maximum);

/// `text`, of which no more than `maximum` units are kept; an ellipsis then stands for the rest.
QString shortened(QStringView text, qsizetype maximum);

/// `text`, of which about half of `maximum` units are kept at each end when it is longer than `maximum`; an ellipsis
/// then stands for what was between them.
QString withoutMiddle(QStringView text, qsizetype maximum);

/// The first sign, empty for an empty text.
QStringView firstSignOf(QStringView text);
