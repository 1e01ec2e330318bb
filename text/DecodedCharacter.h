// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// A character of a UTF-8 text and the bytes [begin, end) it occupies. Each byte that is not valid UTF-8 is a U+FFFD of
/// its own.
struct DecodedCharacter {
    char32_t character = 0;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The slow paths of `characterAt` and `characterBefore`, out of line so that ASCII stays inlined.
DecodedCharacter foreignCharacterAt(std::string_view utf8, std::size_t position);
DecodedCharacter foreignCharacterBefore(std::string_view utf8, std::size_t position);

/// The character that begins at `position`, which is less than the size of `utf8`.
inline DecodedCharacter characterAt(std::string_view utf8, std::size_t position)
{
    const auto byte = static_cast<std::uint8_t>(utf8[position]);
    return byte < 0x80 ? DecodedCharacter{byte, position, position + 1} : foreignCharacterAt(utf8, position);
}

/// The character that ends at `position`, which is more than 0.
inline DecodedCharacter characterBefore(std::string_view utf8, std::size_t position)
{
    const auto byte = static_cast<std::uint8_t>(utf8[position - 1]);
    return byte < 0x80 ? DecodedCharacter{byte, position - 1, position} : foreignCharacterBefore(utf8, position);
}
