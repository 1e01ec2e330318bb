// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <string_view>
#include <vector>

/// Where a line of text ends. Lists and their cells break at every newline character, so CR LF counts twice, with an
/// empty line between. Text laid out for reading (`withLineFeeds`) treats CR LF as the single line break that its
/// writer meant.

/// A newline character: LF, VT, FF, CR, U+0085, U+2028 or U+2029.
constexpr bool isNewline(char16_t c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029';
}

/// The number of pieces that `utf8` falls into when it is split at every newline character. At least 1: the empty text
/// is one piece.
std::size_t countOfLines(std::string_view utf8);

/// At most `limit` of these pieces, starting with number `first` (0 is the top one), without their newline characters;
/// fewer when the text ends before that. The views point into `text`. The text is read only up to the last piece
/// returned.
std::vector<QStringView> linesOf(QStringView text, int first, int limit);

/// `text` with every line break replaced by a line feed; CR LF counts as one.
QString withLineFeeds(QString text);
