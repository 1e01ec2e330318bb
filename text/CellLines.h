// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <Qt>

namespace CellLines {

/// The start of `line`, no more than `maximum` UTF-16 units of it, never part of what is seen as one sign
/// (a letter with its marks, an emoji of several characters), unless that alone is longer.
QStringView cut(QStringView line, qsizetype maximum);

/// The direction in which `line` is written: that of its first letter, `fallback` when it has none.
Qt::LayoutDirection direction(QStringView line, Qt::LayoutDirection fallback);

} // namespace CellLines
