// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace PropertyList {

/// The position of the first byte of a text in UTF-8 that a writer may have to escape or replace, and that a reader may
/// not take as it is: a control character other than a tab or a line feed, `&`, `<`, `>`, or 0xEF, with which U+FFFE
/// and U+FFFF begin. The size of the text when there is none.
std::size_t findCare(std::string_view text);

} // namespace PropertyList
