// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

/// Heights in points of one line of a row.
constexpr double noteLineHeight = 17.0;
constexpr double eventLineHeight = 20.0;

/// The number of pieces that `utf8` falls into when it is split at every newline character: U+000A to U+000D, U+0085,
/// U+2028 and U+2029. At least 1: the empty text is one piece. CR LF splits twice.
std::size_t countOfLines(std::string_view utf8);
