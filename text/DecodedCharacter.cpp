// SPDX-License-Identifier: MIT
#include "text/DecodedCharacter.h"

#include <bit>

namespace {

constexpr char32_t replacement = U'\uFFFD';

bool isContinuation(char byte)
{
    return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
}

} // namespace

DecodedCharacter foreignCharacterAt(std::string_view utf8, std::size_t position)
{
    const auto lead = static_cast<std::uint8_t>(utf8[position]);
    const DecodedCharacter malformed = {replacement, position, position + 1};
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length < 2 || length > 4 || utf8.size() - position < length) {
        return malformed;
    }
    char32_t character = lead & (0x7FU >> length);
    for (const char byte : utf8.substr(position + 1, length - 1)) {
        if (!isContinuation(byte)) {
            return malformed;
        }
        character = character << 6 | (static_cast<std::uint8_t>(byte) & 0x3FU);
    }
    constexpr char32_t leastOfLength[] = {0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < leastOfLength[length - 2] || character > 0x10FFFF || surrogate) {
        return malformed;
    }
    return {character, position, position + length};
}

DecodedCharacter foreignCharacterBefore(std::string_view utf8, std::size_t position)
{
    std::size_t begin = position - 1;
    while (begin > 0 && position - begin < 4 && isContinuation(utf8[begin])) {
        --begin;
    }
    const DecodedCharacter decoded = characterAt(utf8, begin);
    return decoded.end == position ? decoded : DecodedCharacter{replacement, position - 1, position};
}
