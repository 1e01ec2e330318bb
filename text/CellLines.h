// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <Qt>

#include <vector>

/// How a text falls into lines: at each newline character (LF, VT, FF, CR, U+0085, U+2028, U+2029). CR LF is two
/// newline characters, with an empty line between them.
namespace CellLines {

constexpr bool isSeparator(char16_t c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029';
}

/// The number of lines, 1 for an empty text.
int count(QStringView text);

/// At most `limit` lines from line `first` (0 is the top one) on, without their separators; fewer at the text's end.
/// The views stand in `text`. One pass over the text up to the last line taken, whatever the number of lines.
std::vector<QStringView> slice(QStringView text, int first, int limit);

/// The start of `line`, no more than `maximum` UTF-16 units of it, never part of what is seen as one sign
/// (a letter with its marks, an emoji of several characters), unless that alone is longer.
QStringView cut(QStringView line, qsizetype maximum);

/// The direction in which `line` is written: that of its first letter, `fallback` when it has none.
Qt::LayoutDirection direction(QStringView line, Qt::LayoutDirection fallback);

} // namespace CellLines
