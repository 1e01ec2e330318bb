// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <string_view>
#include <vector>

/// Where a line of text ends. The rows of a list and what stands in their cells follow the newline characters one by
/// one, so that CR LF is two of them with an empty line between; what is laid out for reading (`withLineFeeds`) takes
/// CR LF for the one line break that its writer meant.

/// A newline character: LF, VT, FF, CR, U+0085, U+2028 or U+2029.
constexpr bool isNewline(char16_t c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\u0085' || c == u'\u2028' || c == u'\u2029';
}

/// The number of pieces that `utf8` falls into when it is split at every newline character. At least 1: the empty text
/// is one piece.
std::size_t countOfLines(std::string_view utf8);

/// At most `limit` of these pieces from number `first` (0 is the top one) on, without their newline characters; fewer
/// at the text's end. The views stand in `text`. One pass over the text up to the last piece taken, whatever the number
/// of pieces.
std::vector<QStringView> linesOf(QStringView text, int first, int limit);

/// `text` with a line feed for each line break, whatever it is; CR LF is one.
QString withLineFeeds(QString text);
